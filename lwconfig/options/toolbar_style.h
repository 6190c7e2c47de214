#pragma once

#include <cstdint>

namespace lwconfig {

enum LWToolBarStyleEnum : std::int32_t {
  ToolbarStyleOfficeXP = 0,
  ToolbarStyleOffice2003 = 1,
  ToolbarStyleOffice2003NoThemes = 2,
};

}  // namespace lwconfig
