#include <cstdio>
#include <string>
#include <unordered_map>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <lwconfig/options/vb_options.h>

#include "ratios.h"
#include "sample_files.h"

namespace lwconfig::bench {
namespace {

constexpr const char* kSection = "HKEY_CURRENT_USER\\Software\\Corvantis\\Lexiwend4\\VB";

/// A registry of its own with the options that a user of some years has stored.
class SampleRegistry {
 public:
  SampleRegistry() {
    ::setenv("LWCONFIG_REGISTRY", mFolder.Path().c_str(), 1);
    const std::string text = Repeated(
        "Windows Registry Editor Version 5.00\n\n[" + std::string(kSection) +
            "]\n\"WrapCharacters\"=\"72\"\n",
        80, [](const std::string& number) { return "\"Option" + number + "\"=\"Value " + number + "\"\n"; },
        "");
    WriteFile(File(), text);
    // Until the file's time can tell its next change every read looks at the whole file.
    ::usleep(50'000);
  }
  ~SampleRegistry() { ::unsetenv("LWCONFIG_REGISTRY"); }
  SampleRegistry(const SampleRegistry&) = delete;
  SampleRegistry& operator=(const SampleRegistry&) = delete;

  std::string File() const { return (mFolder.Path() / "user.reg").string(); }

 private:
  TemporaryFolder mFolder;
};

/// What a read is measured against: whether the file has changed, and the value in a table.
void StatAndLookUp(benchmark::State& state) {
  const SampleRegistry registry;
  const std::string file = registry.File();
  std::unordered_map<std::string, std::string> table;
  for (int i = 0; i < 80; ++i) table[std::string(kSection) + "\\Option" + std::to_string(i)] = "value";
  const std::string key = std::string(kSection) + "\\Option40";
  for (auto _ : state) {
    struct stat now {};
    benchmark::DoNotOptimize(::stat(file.c_str(), &now));
    benchmark::DoNotOptimize(table.find(key));
  }
}

void ReadOption(benchmark::State& state) {
  const SampleRegistry registry;
  const VBOptions options;
  for (auto _ : state) {
    if (options.WrapCharacters != 72) state.SkipWithError("the option is not what is stored");
  }
}

/// What a write is measured against: the same bytes, made durable and put in place.
void ReplaceFile(benchmark::State& state) {
  const SampleRegistry registry;
  const std::string text = ReadBytes(registry.File());
  const std::string other = registry.File() + ".new";
  for (auto _ : state) {
    const int file = ::open(other.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const bool isWritten = ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (!isWritten || ::fsync(file) != 0 || ::close(file) != 0 ||
        std::rename(other.c_str(), registry.File().c_str()) != 0) {
      state.SkipWithError("the file cannot be written");
    }
  }
}

void WriteOption(benchmark::State& state) {
  const SampleRegistry registry;
  VBOptions options;
  int value = 0;
  for (auto _ : state) options.WrapCharacters = 1000 + ++value % 1000;
}

[[maybe_unused]] const bool kRegistered = [] {
  benchmark::RegisterBenchmark("stat and look-up", StatAndLookUp);
  benchmark::RegisterBenchmark("option/read", ReadOption);
  Ratios()["option/read"] = {"stat and look-up", "at most 3"};
  const auto unit = benchmark::kMicrosecond;
  benchmark::RegisterBenchmark("write, fsync and rename", ReplaceFile)->Unit(unit);
  benchmark::RegisterBenchmark("option/write", WriteOption)->Unit(unit);
  Ratios()["option/write"] = {"write, fsync and rename", ""};
  return true;
}();

}  // namespace
}  // namespace lwconfig::bench
