#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lwconfig {

/// The encodings of text, from and to UTF-8.

inline constexpr char32_t kReplacementCharacter = 0xFFFD;
inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// Removes one character from the front of a non-empty text. `kNoCharacter` where its first byte begins none;
/// that byte is removed.
char32_t TakeCharacter(std::string_view& text);
/// Appends the Unicode character as UTF-8.
void AppendCharacter(std::string& text, char32_t character);

/// Whether the bytes are valid UTF-8.
bool IsValidUtf8(std::string_view bytes);
/// The bytes without a character that is cut off at their end, where they are valid UTF-8 so far.
std::string_view WithoutCutCharacter(std::string_view bytes);
/// The number of characters (code points) of a UTF-8 text.
std::size_t CountCharacters(std::string_view text);

/// UTF-16 (units of 2 bytes) or UTF-32 (of 4) as UTF-8. An invalid unit becomes U+FFFD; an incomplete unit at
/// the end is dropped.
std::string Utf8FromUnits(std::string_view bytes, std::size_t unitSize, bool isLittleEndian);
/// The text as UTF-16 in little-endian order; an invalid byte becomes U+FFFD.
std::vector<std::uint8_t> Utf16FromUtf8(std::string_view text);

/// Windows-1252 as UTF-8. The five undefined bytes become control characters.
std::string Utf8FromWindows1252(std::string_view bytes);
/// The bytes unchanged where they are valid UTF-8, else decoded as Windows-1252.
std::string Utf8From8Bit(std::string bytes);

}  // namespace lwconfig
