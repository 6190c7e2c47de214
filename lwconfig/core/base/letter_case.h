#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

namespace lwconfig {

/// Text without regard to letter case: Unicode's simple case folding, one character to one, with a fast path
/// for ASCII. Texts are UTF-8; an invalid byte equals only itself.

std::string FoldCase(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);
std::weak_ordering CompareIgnoringCase(std::string_view a, std::string_view b);
/// Whether the texts are equal without regard to letter case.
std::size_t HashIgnoringCase(std::string_view text);
/// Orders texts by their capital letters, so that "_" comes after the letters.
std::weak_ordering CompareInCapitals(std::string_view a, std::string_view b);

/// The lower-case letter of an ASCII capital; every other byte as it is.
constexpr char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace lwconfig
