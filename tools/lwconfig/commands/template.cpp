#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/folder_copy.h>
#include <tools/lwconfig/model/describe.h>
#include <tools/lwconfig/model/loaded.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/core/disk_file.h>
#include <lwconfig/core/file_name.h>
#include <lwconfig/core/string_tools.h>
#include <lwconfig/platform/letter_case.h>

namespace lwconfig::tool {
namespace {

struct TemplateArguments {
  std::string Folder;
  std::string Name;
  std::string NewName;
  std::string NewFolder;
  std::string Profile;
  std::string Supports;
  bool IsJson = false;
  StyleOptions Style;
};

constexpr const char* kFooter =
    R"(NAME is the name of a template or of its folder. A clone gets a folder of its own beside that of the
template, named FOLDER, else like the new template; it overwrites nothing. PROFILE is a namespace profile, TYPE
an item type or a part of one.

Examples:
  lwconfig template list
  lwconfig template clone VBTechDoc "House style" HouseStyle
  lwconfig template default LW.Core --supports source
)";

Json ToJson(const PageTemplate& pageTemplate) {
  const auto texts = [](const Collection& collection) {
    return Json(std::vector<std::string>(collection.begin(), collection.end()));
  };
  return {{"Name", pageTemplate.Name},
          {"RootFolder", pageTemplate.RootFolder},
          {"NamespaceProfileNames", texts(*pageTemplate.NamespaceProfileNames())},
          {"SupportedItemTypes", texts(*pageTemplate.SupportedItemTypes)}};
}

void List(const TemplateArguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Folder, reporter);
  configuration.RequireFolder();
  Table table({"NAME", "FOLDER", "PROFILES", "ITEM TYPES"});
  Json json = Json::array();
  for (const auto& pageTemplate : *LoadedTemplates(configuration.Root(), reporter)) {
    json.push_back(ToJson(*pageTemplate));
    table.Add({{pageTemplate->Name, Tone::Title},
               {FolderName(pageTemplate->RootFolder)},
               {StringTools::JoinCollection(*pageTemplate->NamespaceProfileNames(), ", ")},
               {StringTools::JoinCollection(*pageTemplate->SupportedItemTypes, ", ")}});
  }
  WriteOutput(arguments.IsJson ? JsonText(json) : table.Text(arguments.Style.Style()), reporter);
}

/// The folder for a clone, in the product's notation; empty, which is reported, where there cannot be one.
std::string FolderOfClone(const PageTemplate& original, const TemplateArguments& arguments,
                          Reporter& reporter) {
  const std::string& name = arguments.NewFolder.empty() ? arguments.NewName : arguments.NewFolder;
  try {
    CheckBaseName(name);
  } catch (const Error&) {
    reporter.Fail(ExitStatus::Usage, "'" + name + "' cannot be the name of a folder; name another as FOLDER");
    return {};
  }
  std::string folder = original.RootFolder;
  if (folder.ends_with('\\')) folder.pop_back();
  folder.replace(folder.rfind('\\') + 1, std::string::npos, name);
  if (platform::Host<platform::Files>().Kind(folder) == platform::EntryKind::Missing) return folder;
  reporter.Fail(ExitStatus::InputOutput, NativePath(folder) + " exists already; nothing was copied");
  return {};
}

void Clone(const TemplateArguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Folder, reporter, Unregistered::Refuse);
  configuration.RequireFolder();
  const auto templates = LoadedTemplates(configuration.Root(), reporter);
  const auto original = FindTemplate(*templates, arguments.Name, reporter);
  if (!original) return;
  if (reporter.Status() != ExitStatus::Done) {
    // A template that was not read may have the new name; one that was read in part would be cut short.
    return reporter.Fail(reporter.Status(),
                         "the templates are not all as they should be; nothing was copied");
  }
  if (arguments.NewName.empty())
    return reporter.Fail(ExitStatus::Usage, "a template needs a name; nothing was copied");
  if (templates->Item(arguments.NewName)) {
    return reporter.Fail(ExitStatus::Usage,
                         "there is a template '" + arguments.NewName + "' already; nothing was copied");
  }
  const std::string folder = FolderOfClone(*original, arguments, reporter);
  if (folder.empty()) return;

  // The settings are saved below; the backup is of the original's.
  FolderCopy copy(NativePath(original->RootFolder), NativePath(folder), [](const auto& relative) {
    const std::string name = relative.string();
    return EqualIgnoringCase(name, "config.xml") || EqualIgnoringCase(name, "config.xml.bak");
  });
  const auto clone = original->Clone();
  clone->Name = arguments.NewName;
  clone->RootFolder = folder + "\\";
  templates->SaveTemplate(clone);
  copy.Keep();
  if (arguments.IsJson) return WriteOutput(JsonText(ToJson(*clone)), reporter);
  WriteOutput(
      "copied template '" + original->Name + "' to '" + clone->Name + "' in " + NativePath(folder) + "\n",
      reporter);
}

void ShowDefault(const TemplateArguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Folder, reporter);
  configuration.RequireFolder();
  const auto templates = LoadedTemplates(configuration.Root(), reporter);
  if (const auto found = configuration.Root().GetDefaultTemplate(arguments.Profile, arguments.Supports))
    return WriteOutput(arguments.IsJson ? JsonText(ToJson(*found)) : found->Name + "\n", reporter);
  if (configuration.Root().GetDefaultTemplate(arguments.Profile)) {
    return reporter.Fail(ExitStatus::NotFound,
                         "no template for '" + arguments.Profile + "' supports '" + arguments.Supports + "'");
  }
  std::vector<std::string> profiles;
  for (const auto& pageTemplate : *templates) {
    for (const std::string& profile : *pageTemplate->NamespaceProfileNames()) {
      if (std::find(profiles.begin(), profiles.end(), profile) == profiles.end()) profiles.push_back(profile);
    }
  }
  reporter.FailUnknown(ExitStatus::NotFound, arguments.Profile, profiles);
}

}  // namespace

void AddTemplateCommand(CLI::App& app, Reporter& reporter) {
  const auto arguments = std::make_shared<TemplateArguments>();
  CLI::App& command = *app.add_subcommand("template", "Lists, copies and chooses page templates.");
  command.group("Commands");
  command.footer(kFooter);
  command.require_subcommand(0, 1);
  AddConfigurationOption(command, arguments->Folder);
  AddJsonOption(command, arguments->IsJson);
  AddStyleOptions(command, arguments->Style);
  const auto add = [&](const char* name, const char* about, auto run) -> CLI::App& {
    CLI::App& action = *command.add_subcommand(name, about);
    action.footer(kFooter);
    action.fallthrough();
    action.callback([arguments, &reporter, run] { run(*arguments, reporter); });
    return action;
  };
  add("list", "Every template with its folder, profiles and item types; done when no action is given.", List);
  CLI::App& clone = add("clone", "Copies a template, with its folder, under a new name.", Clone);
  clone.add_option("NAME", arguments->Name, "the template to copy")->required()->type_name("");
  clone.add_option("NEWNAME", arguments->NewName, "the name of the copy")->required()->type_name("");
  clone.add_option("FOLDER", arguments->NewFolder, "its folder; else NEWNAME")->type_name("");
  CLI::App& standard = add("default", "Prints the template that a new project begins with.", ShowDefault);
  standard.add_option("PROFILE", arguments->Profile, "the namespace profile")->required()->type_name("");
  standard.add_option("--supports", arguments->Supports, "only a template for this item type")
      ->option_text("TYPE");
  command.callback([arguments, &command, &reporter] {
    if (command.get_subcommands().empty()) List(*arguments, reporter);
  });
}

}  // namespace lwconfig::tool
