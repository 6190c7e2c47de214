#include <array>
#include <charconv>
#include <cstdio>
#include <optional>

#include <lwconfig/core/base/colour.h>

namespace lwconfig {
namespace {

constexpr std::uint32_t kMostRgb = 0xFFFFFF;

/// Swaps red and blue.
constexpr std::uint32_t Swapped(std::uint32_t rgb) {
  return (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
}

std::optional<std::uint32_t> Hexadecimal(std::string_view digits) {
  std::uint32_t number = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  const bool isWhole = failure == std::errc() && end == digits.data() + digits.size();
  return isWhole ? std::optional(number) : std::nullopt;
}

}  // namespace

std::string ColourText(std::int32_t colour) {
  const auto number = static_cast<std::uint32_t>(colour);
  const bool isRgb = number <= kMostRgb;
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), isRgb ? "#%06x" : "&H%08X&", isRgb ? Swapped(number) : number);
  return text.data();
}

Conversion<std::int32_t> ColourValue(std::string_view text) {
  constexpr std::size_t kRgbSize = 7;
  const bool isRgb = text.starts_with('#') && text.size() == kRgbSize;
  const bool isSystem = (text.starts_with("&H") || text.starts_with("&h")) && text.ends_with('&');
  std::optional<std::uint32_t> number;
  if (isRgb) number = Hexadecimal(text.substr(1));
  if (isSystem) number = Hexadecimal(text.substr(2, text.size() - 3));
  if (number) return {static_cast<std::int32_t>(isRgb ? Swapped(*number) : *number)};
  if (text.find_first_not_of("+-0123456789") != std::string_view::npos)
    return {0, kTypeMismatch, "is not a colour"};
  return StrictInteger(text);
}

}  // namespace lwconfig
