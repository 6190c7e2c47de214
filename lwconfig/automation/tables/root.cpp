#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

template <>
const ClassInfo& ClassOf<Root>() {
  using I = Interface<Root>;
  static constexpr auto kSlots = I::Slots(
      I::Get<&Root::ExternalDocs>("ExternalDocs"),
      I::Get<&Root::Languages>("Languages"),
      I::Get<&Root::PlugIns>("PlugIns"),
      I::Get<&Root::ModelCommentProfiles>("ModelCommentProfiles"),
      I::Get<&Root::PageTemplates>("PageTemplates"),
      I::Get<&Root::NamespaceProfiles>("NamespaceProfiles"),
      I::Get<&Root::TaggedCommentDefs>("TaggedCommentDefs"),
      I::Get<&Root::TemplatePath>("TemplatePath"),
      I::Get<&Root::AppPath>("AppPath"),
      I::AsVariant(I::Get<&Root::CommentFileLocations>("CommentFileLocations")),
      I::Get<&Root::DotNetPath>("DotNetPath"),
      I::Method<&Root::ResetLWConfig>("ResetLWConfig"),
      I::Get<&Root::ConfigPath>("ConfigPath"),
      I::Method<&Root::ReplaceTaggedCommentDefs>("ReplaceTaggedCommentDefs", "TaggedCommentDefs"),
      I::Method<&Root::ReplaceModelCommentProfiles>("ReplaceModelCommentProfiles", "ModelCommentProfiles"),
      I::Method<&Root::ReplaceExternalDocs>("ReplaceExternalDocs", "ExternalDocs"),
      I::Method<&Root::ReplaceCommentFileLocations>("ReplaceCommentFileLocations", "CommentFileLocations"),
      I::Get<&Root::VSNETOptions>("VSNETOptions"),
      I::Get<&Root::VBOptions>("VBOptions"),
      I::Get<&Root::LWCommenterOptions>("LWCommenterOptions"),
      I::Get<&Root::IDEOptions>("IDEOptions"),
      I::Get<&Root::SpellingOptions>("SpellingOptions"),
      I::MayBeNull(
          I::Method<&Root::GetDefaultTemplate>("GetDefaultTemplate", "NamespaceProfile", "[Supports]")),
      I::Property<&Root::DefaultToolbarStyle, &Root::SetDefaultToolbarStyle>("DefaultToolbarStyle"),
      I::Property<&Root::ReloadFlag, &Root::SetReloadFlag>("ReloadFlag"));
  static const ClassInfo info = I::Class("Root", kSlots);
  return info;
}

}  // namespace lwconfig::automation
