#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "ratios.h"

namespace lwconfig::bench {
namespace {

/// Collects the medians and prints them as one table, with the ratios that the benchmarks asked for.
class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& run : runs) {
      if (run.error_occurred)
        std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
      if (run.aggregate_name == "median") mMedians[run.run_name.str()] = run;
      if (run.aggregate_name == "median") mOrder.push_back({run.family_index, run.run_name.str()});
    }
  }
  void Finalize() override {
    std::printf("%-44s %14s %10s\n", "benchmark (medians)", "time", "ratio");
    std::ranges::sort(mOrder);
    for (const auto& [family, name] : mOrder) {
      const auto found = mMedians.find(name);
      if (found == mMedians.end()) continue;
      std::printf("%-44s %11.1f %-2s", name.c_str(), found->second.GetAdjustedRealTime(),
                  benchmark::GetTimeUnitString(found->second.time_unit));
      PrintRatio(name, found->second);
      std::printf("\n");
    }
  }

 private:
  void PrintRatio(const std::string& name, const Run& run) const {
    const auto ratio = Ratios().find(name);
    if (ratio == Ratios().end()) return;
    const auto base = mMedians.find(ratio->second.Base);
    if (base == mMedians.end()) return;
    const double own = run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
    const double other =
        base->second.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(base->second.time_unit);
    std::printf(" %10.2f of %s", own / other / ratio->second.Scale, ratio->second.Base.c_str());
    if (ratio->second.Scale != 1) std::printf(", each");
    if (!ratio->second.Aim.empty()) std::printf(" (aim: %s)", ratio->second.Aim.c_str());
  }

  std::map<std::string, Run> mMedians;
  std::vector<std::pair<std::int64_t, std::string>> mOrder;  // in order of registration
};

}  // namespace

std::map<std::string, Ratio>& Ratios() {
  static std::map<std::string, Ratio> ratios;
  return ratios;
}

}  // namespace lwconfig::bench

int main(int argc, char** argv) {
  // Interleaved repetitions: what else the machine does then falls on both sides of a ratio alike.
  std::vector<char*> arguments(argv, argv + argc);
  std::string repetitions = "--benchmark_repetitions=7";
  std::string interleaving = "--benchmark_enable_random_interleaving=true";
  std::string minimum = "--benchmark_min_time=0.05";
  arguments.insert(arguments.begin() + 1, {repetitions.data(), interleaving.data(), minimum.data()});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;
  lwconfig::bench::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
