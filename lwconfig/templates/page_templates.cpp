#include <unordered_map>

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/configuration_files.h>
#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/templates/page_templates.h>

namespace lwconfig {
namespace {

void ShowDuplicate(const PageTemplate& added) {
  ShowMessageBox({"Duplicate Template",
                  "A duplicate template was found in folder '" + added.RootFolder +
                      "'. This problem is usually caused by duplicating a Template folder using "
                      "Windows Explorer instead of using "
                      "the Template Manager to create a new Template. Remove the duplicate folder to "
                      "avoid seeing this message in "
                      "future. If the message stays, please contact Corvantis product support.",
                  platform::MessageIcon::Exclamation});
}

/// Whether a folder may hold a template. A file that cannot be examined fails later, when it is read, so that
/// the templates before it are loaded.
bool MayExist(const DiskFile& config) {
  try {
    return config.Exists();
  } catch (const Error&) {
    return true;
  }
}

}  // namespace

std::shared_ptr<PageTemplate> PageTemplates::Item(const ItemKey& Key) const {
  if (auto found = KeyedCollection::Item(Key)) return found;
  if (!Key.IsText()) return nullptr;
  for (const auto& pageTemplate : *this) {
    if (EqualIgnoringCase(pageTemplate->Name, Key.Text())) return pageTemplate;
  }
  return nullptr;
}

void PageTemplates::Add(Pointer obj, std::string_view Key, const ItemKey& Before, const ItemKey& After) {
  try {
    KeyedCollection::Add(obj, Key, Before, After);
  } catch (const Error& failure) {
    if (failure.Number() != kDuplicateKey) throw;
    ShowDuplicate(*obj);
  }
}

void PageTemplates::Load() {
  mCol.Clear();
  const LiveRoot keepsSharedObjects;
  TemplateFolder = ConfigPath() + "\\Templates";
  DiskFile templates;
  templates.SetFolder(TemplateFolder);
  if (ConfigPath().empty() || !templates.IsFolder()) {
    ShowMessageBox({"Folder not found",
                    "Lexiwend templates folder '" + TemplateFolder +
                        "' could not be found.  No templates have been loaded.",
                    platform::MessageIcon::Exclamation});
    return;
  }
  std::vector<DiskFile> configs;
  for (const auto& entry : ListFolder(templates.FolderPath())) {
    if (entry.Kind != platform::EntryKind::Folder || entry.IsHidden) continue;
    const std::string folder = templates.FolderPath() + entry.Name;
    DiskFile config(folder, "config", "xml");
    if (MayExist(config)) {
      configs.push_back(std::move(config));
    } else if (!entry.Name.starts_with('.')) {
      Report(Problem::MissingConfig, {folder, 0, 0},
             "the folder has no file \"config.xml\"; it is no template");
    }
  }
  std::unordered_map<std::string, std::string> folderOf;  // by name, in one letter case
  ReadConfigurationFiles(configs, [&](const DiskFile& config, const XMLElement& root) {
    auto pageTemplate = std::make_shared<PageTemplate>();
    pageTemplate->RootFolder = config.FolderPath();
    pageTemplate->Load(root);
    std::string folder = config.FolderPath().substr(templates.FolderPath().size());
    folder.pop_back();  // the separator
    const auto [first, isNew] = folderOf.try_emplace(FoldCase(pageTemplate->Name), std::move(folder));
    if (!isNew) {
      Report(Problem::DuplicateTemplate, root, "Name",
             "the template in the folder \"" + first->second + "\" has the name \"" + pageTemplate->Name +
                 "\" too; the name finds that one only");
    }
    mCol.Add(std::move(pageTemplate));
  });
}

void PageTemplates::Save() {
  for (const auto& pageTemplate : *this) SaveTemplate(pageTemplate);
}

void PageTemplates::SaveTemplate(const std::shared_ptr<PageTemplate>& pt) {
  if (!pt) throw Error(kObjectNotSet, "No template was given to save");
  if (pt->RootFolder.empty()) {
    throw Error(kPathNotFound, "The template \"" + pt->Name + "\" has no folder to be saved in");
  }
  DiskFile config(pt->RootFolder, "config", "xml");
  config.CreateFolder();
  if (config.Exists()) {
    DiskFile backup(config.FullPath());
    backup.SetExtension(".xml.bak");
    config.CopyTo(backup.FullPath());
    NoteDamage(config, false);  // the backup is the copy
  }
  WriteConfigurationFile(config, [&](XMLElement& root) { pt->Save(root); });
}

}  // namespace lwconfig
