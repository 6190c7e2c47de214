#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/folder_copy.h>
#include <tools/lwconfig/model/describe.h>
#include <tools/lwconfig/model/loaded.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/file_name.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/core/xml/xml_characters.h>

namespace lwconfig::tool {
namespace {

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

void List(const Arguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Text("--config"), reporter);
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
  WriteOutput(arguments.Has("--json") ? JsonText(json) : table.Text(StyleOf(arguments)), reporter);
}

/// The folder for a clone, in the product's notation; empty, which is reported, where there cannot be one.
std::string FolderOfClone(const PageTemplate& original, const std::string& name, Reporter& reporter) {
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
  reporter.Fail(ExitStatus::Usage, NativePath(folder) + " exists already; nothing was copied");
  return {};
}

void Clone(const Arguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Text("--config"), reporter, Unregistered::Refuse);
  configuration.RequireFolder();
  const auto templates = LoadedTemplates(configuration.Root(), reporter);
  const auto original = FindTemplate(*templates, arguments.Text("NAME"), reporter);
  if (!original) return;
  if (!reporter.IsClean()) {
    // A template that was not read may have the new name; one that was read in part would be cut short.
    return reporter.Fail(ExitStatus::Invalid,
                         "the templates are not all as they should be; nothing was copied");
  }
  const std::string newName = arguments.Text("NEWNAME");
  const std::string newFolder = arguments.Text("FOLDER");
  for (const std::string& name : {newName, newFolder}) {
    if (const auto found = FindForbiddenCharacter(name)) {
      return reporter.Fail(ExitStatus::Usage, "'" + name + "' has " + found->Name +
                                                  ", which no XML file can have; nothing was copied");
    }
  }
  if (newName.empty()) return reporter.Fail(ExitStatus::Usage, "a template needs a name; nothing was copied");
  if (templates->Item(newName)) {
    return reporter.Fail(ExitStatus::Usage,
                         "there is a template '" + newName + "' already; nothing was copied");
  }
  const std::string folder = FolderOfClone(*original, newFolder.empty() ? newName : newFolder, reporter);
  if (folder.empty()) return;

  // The settings are saved below; the backup is of the original's.
  FolderCopy copy(NativePath(original->RootFolder), NativePath(folder), [](const auto& relative) {
    const std::string name = relative.string();
    return EqualIgnoringCase(name, "config.xml") || EqualIgnoringCase(name, "config.xml.bak");
  });
  const auto clone = original->Clone();
  clone->Name = newName;
  clone->RootFolder = folder + "\\";
  templates->SaveTemplate(clone);
  copy.Keep();
  if (arguments.Has("--json")) return WriteOutput(JsonText(ToJson(*clone)), reporter);
  WriteOutput(
      "copied template '" + original->Name + "' to '" + clone->Name + "' in " + NativePath(folder) + "\n",
      reporter);
}

void ShowDefault(const Arguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Text("--config"), reporter);
  configuration.RequireFolder();
  const std::string wanted = arguments.Text("PROFILE");
  const std::string type = arguments.Text("--supports");
  const auto templates = LoadedTemplates(configuration.Root(), reporter);
  if (const auto found = configuration.Root().GetDefaultTemplate(wanted, type))
    return WriteOutput(arguments.Has("--json") ? JsonText(ToJson(*found)) : found->Name + "\n", reporter);
  if (configuration.Root().GetDefaultTemplate(wanted)) {
    return reporter.Fail(ExitStatus::NotFound, "no template for '" + wanted + "' supports '" + type + "'");
  }
  std::vector<std::string> profiles;
  for (const auto& pageTemplate : *templates) {
    for (const std::string& profile : *pageTemplate->NamespaceProfileNames()) {
      if (std::find(profiles.begin(), profiles.end(), profile) == profiles.end()) profiles.push_back(profile);
    }
  }
  if (Loaded(reporter, [&] { return configuration.Root().NamespaceProfiles(); })->Item(wanted))
    return reporter.FailAt(ExitStatus::NotFound, {}, "no template has the profile '" + wanted + "'",
                           profiles);
  reporter.FailUnknown(ExitStatus::NotFound, wanted, profiles);
}

constexpr std::array kCloneParameters{
    Parameter{.Name = "NAME", .About = "the template to copy", .IsRequired = true},
    Parameter{.Name = "NEWNAME", .About = "the name of the copy", .IsRequired = true},
    Parameter{.Name = "FOLDER", .About = "its folder; else NEWNAME"},
};
constexpr std::array kDefaultParameters{
    Parameter{.Name = "PROFILE", .About = "the namespace profile", .IsRequired = true},
    Parameter{.Name = "--supports", .About = "only a template for this item type", .Value = "TYPE"},
};

constexpr Command kList{
    .Name = "list",
    .About = "Every template with its folder, profiles and item types; done when no action is given.",
    .Run = List,
};
constexpr Command kClone{
    .Name = "clone",
    .About = "Copies a template, with its folder, under a new name.",
    .Parameters = kCloneParameters,
    .Run = Clone,
};
constexpr Command kDefault{
    .Name = "default",
    .About = "Prints the template that a new project begins with.",
    .Parameters = kDefaultParameters,
    .Run = ShowDefault,
};
constexpr std::array kActions{&kList, &kClone, &kDefault};

}  // namespace

constexpr Command kTemplateCommand{
    .Name = "template",
    .About = "Lists, copies and chooses page templates.",
    .Help = kFooter,
    .Common = kShowingOptions,
    .Actions = kActions,
    .Run = List,
};

}  // namespace lwconfig::tool
