#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/model/loaded.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/platform/letter_case.h>
#include <lwconfig/templates/phrases.h>

namespace lwconfig::tool {
namespace {

struct TextsArguments {
  std::string Folder;
  std::string Template;
  std::string Language;
  std::string Name;
  bool IsComparison = false;
  bool IsJson = false;
  StyleOptions Style;
};

/// What tells phrases and scraps apart.
struct TextKind {
  const char* Command;
  const char* About;
  const char* Folder;
};

/// The languages that a folder of the template has files of.
std::vector<std::string> LanguagesOf(const PageTemplate& pageTemplate, const TextKind& kind) {
  return LanguageTexts(kind.Folder).Languages(pageTemplate.RootFolder);
}

/// The texts of a language; where its file is damaged, which is reported, those that could be read.
std::shared_ptr<Collection> TextsOf(const PageTemplate& pageTemplate, const TextKind& kind,
                                    const std::string& language, Reporter& reporter) {
  LanguageTexts texts(kind.Folder);
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

void List(const Collection& texts, const TextsArguments& arguments, Reporter& reporter) {
  Table table({"NAME", "TEXT"});
  Json json = Json::array();
  std::int32_t position = 0;
  for (const std::string& text : texts) {
    const std::string& name = texts.KeyAt(++position);
    json.push_back(Entry(name, text));
    table.Add({{name}, {text}});
  }
  WriteOutput(arguments.IsJson ? JsonText(json) : table.Text(arguments.Style.Style()), reporter);
}

void LookUp(const Collection& texts, const TextsArguments& arguments, Reporter& reporter) {
  if (const std::string* text = texts.Item(arguments.Name)) {
    return WriteOutput(arguments.IsJson ? JsonText(Entry(arguments.Name, *text)) : *text + "\n", reporter);
  }
  std::vector<std::string> names;
  for (std::int32_t position = 1; position <= texts.Count(); ++position)
    names.push_back(texts.KeyAt(position));
  reporter.FailUnknown(ExitStatus::NotFound, arguments.Name, names);
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

void Compare(const PageTemplate& pageTemplate, const TextKind& kind, const TextsArguments& arguments,
             Reporter& reporter) {
  std::vector<std::shared_ptr<Collection>> texts;
  Comparison comparison;
  for (const std::string& language : LanguagesOf(pageTemplate, kind)) {
    texts.push_back(TextsOf(pageTemplate, kind, language, reporter));
    comparison.Add(language, *texts.back());
  }
  if (texts.size() < 2)
    reporter.Note("there is nothing to compare: " + pageTemplate.RootFolder + kind.Folder + " has " +
                  (texts.empty() ? "no language" : "one language only"));
  Table table({"NAME", "IN", "MISSING IN"});
  Json json = Json::array();
  comparison.ForEachDifference([&](const auto& name, const auto& having, const auto& lacking) {
    table.Add({{name}, {Joined(having)}, {Joined(lacking), Tone::Alarm}});
    json.push_back({{"Name", name}, {"In", having}, {"MissingIn", lacking}});
  });
  if (!json.empty()) reporter.Raise(ExitStatus::NotFound);
  if (arguments.IsJson) return WriteOutput(JsonText(json), reporter);
  if (!json.empty()) WriteOutput(table.Text(arguments.Style.Style()), reporter);
}

void Run(const TextKind& kind, const TextsArguments& arguments, Reporter& reporter) {
  if (arguments.Language.empty() != arguments.IsComparison) {
    return reporter.Fail(
        ExitStatus::Usage,
        arguments.IsComparison
            ? "--compare takes every language; name the template only"
            : "LANGUAGE is required, unless --compare is given (--help tells what there is)");
  }
  Configuration configuration(arguments.Folder, reporter);
  configuration.RequireFolder();
  const auto templates = LoadedTemplates(configuration.Root(), reporter);
  const auto pageTemplate = FindTemplate(*templates, arguments.Template, reporter);
  if (!pageTemplate) return;
  if (arguments.IsComparison) return Compare(*pageTemplate, kind, arguments, reporter);

  const auto languages = LanguagesOf(*pageTemplate, kind);
  for (const std::string& language : languages) {
    if (!EqualIgnoringCase(language, arguments.Language)) continue;
    const auto texts = TextsOf(*pageTemplate, kind, language, reporter);
    if (arguments.Name.empty()) return List(*texts, arguments, reporter);
    return LookUp(*texts, arguments, reporter);
  }
  reporter.FailUnknown(ExitStatus::NotFound, arguments.Language, languages);
}

void AddTextsCommand(CLI::App& app, Reporter& reporter, const TextKind& kind) {
  const auto arguments = std::make_shared<TextsArguments>();
  CLI::App& command = *app.add_subcommand(kind.Command, kind.About);
  command.group("Commands");
  const std::string call = std::string("  lwconfig ") + kind.Command + " VBTechDoc ";
  command.footer(
      "TEMPLATE is the name of a template or of its folder; names are found in any letter case.\n"
      "With --compare the exit status is 1 when languages differ.\n\nExamples:\n" +
      call + "English\n" + call + "German NoMembers\n" + call + "--compare\n");
  command.add_option("TEMPLATE", arguments->Template, "the page template")->required()->type_name("");
  command.add_option("LANGUAGE", arguments->Language, "the output language")->type_name("");
  command.add_option("NAME", arguments->Name, "the text to look up; all when left out")->type_name("");
  AddConfigurationOption(command, arguments->Folder);
  AddJsonOption(command, arguments->IsJson);
  AddStyleOptions(command, arguments->Style);
  command.add_flag("--compare", arguments->IsComparison, "list the names that not every language has");
  command.callback([arguments, kind, &reporter] { Run(kind, *arguments, reporter); });
}

}  // namespace

void AddPhraseCommand(CLI::App& app, Reporter& reporter) {
  AddTextsCommand(app, reporter, {"phrase", "Lists, looks up or compares phrases of a template.", "Phrases"});
}

void AddScrapCommand(CLI::App& app, Reporter& reporter) {
  AddTextsCommand(app, reporter,
                  {"scrap", "Lists, looks up or compares HTML scraps of a template.", "HTMLScraps"});
}

}  // namespace lwconfig::tool
