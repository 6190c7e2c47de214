#include <string>
#include <unordered_map>

#include <benchmark/benchmark.h>

#include <lwconfig/externaldocs/external_docs.h>
#include <lwconfig/externaldocs/wildcard.h>
#include <lwconfig/templates/page_template.h>

#include "ratios.h"
#include "sample_files.h"

namespace lwconfig::bench {
namespace {

constexpr int kSources = 1000;

std::string NamespaceName(int number) {
  return "Vendor" + std::to_string(number) + ".Library";
}

void AddSources(ExternalDocs& docs) {
  for (int i = 0; i < kSources; ++i) {
    auto source = std::make_shared<ExternalDoc>();
    source->NamespaceName = NamespaceName(i) + "*";
    source->ClassLink->URLFormat = "https://example.com/%%Namespace%%/%%FullName_NoDots%%.html";
    docs.Add(source, source->NamespaceName);
  }
}

/// Matching the patterns of all sources, as the last one needs.
void MatchPatterns(benchmark::State& state) {
  ExternalDocs docs;
  AddSources(docs);
  const std::string name = NamespaceName(kSources - 1);
  for (auto _ : state) {
    for (const auto& source : docs) benchmark::DoNotOptimize(MatchesWildcard(name, source->NamespaceName));
  }
}

/// The link of a class in the last source.
void Link(benchmark::State& state, bool isCached) {
  ExternalDocs docs;
  AddSources(docs);
  const std::string name = NamespaceName(kSources - 1) + ".Class";
  for (auto _ : state) {
    if (!isCached) docs.ResetLinkCache();
    if (docs.Link(name, "Class", false).empty()) state.SkipWithError("there is no link");
  }
}

constexpr int kPhrases = 1000;

void LookUpText(benchmark::State& state) {
  std::unordered_map<std::string, std::string> texts;
  for (int i = 0; i < kPhrases; ++i) texts["Phrase" + std::to_string(i)] = "The text of a phrase";
  const std::string name = "Phrase500";
  for (auto _ : state) {
    const std::string text = texts.find(name)->second;
    benchmark::DoNotOptimize(text.data());
  }
}

void LookUpPhrase(benchmark::State& state) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path() / "Phrases");
  WriteFile(
      folder.Path() / "Phrases" / "English.txt",
      Repeated(
          "", kPhrases,
          [](const std::string& number) { return "Phrase" + number + "~The text of a phrase\r\n"; }, ""));
  PageTemplate pageTemplate;
  pageTemplate.RootFolder = folder.Product("") + "\\";
  pageTemplate.LoadPhrasesAndScraps("English");
  if (pageTemplate.Phrases()->Count() != kPhrases) state.SkipWithError("not every phrase loads");
  for (auto _ : state) {
    const std::string text = pageTemplate.Phrase("Phrase500");
    benchmark::DoNotOptimize(text.data());
  }
}

[[maybe_unused]] const bool kRegistered = [] {
  const auto unit = benchmark::kMicrosecond;
  benchmark::RegisterBenchmark("match/1000", MatchPatterns)->Unit(unit);
  benchmark::RegisterBenchmark("link/1000", Link, false)->Unit(unit);
  benchmark::RegisterBenchmark("link/1000, cached", Link, true)->Unit(unit);
  Ratios()["link/1000"] = {"match/1000", "1"};
  Ratios()["link/1000, cached"] = {"link/1000", ""};
  benchmark::RegisterBenchmark("text/1000", LookUpText);
  benchmark::RegisterBenchmark("phrase/1000", LookUpPhrase);
  Ratios()["phrase/1000"] = {"text/1000", ""};
  return true;
}();

}  // namespace
}  // namespace lwconfig::bench
