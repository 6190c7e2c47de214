#include <lwconfig/comments/model_comment_profiles.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/files/file_name.h>
#include <lwconfig/core/loading/configuration_files.h>

namespace lwconfig {
namespace {

std::string ProfilesFolder() {
  return ConfigPath() + "\\modelcomments";
}

}  // namespace

void ModelCommentProfiles::Add(Pointer obj, std::string_view Key, const ItemKey& Before,
                               const ItemKey& After) {
  KeyedCollection::Add(std::move(obj), Key, Before, After);
  Dirty = true;
}

void ModelCommentProfiles::Remove(const ItemKey& Key) {
  KeyedCollection::Remove(Key);
  Dirty = true;
}

void ModelCommentProfiles::Load() {
  ReadConfigurationFolder(ProfilesFolder(), [&](const XMLElement& root) {
    auto profile = std::make_shared<ModelComments>();
    profile->Load(root);
    KeyedCollection::Add(profile, profile->Name);
  });
  Dirty = false;
}

void ModelCommentProfiles::Save() {
  RequireConfigPath();
  for (const auto& profile : *this) {
    if (profile->Name.empty()) throw Error(kBadFileName, "A model comment profile needs a name");
    CheckBaseName(profile->Name);
    DiskFile file(ProfilesFolder(), profile->Name, "xml");
    file.CreateFolder();
    WriteConfigurationFile(file, [&](XMLElement& root) { profile->Save(root); });
  }
  Dirty = false;
}

std::shared_ptr<ModelCommentProfiles> ModelCommentProfiles::Clone() const {
  auto copies = std::make_shared<ModelCommentProfiles>();
  for (const auto& profile : *this) copies->Add(profile->Clone(), profile->Name);
  return copies;
}

}  // namespace lwconfig
