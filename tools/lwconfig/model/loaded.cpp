#include <string>
#include <vector>

#include <tools/lwconfig/model/describe.h>
#include <tools/lwconfig/model/loaded.h>

#include <lwconfig/core/base/letter_case.h>

namespace lwconfig::tool {

std::shared_ptr<PageTemplates> LoadedTemplates(Root& root, Reporter& reporter) {
  // On their own, because a failure among them would otherwise keep the templates from being loaded.
  Loaded(reporter, [&] { return root.NamespaceProfiles(); });
  return Loaded(reporter, [&] { return root.PageTemplates(); });
}

std::shared_ptr<PageTemplate> FindTemplate(const PageTemplates& templates, std::string_view name,
                                           Reporter& reporter) {
  if (auto found = templates.Item(name)) return found;
  std::vector<std::string> names;
  std::vector<std::string> folders;
  for (const auto& pageTemplate : templates) {
    names.push_back(pageTemplate->Name);
    folders.push_back(FolderName(pageTemplate->RootFolder));
    if (EqualIgnoringCase(folders.back(), name)) return pageTemplate;
  }
  reporter.FailUnknown(ExitStatus::NotFound, name, names, folders);
  return nullptr;
}

}  // namespace lwconfig::tool
