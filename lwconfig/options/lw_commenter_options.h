#pragma once

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/options/option.h>

namespace lwconfig {

/// The user's options of the Lexiwend Commenter.
class LWCommenterOptions : public OptionSet, public Counted<LWCommenterOptions> {
 public:
  static constexpr const char* kClassName = "LWCommenterOptions";

  Option<bool> Grouped{*this, "LWCommenter", "Grouped", true};
  Option<bool> ShowProtected{*this, "LWCommenter", "ShowProtected", false};
  Option<bool> ShowFriend{*this, "LWCommenter", "ShowFriend", false};
  Option<bool> ShowPrivate{*this, "LWCommenter", "ShowPrivate", false};
  Option<bool> AutoExpand{*this, "LWCommenter", "AutoExpand", true};
  Option<std::string> PreviewTemplate{*this, "LWCommenter", "PreviewTemplate", ""};
};

template <>
inline constexpr Slot kSlotOf<LWCommenterOptions> = Slot::LWCommenterOptions;

}  // namespace lwconfig
