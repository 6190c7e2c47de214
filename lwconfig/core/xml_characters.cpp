#include <array>
#include <cstdio>

#include <lwconfig/core/text.h>
#include <lwconfig/core/xml_characters.h>

namespace lwconfig {
namespace {

/// The bytes that a character with this first byte takes.
std::size_t LengthFrom(unsigned char first) {
  if (first < 0xC0) return 1;
  return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

std::string Named(const char* format, unsigned number) {
  std::array<char, 16> name{};
  std::snprintf(name.data(), name.size(), format, number);
  return name.data();
}

}  // namespace

std::optional<NoXMLCharacter> FindNoXMLCharacter(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::string_view character = text.substr(at, LengthFrom(first));
    const bool isControl = first < ' ' && character.find_first_of("\t\n\r") == std::string_view::npos;
    if (isControl) return NoXMLCharacter{at, Named("U+%04X", first)};
    if (!IsValidUtf8(character)) return NoXMLCharacter{at, Named("the byte %02X", first)};
    if (character == "\xEF\xBF\xBE") return NoXMLCharacter{at, "U+FFFE"};
    if (character == "\xEF\xBF\xBF") return NoXMLCharacter{at, "U+FFFF"};
    at += character.size();
  }
  return std::nullopt;
}

}  // namespace lwconfig
