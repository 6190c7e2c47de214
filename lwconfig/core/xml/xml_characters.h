#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace lwconfig {

/// Whether XML 1.0 allows the character (code point). Most control characters, surrogates, U+FFFE and U+FFFF
/// are forbidden, even as references.
bool IsXMLCharacter(std::uint32_t character);

/// "U+0001"
std::string CharacterName(std::uint32_t character);

/// A character or byte that XML 1.0 forbids.
struct ForbiddenCharacter {
  std::size_t Offset;  // in bytes, from 0
  std::string Name;    // "U+0001"; "the byte FF" where the text is not UTF-8
};

/// The first forbidden character in a text for an XML document: a control character other than tab, line feed
/// and carriage return, U+FFFE, U+FFFF, or a byte that belongs to no character. Nothing where there is none.
std::optional<ForbiddenCharacter> FindForbiddenCharacter(std::string_view text);

/// Calls `report(offset, character)` for each forbidden character in the text of an XML document (UTF-8), in
/// order. A reference to such a character counts as one; comments and CDATA sections contain no references.
void ForEachForbiddenCharacter(
    std::string_view document,
    const std::function<void(std::size_t offset, std::uint32_t character)>& report);

}  // namespace lwconfig
