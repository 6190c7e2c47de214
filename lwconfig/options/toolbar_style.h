#pragma once

#include <cstdint>

namespace lwconfig {

/// The appearance of toolbars.
enum LWToolBarStyleEnum : std::int32_t {
  ToolbarStyleOfficeXP = 0,            // flat
  ToolbarStyleOffice2003 = 1,          // in the colours of the desktop theme
  ToolbarStyleOffice2003NoThemes = 2,  // the same without themes
};

}  // namespace lwconfig
