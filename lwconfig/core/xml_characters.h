#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lwconfig {

/// Something in a text that is no character of XML 1.0.
struct NoXMLCharacter {
  std::size_t Offset;  // in bytes, from 0
  std::string Name;    // "U+0001"; "the byte FF" where the text is not UTF-8
};

/// The first of them: a control character other than tab, line feed and carriage return, U+FFFE, U+FFFF, or a
/// byte that belongs to no character. Nothing where other programs can read the text in an XML file.
std::optional<NoXMLCharacter> FindNoXMLCharacter(std::string_view text);

}  // namespace lwconfig
