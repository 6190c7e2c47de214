#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace lwconfig {

/// Whether XML 1.0 has the character (code point): most control characters, surrogates and U+FFFE and U+FFFF
/// are none of its characters, not even as a reference.
bool IsXMLCharacter(std::uint32_t character);

/// "U+0001"
std::string CharacterName(std::uint32_t character);

/// Something in a text that XML 1.0 does not have.
struct ForbiddenCharacter {
  std::size_t Offset;  // in bytes, from 0
  std::string Name;    // "U+0001"; "the byte FF" where the text is not UTF-8
};

/// The first in a text that is to be stored in an XML document: a control character other than tab, line feed
/// and carriage return, U+FFFE, U+FFFF, or a byte that belongs to no character. Nothing where there is none.
std::optional<ForbiddenCharacter> FindForbiddenCharacter(std::string_view text);

/// Calls `tell(offset, character)` for each character in the text of an XML document (UTF-8) that XML 1.0
/// does not have, in order. A reference to such a character counts as one; in comments and CDATA sections
/// there are no references.
void ForEachForbiddenCharacter(std::string_view document,
                               const std::function<void(std::size_t offset, std::uint32_t character)>& tell);

}  // namespace lwconfig
