#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/configuration_files.h>
#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/namespaces/namespace_profiles.h>

namespace lwconfig {

void NamespaceProfiles::Load() {
  const std::string folder = ConfigPath() + "\\Namespaces";
  DiskFile namespaces;
  namespaces.SetFolder(folder);
  if (!namespaces.IsFolder()) {
    ShowMessageBox(
        {"Folder not found",
         "Lexiwend namespaces folder '" + folder + "' could not be found.  No namespaces have been loaded.",
         platform::MessageIcon::Exclamation});
    return;
  }
  ReadConfigurationFolder(folder, [&](const XMLElement& root) {
    auto profile = std::make_shared<NamespaceDefs>();
    profile->Load(root);
    Add(profile, profile->Name);
  });
}

}  // namespace lwconfig
