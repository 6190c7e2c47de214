#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

template <>
const ClassInfo& ClassOf<VSNETOptions>() {
  using I = Interface<VSNETOptions>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&VSNETOptions::FullPageEditExcludedLanguages>("FullPageEditExcludedLanguages"),
      I::Property<&VSNETOptions::ToolbarStyle>("ToolbarStyle"),
      I::Property<&VSNETOptions::CodeViewCollapsed>("CodeViewCollapsed"),
      I::Property<&VSNETOptions::CommentEditorView>("CommentEditorView"),
      I::Property<&VSNETOptions::CommentWindowStyle>("CommentWindowStyle"),
      I::Property<&VSNETOptions::AppendUnTagged>("AppendUnTagged"),
      I::Property<&VSNETOptions::WrapCharacters>("WrapCharacters"),
      I::Property<&VSNETOptions::BlockTagPosition>("BlockTagPosition"),
      I::Property<&VSNETOptions::IncludeSpace>("IncludeSpace"),
      I::Property<&VSNETOptions::PreviewTemplate>("PreviewTemplate", {.Names = NameOf::Template}),
      I::Property<&VSNETOptions::VBNETCommentMode>("VBNETCommentMode"),
      I::Property<&VSNETOptions::FollowCodePane>("FollowCodePane"),
      I::Property<&VSNETOptions::Grouped>("Grouped"),
      I::Property<&VSNETOptions::ShowProtected>("ShowProtected"),
      I::Property<&VSNETOptions::ShowFriend>("ShowFriend"),
      I::Property<&VSNETOptions::ShowPrivate>("ShowPrivate"),
      I::Property<&VSNETOptions::XMLCommentLineBreak>("XMLCommentLineBreak"),
      I::Property<&VSNETOptions::AutoExpand>("AutoExpand"));
  static const ClassInfo info = I::Class("VSNETOptions", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<VBOptions>() {
  using I = Interface<VBOptions>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&VBOptions::ToolbarStyle>("ToolbarStyle"),
      I::Property<&VBOptions::CodeViewCollapsed>("CodeViewCollapsed"),
      I::Property<&VBOptions::CommentEditorView>("CommentEditorView"),
      I::Property<&VBOptions::SaveAsRelatedDocument>("SaveAsRelatedDocument"),
      I::Property<&VBOptions::MaxContinuedLines>("MaxContinuedLines"),
      I::Property<&VBOptions::WrapWhitespace>("WrapWhitespace"),
      I::Property<&VBOptions::WrapCharacters>("WrapCharacters"),
      I::Property<&VBOptions::BlockTagPosition>("BlockTagPosition"),
      I::Property<&VBOptions::IncludeSpace>("IncludeSpace"),
      I::Property<&VBOptions::PreviewTemplate>("PreviewTemplate", {.Names = NameOf::Template}),
      I::Property<&VBOptions::VBAPreviewTemplate>("VBAPreviewTemplate", {.Names = NameOf::Template}),
      I::Property<&VBOptions::VBCommentMode>("VBCommentMode"),
      I::Property<&VBOptions::ExternalWindow>("ExternalWindow"),
      I::Property<&VBOptions::FollowCodePane>("FollowCodePane"),
      I::Property<&VBOptions::Grouped>("Grouped"),
      I::Property<&VBOptions::VBAShowFriend>("VBAShowFriend"),
      I::Property<&VBOptions::VBAShowPrivate>("VBAShowPrivate"),
      I::Property<&VBOptions::ShowFriend>("ShowFriend"),
      I::Property<&VBOptions::ShowPrivate>("ShowPrivate"),
      I::Property<&VBOptions::XMLCommentLineBreak>("XMLCommentLineBreak"));
  static const ClassInfo info = I::Class("VBOptions", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<LWCommenterOptions>() {
  using I = Interface<LWCommenterOptions>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&LWCommenterOptions::Grouped>("Grouped"),
      I::Property<&LWCommenterOptions::ShowProtected>("ShowProtected"),
      I::Property<&LWCommenterOptions::ShowFriend>("ShowFriend"),
      I::Property<&LWCommenterOptions::ShowPrivate>("ShowPrivate"),
      I::Property<&LWCommenterOptions::AutoExpand>("AutoExpand"),
      I::Property<&LWCommenterOptions::PreviewTemplate>("PreviewTemplate", {.Names = NameOf::Template}));
  static const ClassInfo info = I::Class("LWCommenterOptions", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<IDEOptions>() {
  using I = Interface<IDEOptions>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&IDEOptions::PreserveChosenContentType>("PreserveChosenContentType"),
      I::Property<&IDEOptions::NoProjectPropertiesHeaders>("NoProjectPropertiesHeaders"),
      I::Property<&IDEOptions::ToolbarStyle>("ToolbarStyle"),
      I::Property<&IDEOptions::DefaultPath>("DefaultPath"),
      I::Property<&IDEOptions::CommentEditorView>("CommentEditorView"),
      I::Property<&IDEOptions::AutoSave>("AutoSave"),
      I::Property<&IDEOptions::AutoSaveInterval>("AutoSaveInterval"),
      I::Property<&IDEOptions::SaveLayoutOnExit>("SaveLayoutOnExit"),
      I::Property<&IDEOptions::InternalHelp>("InternalHelp"));
  static const ClassInfo info = I::Class("IDEOptions", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<SpellingOptions>() {
  using I = Interface<SpellingOptions>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&SpellingOptions::DynamicSpell>("DynamicSpell"),
      I::Property<&SpellingOptions::CustomDictionary>("CustomDictionary"),
      I::Property<&SpellingOptions::PrimaryDictionary>("PrimaryDictionary"),
      I::Property<&SpellingOptions::IgnoreMixedCase>("IgnoreMixedCase"),
      I::Property<&SpellingOptions::IgnoreNumbers>("IgnoreNumbers"),
      I::Property<&SpellingOptions::IgnoreUpperCase>("IgnoreUpperCase"),
      I::Property<&SpellingOptions::AlwaysSuggest>("AlwaysSuggest"));
  static const ClassInfo info = I::Class("SpellingOptions", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<CommonEnums>() {
  using I = Interface<CommonEnums>;
  static constexpr auto kSlots = I::Slots();
  static const ClassInfo info = I::Class("CommonEnums", kSlots);
  return info;
}

template <>
const EnumInfo& EnumOf<LWToolBarStyleEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"ToolbarStyleOfficeXP", ToolbarStyleOfficeXP},
      EnumMember{"ToolbarStyleOffice2003", ToolbarStyleOffice2003},
      EnumMember{"ToolbarStyleOffice2003NoThemes", ToolbarStyleOffice2003NoThemes}};
  static constexpr EnumInfo info{"LWToolBarStyleEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<CommentEditorViewEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"CommentEditViewFull", CommentEditViewFull},
      EnumMember{"CommentEditViewCombo", CommentEditViewCombo}};
  static constexpr EnumInfo info{"CommentEditorViewEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<LWVSWindowStyleEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"LWVSWindowStyleDocumentWindow", LWVSWindowStyleDocumentWindow},
      EnumMember{"LWVSWindowStyleToolWindow", LWVSWindowStyleToolWindow},
      EnumMember{"LWVSWindowStyleExternal", LWVSWindowStyleExternal}};
  static constexpr EnumInfo info{"LWVSWindowStyleEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<BlockPositionEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"BlockPositionInside", BlockPositionInside},
      EnumMember{"BlockPositionOutside", BlockPositionOutside}};
  static constexpr EnumInfo info{"BlockPositionEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<CommentModeEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"ModeDocComments", ModeDocComments},
      EnumMember{"ModeVBCode", ModeVBCode},
      EnumMember{"ModeCommentFile", ModeCommentFile}};
  static constexpr EnumInfo info{"CommentModeEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<LWIPCCommandEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"LWIPCIsLWProjectSelected", LWIPCIsLWProjectSelected},
      EnumMember{"LWIPCOpenLWProject", LWIPCOpenLWProject},
      EnumMember{"LWIPCIsFileLoaded", LWIPCIsFileLoaded},
      EnumMember{"LWIPCReloadVBProject", LWIPCReloadVBProject}};
  static constexpr EnumInfo info{"LWIPCCommandEnum", kMembers};
  return info;
}

}  // namespace lwconfig::automation
