#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace lwconfig {

/// Whether XML 1.0 has the character (code point): most control characters, surrogates and U+FFFE and U+FFFF
/// are none of its characters, not even as a reference.
bool IsXMLCharacter(std::uint32_t character);

/// "U+0001"
std::string CharacterName(std::uint32_t character);

/// Calls `tell(offset, character)` for each character in the text of an XML document (UTF-8) that XML 1.0
/// does not have, in order. A reference to such a character counts as one; in comments and CDATA sections
/// there are no references.
void ForEachForbiddenCharacter(std::string_view document,
                               const std::function<void(std::size_t offset, std::uint32_t character)>& tell);

}  // namespace lwconfig
