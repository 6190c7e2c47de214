#pragma once

#include <cstdint>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/options/toolbar_style.h>

namespace lwconfig {

/// The comments that a comment editor shows at once.
enum CommentEditorViewEnum : std::int32_t {
  CommentEditViewFull = 0,   // every comment
  CommentEditViewCombo = 1,  // one comment, chosen from a list
};

/// The window in which comments are edited.
enum LWVSWindowStyleEnum : std::int32_t {
  LWVSWindowStyleDocumentWindow = 0,  // a document window
  LWVSWindowStyleToolWindow = 1,      // a tool window
  LWVSWindowStyleExternal = 2,        // a window outside the editor
};

/// The position of the comments of a block of code.
enum BlockPositionEnum : std::int32_t {
  BlockPositionInside = 0,   // inside the block
  BlockPositionOutside = 1,  // outside the block
};

/// The storage of comments.
enum CommentModeEnum : std::int32_t {
  ModeDocComments = 0,  // in XML documentation comments
  ModeVBCode = 1,       // in Visual Basic comments
  ModeCommentFile = 2,  // in a comment file
};

/// The commands that the product's tools send each other.
enum LWIPCCommandEnum : std::int32_t {
  LWIPCIsLWProjectSelected = 100,  // asks whether a project is selected
  LWIPCOpenLWProject = 101,        // opens a project
  LWIPCIsFileLoaded = 102,         // asks whether a file is loaded
  LWIPCReloadVBProject = 103,      // reloads a Visual Basic project
};

/// Without members: publishes the enumerations that the product's tools share.
class CommonEnums : public Counted<CommonEnums> {
 public:
  static constexpr const char* kClassName = "CommonEnums";
};

}  // namespace lwconfig
