#include <map>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <lwconfig/core/base/keyed_collection.h>

#include "ratios.h"

namespace lwconfig::bench {
namespace {

constexpr int kLookUps = 4096;

std::string Key(int number) {
  return "Key" + std::to_string(number);
}

const Collection& Sample(int count) {
  static std::map<int, Collection> collections;
  Collection& collection = collections[count];
  for (int i = collection.Count(); i < count; ++i) collection.Add("item", Key(i));
  return collection;
}

std::vector<int> RandomNumbers(int count) {
  std::mt19937 random(1);
  std::uniform_int_distribution<int> number(0, count - 1);
  std::vector<int> numbers(kLookUps);
  for (int& n : numbers) n = number(random);
  return numbers;
}

void FindByKey(benchmark::State& state, int count) {
  const Collection& collection = Sample(count);
  std::vector<std::string> keys;
  for (const int number : RandomNumbers(count)) keys.push_back(Key(number));
  for (auto _ : state) {
    for (const auto& key : keys) benchmark::DoNotOptimize(collection.Item(key));
  }
}

void FindByPosition(benchmark::State& state, int count) {
  const Collection& collection = Sample(count);
  const std::vector<int> numbers = RandomNumbers(count);
  for (auto _ : state) {
    for (const int number : numbers) benchmark::DoNotOptimize(collection.Item(number + 1));
  }
}

void Append(benchmark::State& state, int count) {
  for (auto _ : state) {
    Collection collection;
    for (int i = 0; i < count; ++i) collection.Add("item", Key(i));
    benchmark::DoNotOptimize(collection.Count());
  }
}

[[maybe_unused]] const bool kRegistered = [] {
  for (const int count : {10, 1'000, 100'000, 1'000'000}) {
    const std::string size = std::to_string(count);
    benchmark::RegisterBenchmark(("key/" + size).c_str(), FindByKey, count)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(("position/" + size).c_str(), FindByPosition, count)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(("append/" + size).c_str(), Append, count)->Unit(benchmark::kMicrosecond);
    if (count == 10) continue;
    Ratios()["key/" + size] = {"key/10", "what the cache explains"};
    Ratios()["position/" + size] = {"position/10", "what the cache explains"};
    Ratios()["append/" + size] = {"append/10", "what the cache explains", count / 10.0};
  }
  return true;
}();

}  // namespace
}  // namespace lwconfig::bench
