#pragma once

#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/options/common_enums.h>
#include <lwconfig/options/option.h>

namespace lwconfig {

/// Written like every option and never read: the value is always `ModeVBCode`.
class VBCommentModeOption : public Option<CommentModeEnum> {
 public:
  using Option::Option;
  using Option::operator=;
  CommentModeEnum Get() const override { return ModeVBCode; }
};

/// The user's options of the commenting add-in for Visual Basic 6, with some for VBA editors.
class VBOptions : public OptionSet, public Counted<VBOptions> {
 public:
  static constexpr const char* kClassName = "VBOptions";

  Option<LWToolBarStyleEnum> ToolbarStyle{*this, "VB", "ToolbarStyle", ToolbarStyleOffice2003NoThemes};
  Option<bool, ExactTrue> CodeViewCollapsed{*this, "VB", "CodeViewCollapsed", false};
  Option<CommentEditorViewEnum> CommentEditorView{*this, "VB", "CommentEditorView", CommentEditViewCombo};
  Option<bool, ExactTrue> SaveAsRelatedDocument{*this, "VB", "SaveAsRelatedDocument", true};
  Option<std::int32_t> MaxContinuedLines{*this, "VB", "MaxContinuedLines", 24};
  Option<std::int32_t> WrapWhitespace{*this, "VB", "WrapWhitespace", 10};
  Option<std::int32_t> WrapCharacters{*this, "VB", "WrapCharacters", 90};
  Option<BlockPositionEnum> BlockTagPosition{*this, "VB", "BlockTagPosition", BlockPositionOutside};
  Option<bool, ExactTrue> IncludeSpace{*this, "VB", "IncludeSpace", true};
  Option<std::string> PreviewTemplate{*this, "VB", "PreviewTemplate", "Platform SDK style"};
  Option<std::string> VBAPreviewTemplate{*this, "VBA", "VBAPreviewTemplate", "VB Technical Documentation"};
  /// Written like every option and never read: the value is always `ModeVBCode`.
  VBCommentModeOption VBCommentMode{*this, "VB", "VBCommentMode", ModeVBCode};

  Option<bool> ExternalWindow{*this, "VB", "ExternalWindow", false};
  Option<bool> FollowCodePane{*this, "VB", "FollowCodePane", false};
  Option<bool> Grouped{*this, "VB", "Grouped", true};
  Option<bool> VBAShowFriend{*this, "VBA", "ShowFriend", true, "VBAShowFriend"};
  Option<bool> VBAShowPrivate{*this, "VBA", "ShowPrivate", true, "VBAShowPrivate"};
  Option<bool> ShowFriend{*this, "VB", "ShowFriend", false};
  Option<bool> ShowPrivate{*this, "VB", "ShowPrivate", false};
  Option<std::int32_t> XMLCommentLineBreak{*this, "VB", "XMLCommentLineBreak", 66};
};

template <>
inline constexpr Slot kSlotOf<VBOptions> = Slot::VBOptions;

}  // namespace lwconfig
