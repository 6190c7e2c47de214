#include <map>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <lwconfig/checking/check_configuration.h>
#include <lwconfig/core/xml/xml_document.h>
#include <lwconfig/root.h>

#include "ratios.h"
#include "sample_configuration.h"

namespace lwconfig::bench {
namespace {

constexpr int kTemplates = 200;

SampleConfiguration& Sample(int templates) {
  static std::map<int, std::unique_ptr<SampleConfiguration>> samples;
  auto& sample = samples[templates];
  if (!sample) sample = std::make_unique<SampleConfiguration>(templates);
  return *sample;
}

void ReadFiles(benchmark::State& state) {
  const auto& sample = Sample(kTemplates);
  for (auto _ : state) {
    std::size_t bytes = 0;
    for (const auto& path : sample.ConfigFiles()) bytes += ReadBytes(path).size();
    benchmark::DoNotOptimize(bytes);
  }
}

void ParseTemplates(benchmark::State& state, int templates) {
  const auto& sample = Sample(templates);
  for (auto _ : state) {
    std::size_t trees = 0;
    for (const auto& path : sample.ConfigFiles()) trees += ReadAndParse(path) ? 1 : 0;
    if (trees != sample.ConfigFiles().size()) state.SkipWithError("not every file parses");
  }
}

void Load(benchmark::State& state, int templates) {
  const auto& sample = Sample(templates);
  const ConfigPathScope registered(sample);
  Root root;
  for (auto _ : state) {
    const auto loaded = root.PageTemplates()->Count();
    if (loaded != templates) state.SkipWithError("not every template loads");
    state.PauseTiming();
    root.ResetLWConfig();
    state.ResumeTiming();
  }
}

/// Loading with an inspection under way, and all that is looked for besides.
void Check(benchmark::State& state, int templates) {
  const auto& sample = Sample(templates);
  const ConfigPathScope registered(sample);
  for (auto _ : state) {
    if (CheckConfiguration().HasErrors()) state.SkipWithError("the sample has problems");
  }
}

/// The text of every template by the XML library's own serialiser, from trees that it parsed.
void Serialise(benchmark::State& state) {
  const auto& sample = Sample(kTemplates);
  std::vector<std::unique_ptr<pugi::xml_document>> trees;
  for (const auto& path : sample.ConfigFiles()) {
    trees.push_back(std::make_unique<pugi::xml_document>());
    trees.back()->load_file(path.c_str());
  }
  struct Writer : pugi::xml_writer {
    void write(const void* data, std::size_t size) override {
      Text.append(static_cast<const char*>(data), size);
    }
    std::string Text;
  };
  for (auto _ : state) {
    for (const auto& tree : trees) {
      Writer writer;
      tree->save(writer);
      benchmark::DoNotOptimize(writer.Text.data());
    }
  }
}

/// The text of every template from the model.
void Save(benchmark::State& state) {
  const ConfigPathScope registered(Sample(kTemplates));
  Root root;
  const auto templates = root.PageTemplates();
  for (auto _ : state) {
    for (const auto& pageTemplate : *templates) {
      XMLDocument document;
      XMLElement element = document.RootElement();
      pageTemplate->Save(element);
      const std::string text = document.XML();
      benchmark::DoNotOptimize(text.data());
    }
  }
}

[[maybe_unused]] const bool kRegistered = [] {
  const auto ms = benchmark::kMillisecond;
  benchmark::RegisterBenchmark("read/200", ReadFiles)->Unit(ms);
  for (const int templates : {10, kTemplates, 2000}) {
    const std::string count = std::to_string(templates);
    benchmark::RegisterBenchmark(("parse/" + count).c_str(), ParseTemplates, templates)->Unit(ms);
    benchmark::RegisterBenchmark(("load/" + count).c_str(), Load, templates)->Unit(ms);
    benchmark::RegisterBenchmark(("check/" + count).c_str(), Check, templates)->Unit(ms);
    Ratios()["check/" + count] = {"load/" + count, ""};
    Ratios()["load/" + count] = {"parse/" + count, "at most 3, better 2"};
    if (templates != kTemplates)
      Ratios()["parse/" + count] = {"parse/200", "1", templates / double{kTemplates}};
  }
  benchmark::RegisterBenchmark("serialise/200", Serialise)->Unit(ms);
  benchmark::RegisterBenchmark("save/200", Save)->Unit(ms);
  Ratios()["save/200"] = {"serialise/200", "at most 1.5"};
  return true;
}();

}  // namespace
}  // namespace lwconfig::bench
