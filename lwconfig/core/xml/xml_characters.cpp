#include <array>
#include <charconv>
#include <cstdio>
#include <optional>

#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/xml/xml_characters.h>

namespace lwconfig {
namespace {

constexpr std::uint32_t kUnusedCharacter = 0xFFFE;              // and the next one
constexpr std::string_view kUnusedCharacterBytes = "\xEF\xBF";  // of both, before the last byte

/// The bytes that need a closer look.
constexpr std::array<bool, 256> kIsSpecial = [] {
  std::array<bool, 256> special{};
  for (std::size_t control = 0; control < ' '; ++control) special[control] = true;
  special['\t'] = special['\n'] = special['\r'] = false;
  special['<'] = special['&'] = special[0xEF] = true;
  return special;
}();

/// The number of the character reference at the start of `text`.
std::optional<std::uint32_t> ReferencedCharacter(std::string_view text) {
  constexpr std::size_t kLongestNumber = 32;
  if (!text.starts_with("&#")) return std::nullopt;
  text = text.substr(2, kLongestNumber);
  const bool isHexadecimal = text.starts_with('x');
  if (isHexadecimal) text.remove_prefix(1);
  std::uint32_t number = 0;
  const auto [end, failure] =
      std::from_chars(text.data(), text.data() + text.size(), number, isHexadecimal ? 16 : 10);
  const bool isReference = end != text.data() + text.size() && *end == ';';
  if (!isReference || failure == std::errc::invalid_argument) return std::nullopt;
  return failure == std::errc::result_out_of_range ? UINT32_MAX : number;
}

/// The length of a character with this first byte.
std::size_t LengthFrom(unsigned char first) {
  if (first < 0xC0) return 1;
  return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

/// The closing mark of the comment or CDATA section at the start of `text`; empty where there is neither.
std::string_view ClosingOf(std::string_view text) {
  if (text.starts_with("<!--")) return "-->";
  if (text.starts_with("<![CDATA[")) return "]]>";
  return {};
}

}  // namespace

bool IsXMLCharacter(std::uint32_t character) {
  if (character < ' ') return character == '\t' || character == '\n' || character == '\r';
  const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
  return !isSurrogate && character != kUnusedCharacter && character != kUnusedCharacter + 1 &&
         character <= 0x10FFFF;
}

std::string CharacterName(std::uint32_t character) {
  char name[16];
  std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(character));
  return name;
}

std::optional<ForbiddenCharacter> FindForbiddenCharacter(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto first = static_cast<unsigned char>(text[at]);
    const std::string_view character = text.substr(at, LengthFrom(first));
    if (first < ' ' && !IsXMLCharacter(first)) return ForbiddenCharacter{at, CharacterName(first)};
    if (!IsValidUtf8(character)) {
      char name[16];
      std::snprintf(name, sizeof name, "the byte %02X", first);
      return ForbiddenCharacter{at, name};
    }
    if (character == "\xEF\xBF\xBE") return ForbiddenCharacter{at, CharacterName(kUnusedCharacter)};
    if (character == "\xEF\xBF\xBF") return ForbiddenCharacter{at, CharacterName(kUnusedCharacter + 1)};
    at += character.size();
  }
  return std::nullopt;
}

void ForEachForbiddenCharacter(
    std::string_view document,
    const std::function<void(std::size_t offset, std::uint32_t character)>& report) {
  std::size_t literalEnd = 0;  // there are no references before it
  for (std::size_t at = 0; at < document.size(); ++at) {
    const auto byte = static_cast<unsigned char>(document[at]);
    if (!kIsSpecial[byte]) continue;
    const std::string_view rest = document.substr(at);
    if (byte < ' ') {
      report(at, byte);
    } else if (byte == 0xEF) {
      const std::string_view last = rest.starts_with(kUnusedCharacterBytes) ? rest.substr(2, 1) : "";
      if (last == "\xBE" || last == "\xBF") report(at, kUnusedCharacter + (last == "\xBF" ? 1 : 0));
    } else if (at >= literalEnd && byte == '&') {
      const auto character = ReferencedCharacter(rest);
      if (character && !IsXMLCharacter(*character)) report(at, *character);
    } else if (at >= literalEnd) {
      const std::string_view closing = ClosingOf(rest);
      if (!closing.empty()) literalEnd = document.find(closing, at);
    }
  }
}

}  // namespace lwconfig
