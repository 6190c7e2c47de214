#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include <benchmark/benchmark.h>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/letter_case.h>

#include "ratios.h"

namespace lwconfig::bench {
namespace {

using automation::kPropertyGet;
using automation::kPropertyLet;

constexpr int kItems = 100'000;

/// The name as callers have it: known when they run.
std::string_view Member() {
  std::string_view name = "DependantCount";
  benchmark::DoNotOptimize(name);
  return name;
}

void GetDirect(benchmark::State& state) {
  PageLayout layout;
  for (auto _ : state) {
    benchmark::DoNotOptimize(layout);
    benchmark::DoNotOptimize(layout.DependantCount);
  }
}

void GetLateBound(benchmark::State& state) {
  const AnyObject layout = automation::ClassOf<PageLayout>().Create();
  for (auto _ : state) benchmark::DoNotOptimize(automation::Invoke(layout, Member(), kPropertyGet));
}

void SetLateBound(benchmark::State& state) {
  const AnyObject layout = automation::ClassOf<PageLayout>().Create();
  Variant value = 7;
  for (auto _ : state) {
    automation::Invoke(layout, Member(), kPropertyLet, {std::span(&value, 1)});
    benchmark::DoNotOptimize(layout);
  }
}

/// What somebody would write who needs members by name: letter case counts, and nothing is checked.
void GetFromMap(benchmark::State& state) {
  const std::unordered_map<std::string, std::function<Variant(PageLayout&)>> getters{
      {"Name", [](PageLayout& layout) { return Variant(layout.Name); }},
      {"FileName", [](PageLayout& layout) { return Variant(layout.FileName); }},
      {"DependantCount", [](PageLayout& layout) { return Variant(layout.DependantCount); }}};
  PageLayout layout;
  for (auto _ : state) benchmark::DoNotOptimize(getters.find(std::string(Member()))->second(layout));
}

struct FoldedHash {
  std::size_t operator()(std::string_view name) const { return HashIgnoringCase(name); }
};
struct FoldedEqual {
  bool operator()(std::string_view a, std::string_view b) const { return EqualIgnoringCase(a, b); }
};

/// As above, but with names in any letter case, as late binding has them.
void GetFromFoldedMap(benchmark::State& state) {
  std::unordered_map<std::string_view, std::function<Variant(PageLayout&)>, FoldedHash, FoldedEqual> getters;
  for (const auto& member : automation::ClassOf<PageLayout>().Members())
    getters.emplace(member.Name, [](PageLayout& layout) { return Variant(layout.DependantCount); });
  PageLayout layout;
  for (auto _ : state) benchmark::DoNotOptimize(getters.find(Member())->second(layout));
}

void SetInMap(benchmark::State& state) {
  const std::unordered_map<std::string, std::function<void(PageLayout&, const Variant&)>> setters{
      {"Name", [](PageLayout& layout, const Variant& value) { layout.Name = std::get<std::string>(value); }},
      {"DependantCount", [](PageLayout& layout, const Variant& value) {
         layout.DependantCount = std::get<std::int32_t>(value);
       }}};
  PageLayout layout;
  const Variant value = 7;
  for (auto _ : state) {
    setters.find(std::string(Member()))->second(layout, value);
    benchmark::DoNotOptimize(layout);
  }
}

void EnumerateItems(benchmark::State& state) {
  const auto layouts = std::make_shared<PageLayouts>();
  for (int count = 0; count < kItems; ++count) layouts->Add(std::make_shared<PageLayout>());
  const AnyObject object = automation::ToAnyObject(layouts);
  for (auto _ : state) {
    const auto items = automation::Enumerate(object);
    for (Variant item; items->Next(item);) benchmark::DoNotOptimize(item);
  }
}

void IterateItems(benchmark::State& state) {
  PageLayouts layouts;
  for (int count = 0; count < kItems; ++count) layouts.Add(std::make_shared<PageLayout>());
  for (auto _ : state) {
    for (auto item : layouts) benchmark::DoNotOptimize(item);
  }
}

[[maybe_unused]] const bool kRegistered = [] {
  benchmark::RegisterBenchmark("dispatch/get direct", GetDirect);
  benchmark::RegisterBenchmark("dispatch/get from map", GetFromMap);
  benchmark::RegisterBenchmark("dispatch/get from folded map", GetFromFoldedMap);
  benchmark::RegisterBenchmark("dispatch/get by name", GetLateBound);
  benchmark::RegisterBenchmark("dispatch/set in map", SetInMap);
  benchmark::RegisterBenchmark("dispatch/set by name", SetLateBound);
  benchmark::RegisterBenchmark("dispatch/100000 items direct", IterateItems)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("dispatch/100000 items", EnumerateItems)->Unit(benchmark::kMicrosecond);
  Ratios()["dispatch/get from folded map"] = {"dispatch/get from map", "none"};
  Ratios()["dispatch/get by name"] = {"dispatch/get from map", "1, and below 100 ns"};
  Ratios()["dispatch/set by name"] = {"dispatch/set in map", "1, and below 100 ns"};
  Ratios()["dispatch/100000 items"] = {"dispatch/100000 items direct", "none"};
  return true;
}();

}  // namespace
}  // namespace lwconfig::bench
