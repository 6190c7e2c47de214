#pragma once

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/options/common_enums.h>
#include <lwconfig/options/option.h>

namespace lwconfig {

/// The view that suits the display: full where it is wider than 1024 pixels.
CommentEditorViewEnum UsualCommentEditorView();

/// The user's options of the product's own environment.
class IDEOptions : public OptionSet, public Counted<IDEOptions> {
 public:
  static constexpr const char* kClassName = "IDEOptions";
  static constexpr std::int32_t kDocumentsFolder = 5;

  Option<bool, ExactTrue> PreserveChosenContentType{*this, "", "PreserveChosenContentType", true};
  Option<bool, ExactTrue> NoProjectPropertiesHeaders{*this, "", "NoProjectPropertiesHeaders", true};
  Option<LWToolBarStyleEnum> ToolbarStyle{*this, "", "ToolbarStyle", ToolbarStyleOffice2003};
  /// Where nothing is stored, the documents folder of the user.
  Option<std::string> DefaultPath{*this, "", "DefaultPath", [] { return GetShellFolder(kDocumentsFolder); }};
  /// Where nothing is stored, the full view on a display wider than 1024 pixels.
  Option<CommentEditorViewEnum> CommentEditorView{*this, "", "CommentEditorView", UsualCommentEditorView};

  Option<bool, ExactTrue> AutoSave{*this, "", "AutoSave", false};
  Option<std::int32_t> AutoSaveInterval{*this, "", "AutoSaveInterval", 3};
  Option<bool, ExactTrue> SaveLayoutOnExit{*this, "", "SaveLayoutOnExit", true};
  Option<bool> InternalHelp{*this, "IDE", "InternalHelp", true};
};

template <>
inline constexpr Slot kSlotOf<IDEOptions> = Slot::IDEOptions;

}  // namespace lwconfig
