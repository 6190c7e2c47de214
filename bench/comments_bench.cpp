#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include <lwconfig/comments/model_comments.h>
#include <lwconfig/comments/tagged_comment_defs.h>

#include "ratios.h"
#include "sample_files.h"

namespace lwconfig::bench {
namespace {

std::string TaggedComments(int count) {
  return Repeated(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<TaggedCommentDefs "
      "DefaultDesignerProgID=\"Editor.Text\">\n",
      count,
      [](const std::string& number) {
        return "\t<TaggedComment Group=\"General Description\" Hidden=\"False\" Identifier=\"##TAG_" +
               number + "\" Flags=\"-\" Elementtype=\"4\" Description=\"What comment number " + number +
               " tells\" Format=\"\" General=\"True\" WrapType=\"2\" DesignerProgID=\"\" LegacyFor=\"\" "
               "DesignFlags=\"b\" TabName=\"Main\" Tip=\"Tell what it does &amp; why.\" "
               "Namespace=\"LW:Method,LW:Property\" Standard=\"True\" XMLCommentTypes=\"summary,remarks\" "
               "Icon=\"other\" />\n";
      },
      "</TaggedCommentDefs>\n");
}

std::string ModelCommentProfile(int count) {
  return Repeated(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ModelCommentProfile Version=\"4.0\" "
      "Namespace=\"LW.Core\" Name=\"Measured\" Description=\"Made up for measuring\">\n",
      count,
      [](const std::string& number) {
        return "\t<MC MemberType_Namespace=\"LW:Method\" MemberName=\"Member" + number +
               "*\" TaggedCommentPrefix=\"##BLOCK_DESCRIPTION\" TaggedCommentText=\"Does what number " +
               number + " does &amp; returns.\" OnlyIfBlank=\"True\" InsertionPoint=\"2\" />\n";
      },
      "</ModelCommentProfile>\n");
}

/// One file of so many comments; made at the first use.
struct CommentFile {
  const char* Name;
  std::string (*Text)(int count);

  std::string Made(int count) const {
    const std::string name = Name + std::to_string(count) + ".xml";
    const auto path = Folder().Path() / name;
    if (!std::filesystem::exists(path)) WriteFile(path, Text(count));
    return name;
  }
  static const TemporaryFolder& Folder() {
    static const TemporaryFolder folder;
    return folder;
  }
};

void Parse(benchmark::State& state, const CommentFile& file, int count) {
  const auto path = CommentFile::Folder().Path() / file.Made(count);
  for (auto _ : state) {
    if (!ReadAndParse(path)) state.SkipWithError("the file does not parse");
  }
}

template <class Set, auto Load>
void LoadComments(benchmark::State& state, const CommentFile& file, int count) {
  const std::string path = CommentFile::Folder().Product(file.Made(count));
  for (auto _ : state) {
    auto comments = std::make_unique<Set>();
    ((*comments).*Load)(path);
    if (comments->Count() != count) state.SkipWithError("not every comment loads");
    // Deleting the comments is no part of loading them.
    state.PauseTiming();
    comments.reset();
    state.ResumeTiming();
  }
}

[[maybe_unused]] const bool kRegistered = [] {
  using Function = void (*)(benchmark::State&, const CommentFile&, int);
  const struct {
    CommentFile File;
    Function Load;
  } kFiles[] = {
      {{"tagged", TaggedComments}, LoadComments<TaggedCommentDefs, &TaggedCommentDefs::LoadFrom>},
      {{"model", ModelCommentProfile}, LoadComments<ModelComments, &ModelComments::LoadFromFile>},
  };
  for (const auto& [file, load] : kFiles) {
    for (const int count : {10'000, 100'000}) {
      const std::string suffix = std::string("-") + file.Name + "/" + std::to_string(count);
      const auto unit = benchmark::kMillisecond;
      benchmark::RegisterBenchmark(("parse" + suffix).c_str(), Parse, file, count)->Unit(unit);
      benchmark::RegisterBenchmark(("load" + suffix).c_str(), load, file, count)->Unit(unit);
      Ratios()["load" + suffix] = {"parse" + suffix, "at most 3"};
    }
    const std::string few = std::string("parse-") + file.Name + "/10000";
    Ratios()[std::string("parse-") + file.Name + "/100000"] = {few, "1", 10};
  }
  return true;
}();

}  // namespace
}  // namespace lwconfig::bench
