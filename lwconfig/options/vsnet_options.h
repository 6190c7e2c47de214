#pragma once

#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/options/common_enums.h>
#include <lwconfig/options/option.h>

namespace lwconfig {

/// Language names as stored; for "Empty" those of every language of the configuration that is not included by
/// default, in order, joined by ",". Loads the shared languages if needed.
Conversion<std::string> StoredOrExcludedLanguages(std::string_view stored);

/// The user's options of the commenting add-in for Visual Studio .NET.
class VSNETOptions : public OptionSet, public Counted<VSNETOptions> {
 public:
  static constexpr const char* kClassName = "VSNETOptions";

  /// Languages that are not edited on a full page, joined by ","; the default is all languages of the
  /// configuration that are not included by default.
  Option<std::string, StoredOrExcludedLanguages> FullPageEditExcludedLanguages{
      *this, "VSNET", "FullPageEditExcludedLanguages", "Empty"};

  Option<LWToolBarStyleEnum> ToolbarStyle{*this, "VSNET", "ToolbarStyle", ToolbarStyleOffice2003NoThemes};
  Option<bool, ExactTrue> CodeViewCollapsed{*this, "VSNET", "CodeViewCollapsed", false};
  Option<CommentEditorViewEnum> CommentEditorView{*this, "VSNET", "CommentEditorView", CommentEditViewCombo};
  Option<LWVSWindowStyleEnum> CommentWindowStyle{*this, "VSNET", "CommentWindowStyle",
                                                 LWVSWindowStyleDocumentWindow};
  Option<bool, ExactTrue> AppendUnTagged{*this, "VSNET", "AppendUnTagged", false};
  Option<std::int32_t> WrapCharacters{*this, "VSNET", "WrapCharacters", 90};
  Option<BlockPositionEnum> BlockTagPosition{*this, "VSNET", "BlockTagPosition", BlockPositionOutside};
  Option<bool, ExactTrue> IncludeSpace{*this, "VSNET", "IncludeSpace", true};
  Option<std::string> PreviewTemplate{*this, "VSNET", "PreviewTemplate",
                                      "Microsoft .NET Framework SDK Style"};
  Option<CommentModeEnum> VBNETCommentMode{*this, "VSNET", "VBNETCommentMode", ModeDocComments};
  Option<bool> FollowCodePane{*this, "VSNET", "FollowCodePane", false};
  Option<bool> Grouped{*this, "VSNET", "Grouped", true};
  Option<bool> ShowProtected{*this, "VSNET", "ShowProtected", false};
  Option<bool> ShowFriend{*this, "VSNET", "ShowFriend", false};
  Option<bool> ShowPrivate{*this, "VSNET", "ShowPrivate", false};
  Option<std::int32_t> XMLCommentLineBreak{*this, "VSNET", "XMLCommentLineBreak", 66};
  Option<bool> AutoExpand{*this, "VSNET", "AutoExpand", true};
};

template <>
inline constexpr Slot kSlotOf<VSNETOptions> = Slot::VSNETOptions;

}  // namespace lwconfig
