#pragma once

#include <string_view>

namespace lwconfig {

/// Whether the whole of `text` matches `pattern`, by characters of UTF-8 and with letter case: "?" matches
/// any one character, "*" any run of characters, also none, "#" one of the digits 0 to 9, a list in square
/// brackets any one character in it and, with "!" right after the bracket, any one character not in it. Every
/// other character matches itself.
///
/// A list is closed by the next "]". Two characters joined by "-" are a range in the order of Unicode; a "-"
/// that joins nothing, and every other character of a list, matches itself. A range in falling order holds
/// no character, nor does the empty list: "[]" matches nothing and "[!]" any one character. A "[" without a
/// closing "]" matches itself. Bytes that are not UTF-8 are characters of their own.
///
/// The running time is at most proportional to the length of the text times that of the pattern.
bool MatchesWildcard(std::string_view text, std::string_view pattern);

/// Whether there is a text that matches the pattern.
bool IsPossibleWildcard(std::string_view pattern);

}  // namespace lwconfig
