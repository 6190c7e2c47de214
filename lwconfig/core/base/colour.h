#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <lwconfig/core/base/conversions.h>

namespace lwconfig {

/// A colour is a number 0xBBGGRR, with red in the low byte. With the top bit set it is a system colour.

/// "#rrggbb", with red first, or "&H80000005&" for a number of more than three bytes.
std::string ColourText(std::int32_t colour);
/// The colour that the text denotes; a stored whole number is accepted too. Error 13 for any other text, 6
/// outside 32 bits.
Conversion<std::int32_t> ColourValue(std::string_view text);

}  // namespace lwconfig
