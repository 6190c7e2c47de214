#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/root.h>

namespace lwconfig {
namespace {

LWToolBarStyleEnum gDefaultToolbarStyle = ToolbarStyleOfficeXP;
bool gReloadFlag = false;

template <class T>
void Replace(std::shared_ptr<T> replacement) {
  if (!replacement) throw Error(kObjectNotSet, "No object was given to take the place of the shared one");
  SharedSlot<T>::Set(std::move(replacement));
}

}  // namespace

std::shared_ptr<ExternalDocs> Root::ExternalDocs() {
  return SharedSlot<lwconfig::ExternalDocs>::Obtain();
}
std::shared_ptr<PlugIns> Root::PlugIns() {
  return SharedSlot<lwconfig::PlugIns>::Obtain();
}
std::shared_ptr<ModelCommentProfiles> Root::ModelCommentProfiles() {
  return SharedSlot<lwconfig::ModelCommentProfiles>::Obtain();
}
std::shared_ptr<NamespaceProfiles> Root::NamespaceProfiles() {
  return SharedSlot<lwconfig::NamespaceProfiles>::Obtain();
}
std::shared_ptr<TaggedCommentDefs> Root::TaggedCommentDefs() {
  return SharedSlot<lwconfig::TaggedCommentDefs>::Obtain();
}
std::shared_ptr<CommentFileLocations> Root::CommentFileLocations() {
  return SharedSlot<lwconfig::CommentFileLocations>::Obtain();
}
std::shared_ptr<VSNETOptions> Root::VSNETOptions() {
  return SharedSlot<lwconfig::VSNETOptions>::Obtain();
}
std::shared_ptr<VBOptions> Root::VBOptions() {
  return SharedSlot<lwconfig::VBOptions>::Obtain();
}
std::shared_ptr<LWCommenterOptions> Root::LWCommenterOptions() {
  return SharedSlot<lwconfig::LWCommenterOptions>::Obtain();
}
std::shared_ptr<IDEOptions> Root::IDEOptions() {
  return SharedSlot<lwconfig::IDEOptions>::Obtain();
}
std::shared_ptr<SpellingOptions> Root::SpellingOptions() {
  return SharedSlot<lwconfig::SpellingOptions>::Obtain();
}
std::shared_ptr<Languages> Root::Languages() {
  return lwconfig::Languages::Shared();
}

void Root::ReplaceTaggedCommentDefs(std::shared_ptr<lwconfig::TaggedCommentDefs> replacement) {
  Replace(std::move(replacement));
}
void Root::ReplaceModelCommentProfiles(std::shared_ptr<lwconfig::ModelCommentProfiles> replacement) {
  Replace(std::move(replacement));
}
void Root::ReplaceExternalDocs(std::shared_ptr<lwconfig::ExternalDocs> replacement) {
  Replace(std::move(replacement));
}
void Root::ReplaceCommentFileLocations(std::shared_ptr<lwconfig::CommentFileLocations> replacement) {
  Replace(std::move(replacement));
}

std::shared_ptr<PageTemplates> Root::PageTemplates() {
  using Shared = SharedSlot<lwconfig::PageTemplates>;
  if (auto templates = Shared::Get()) return templates;
  auto templates = std::make_shared<lwconfig::PageTemplates>();
  Shared::Set(templates);
  NamespaceProfiles();
  templates->Load();
  return templates;
}

std::string Root::TemplatePath() const {
  return DiskFile(ConfigPath() + "\\Templates").FullPath();
}
std::string Root::AppPath() const {
  return lwconfig::AppPath();
}
std::string Root::DotNetPath() const {
  return lwconfig::DotNetPath();
}
std::string Root::ConfigPath() const {
  return lwconfig::ConfigPath();
}

void Root::ResetLWConfig() {
  ResetSharedSlots();
}

std::shared_ptr<PageTemplate> Root::GetDefaultTemplate(std::string_view NamespaceProfile,
                                                       std::string_view Supports) {
  const auto templates = PageTemplates();  // held: a message box may lead to a reset
  for (const auto& candidate : *templates) {
    for (const auto& profile : *candidate->NamespaceProfileNames()) {
      if (!EqualIgnoringCase(profile, NamespaceProfile)) continue;
      if (Supports.empty()) return candidate;
      const auto itemTypes = StringTools::JoinCollection(*candidate->SupportedItemTypes, ",");
      if (ContainsIgnoringCase(itemTypes, Supports)) return candidate;
    }
  }
  return nullptr;
}

LWToolBarStyleEnum Root::DefaultToolbarStyle() const {
  return gDefaultToolbarStyle;
}
void Root::SetDefaultToolbarStyle(LWToolBarStyleEnum style) {
  gDefaultToolbarStyle = style;
}
bool Root::ReloadFlag() const {
  return gReloadFlag;
}
void Root::SetReloadFlag(bool flag) {
  gReloadFlag = flag;
}

}  // namespace lwconfig
