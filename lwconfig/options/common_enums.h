#pragma once

#include <cstdint>

#include <lwconfig/core/instance_count.h>
#include <lwconfig/options/toolbar_style.h>

namespace lwconfig {

enum CommentEditorViewEnum : std::int32_t {
  CommentEditViewFull = 0,
  CommentEditViewCombo = 1,
};

enum LWVSWindowStyleEnum : std::int32_t {
  LWVSWindowStyleDocumentWindow = 0,
  LWVSWindowStyleToolWindow = 1,
  LWVSWindowStyleExternal = 2,
};

enum BlockPositionEnum : std::int32_t {
  BlockPositionInside = 0,
  BlockPositionOutside = 1,
};

enum CommentModeEnum : std::int32_t {
  ModeDocComments = 0,
  ModeVBCode = 1,
  ModeCommentFile = 2,
};

/// The commands that the product's tools send each other.
enum LWIPCCommandEnum : std::int32_t {
  LWIPCIsLWProjectSelected = 100,
  LWIPCOpenLWProject = 101,
  LWIPCIsFileLoaded = 102,
  LWIPCReloadVBProject = 103,
};

/// Without members: publishes the enumerations that the product's tools share.
class CommonEnums : public Counted<CommonEnums> {
 public:
  static constexpr const char* kClassName = "CommonEnums";
};

}  // namespace lwconfig
