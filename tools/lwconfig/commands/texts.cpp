#include <array>
#include <memory>
#include <string>
#include <vector>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/model/loaded.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/templates/phrases.h>

namespace lwconfig::tool {
namespace {

/// The languages that a folder of the template has files of.
std::vector<std::string> LanguagesOf(const PageTemplate& pageTemplate, const std::string& kind) {
  return LanguageTexts(kind).Languages(pageTemplate.RootFolder);
}

/// The texts of a language; where its file is damaged, which is reported, those that could be read.
std::shared_ptr<Collection> TextsOf(const PageTemplate& pageTemplate, const std::string& kind,
                                    const std::string& language, Reporter& reporter) {
  LanguageTexts texts(kind);
  try {
    texts.Load(pageTemplate.RootFolder, language);
  } catch (const Error& failure) {
    reporter.Fail(failure);
  }
  return texts.Texts() ? texts.Texts() : std::make_shared<Collection>();
}

Json Entry(const std::string& name, const std::string& text) {
  return {{"Name", name}, {"Text", text}};
}

void List(const Collection& texts, const Arguments& arguments, Reporter& reporter) {
  Table table({"NAME", "TEXT"});
  Json json = Json::array();
  std::int32_t position = 0;
  for (const std::string& text : texts) {
    const std::string& name = texts.KeyAt(++position);
    json.push_back(Entry(name, text));
    table.Add({{name}, {text}});
  }
  WriteOutput(arguments.Has("--json") ? JsonText(json) : table.Text(StyleOf(arguments)), reporter);
}

void LookUp(const Collection& texts, const Arguments& arguments, Reporter& reporter) {
  const std::string wanted = arguments.Text("NAME");
  if (const std::string* text = texts.Item(wanted)) {
    return WriteOutput(arguments.Has("--json") ? JsonText(Entry(wanted, *text)) : *text + "\n", reporter);
  }
  std::vector<std::string> names;
  for (std::int32_t position = 1; position <= texts.Count(); ++position)
    names.push_back(texts.KeyAt(position));
  reporter.FailUnknown(ExitStatus::NotFound, wanted, names);
}

/// The entries of several languages, in the order in which they are first met.
class Comparison {
 public:
  void Add(const std::string& language, const Collection& texts) {
    mLanguages.push_back(language);
    mTexts.push_back(&texts);
    for (std::int32_t position = 1; position <= texts.Count(); ++position) {
      const std::string& name = texts.KeyAt(position);
      if (mNames.Item(name) == nullptr) mNames.Add(name, name);
    }
  }
  /// Calls `tell(name, having, lacking)`, the latter lists of languages, for each entry that some lack.
  template <class Tell>
  void ForEachDifference(Tell tell) const {
    for (const std::string& name : mNames) {
      std::vector<std::string> having;
      std::vector<std::string> lacking;
      for (std::size_t at = 0; at < mTexts.size(); ++at)
        (mTexts[at]->Item(name) != nullptr ? having : lacking).push_back(mLanguages[at]);
      if (!lacking.empty()) tell(name, having, lacking);
    }
  }

 private:
  std::vector<std::string> mLanguages;
  std::vector<const Collection*> mTexts;
  Collection mNames;
};

std::string Joined(const std::vector<std::string>& names) {
  std::string joined;
  for (const std::string& name : names) joined += (joined.empty() ? "" : ", ") + name;
  return joined;
}

void Compare(const PageTemplate& pageTemplate, const std::string& kind, const Arguments& arguments,
             Reporter& reporter) {
  std::vector<std::shared_ptr<Collection>> texts;
  Comparison comparison;
  for (const std::string& language : LanguagesOf(pageTemplate, kind)) {
    texts.push_back(TextsOf(pageTemplate, kind, language, reporter));
    comparison.Add(language, *texts.back());
  }
  if (texts.size() < 2)
    reporter.Note("there is nothing to compare: " + pageTemplate.RootFolder + kind + " has " +
                  (texts.empty() ? "no language" : "one language only"));
  Table table({"NAME", "IN", "MISSING IN"});
  Json json = Json::array();
  comparison.ForEachDifference([&](const auto& name, const auto& having, const auto& lacking) {
    table.Add({{name}, {Joined(having)}, {Joined(lacking), Tone::Alarm}});
    json.push_back({{"Name", name}, {"In", having}, {"MissingIn", lacking}});
  });
  if (!json.empty()) reporter.Raise(ExitStatus::NotFound);
  if (arguments.Has("--json")) return WriteOutput(JsonText(json), reporter);
  if (!json.empty()) WriteOutput(table.Text(StyleOf(arguments)), reporter);
}

void Run(const std::string& kind, const Arguments& arguments, Reporter& reporter) {
  const std::string wanted = arguments.Text("LANGUAGE");
  const bool isComparison = arguments.Has("--compare");
  if (isComparison && !wanted.empty())
    return reporter.Fail(ExitStatus::Usage, "--compare takes every language; name the template only");
  Configuration configuration(arguments.Text("--config"), reporter);
  configuration.RequireFolder();
  const auto templates = LoadedTemplates(configuration.Root(), reporter);
  const auto pageTemplate = FindTemplate(*templates, arguments.Text("TEMPLATE"), reporter);
  if (!pageTemplate) return;
  if (isComparison) return Compare(*pageTemplate, kind, arguments, reporter);

  const auto languages = LanguagesOf(*pageTemplate, kind);
  if (wanted.empty()) {
    return reporter.FailAt(ExitStatus::Usage, {}, "LANGUAGE is required, unless --compare is given",
                           languages);
  }
  for (const std::string& language : languages) {
    if (!EqualIgnoringCase(language, wanted)) continue;
    const auto texts = TextsOf(*pageTemplate, kind, language, reporter);
    if (arguments.Text("NAME").empty()) return List(*texts, arguments, reporter);
    return LookUp(*texts, arguments, reporter);
  }
  reporter.FailUnknown(ExitStatus::NotFound, wanted, languages);
}

constexpr const char* kHelp =
    R"(TEMPLATE is the name of a template or of its folder; names are found in any letter case.
With --compare the exit status is 1 when languages differ.
)";
constexpr const char* kPhraseExamples = R"(
Examples:
  lwconfig phrase VBTechDoc English
  lwconfig phrase VBTechDoc German GettingStarted
  lwconfig phrase VBTechDoc --compare
)";
constexpr const char* kScrapExamples = R"(
Examples:
  lwconfig scrap VBTechDoc English
  lwconfig scrap VBTechDoc German NoMembers
  lwconfig scrap VBTechDoc --compare
)";

constexpr std::array kParameters{
    Parameter{.Name = "TEMPLATE", .About = "the page template", .IsRequired = true},
    Parameter{.Name = "LANGUAGE", .About = "the output language"},
    Parameter{.Name = "NAME", .About = "the text to look up; all when left out"},
    kConfigurationOption,
    kJsonOption,
    kColourOption,
    kWidthOption,
    Parameter{.Name = "--compare", .About = "list the names that not every language has"},
};

}  // namespace

constexpr Command kPhraseCommand{
    .Name = "phrase",
    .About = "Lists, looks up or compares phrases of a template.",
    .Help = kHelp,
    .MoreHelp = kPhraseExamples,
    .Parameters = kParameters,
    .Run = [](const Arguments& arguments, Reporter& reporter) { Run("Phrases", arguments, reporter); },
};

constexpr Command kScrapCommand{
    .Name = "scrap",
    .About = "Lists, looks up or compares HTML scraps of a template.",
    .Help = kHelp,
    .MoreHelp = kScrapExamples,
    .Parameters = kParameters,
    .Run = [](const Arguments& arguments, Reporter& reporter) { Run("HTMLScraps", arguments, reporter); },
};

}  // namespace lwconfig::tool
