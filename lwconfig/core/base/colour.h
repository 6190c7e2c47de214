#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <lwconfig/core/base/conversions.h>

namespace lwconfig {

/// A colour is a number 0xBBGGRR, with red in the low byte; with the top bit set it is one of the system's.

/// "#rrggbb", with red first; "&H80000005&" for a number that has more than three bytes.
std::string ColourText(std::int32_t colour);
/// The colour of such a text, or of a whole number as it is stored. Error 13 for any other text, 6 outside 32
/// bits.
Conversion<std::int32_t> ColourValue(std::string_view text);

}  // namespace lwconfig
