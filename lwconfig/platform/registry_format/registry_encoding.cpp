#include "registry_encoding.h"

#include <utility>

#include <utf8proc.h>

#include <lwconfig/platform/host.h>

namespace lwconfig::platform {
namespace {

constexpr utf8proc_int32_t kReplacementCharacter = 0xfffd;

/// Takes one character off the front of `text`; -1 where its first byte does not begin one.
utf8proc_int32_t TakeCharacter(std::string_view& text) {
  utf8proc_int32_t character = -1;
  const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                       static_cast<utf8proc_ssize_t>(text.size()), &character);
  text.remove_prefix(length > 0 ? static_cast<std::size_t>(length) : 1);
  return length > 0 ? character : -1;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    if (static_cast<unsigned char>(text.front()) < 0x80) {
      text.remove_prefix(1);
    } else if (TakeCharacter(text) < 0) {
      return false;
    }
  }
  return true;
}

void AppendCharacter(std::string& text, utf8proc_int32_t character) {
  utf8proc_uint8_t buffer[4];
  const auto length = utf8proc_encode_char(character, buffer);
  text.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(length));
}

bool IsHighSurrogate(utf8proc_int32_t unit) {
  return unit >= 0xd800 && unit < 0xdc00;
}
bool IsLowSurrogate(utf8proc_int32_t unit) {
  return unit >= 0xdc00 && unit < 0xe000;
}

std::string Utf8FromUtf16(std::string_view bytes, bool bigEndian) {
  const std::size_t count = (bytes.size() + 1) / 2;
  const auto unit = [&](std::size_t i) -> utf8proc_int32_t {
    if (2 * i + 1 >= bytes.size()) return kReplacementCharacter;
    const auto first = static_cast<unsigned char>(bytes[2 * i]);
    const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
    return bigEndian ? first << 8 | second : second << 8 | first;
  };
  std::string text;
  text.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    utf8proc_int32_t character = unit(i);
    if (IsHighSurrogate(character) && i + 1 < count && IsLowSurrogate(unit(i + 1))) {
      character = 0x10000 + ((character - 0xd800) << 10) + (unit(++i) - 0xdc00);
    } else if (IsHighSurrogate(character) || IsLowSurrogate(character)) {
      character = kReplacementCharacter;
    }
    AppendCharacter(text, character);
  }
  return text;
}

}  // namespace

std::string Utf8From8Bit(std::string bytes) {
  if (IsUtf8(bytes)) return bytes;
  // The few bytes that Windows-1252 leaves open are control characters, as in Latin-1.
  for (const char* encoding : {"WINDOWS-1252", "ISO-8859-1"}) {
    if (auto text = DecodeAs(bytes, encoding)) return std::move(*text);
  }
  return bytes;
}

std::string Utf8FromRegistryFile(std::string bytes) {
  const std::string_view view = bytes;
  if (view.starts_with("\xff\xfe")) return Utf8FromUtf16(view.substr(2), false);
  if (view.starts_with("\xfe\xff")) return Utf8FromUtf16(view.substr(2), true);
  return Utf8From8Bit(std::move(bytes));
}

std::string Utf8FromUtf16(std::string_view bytes) {
  return Utf8FromUtf16(bytes, false);
}

std::vector<std::uint8_t> Utf16FromUtf8(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  const auto append = [&](utf8proc_int32_t unit) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xff));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
  };
  while (!text.empty()) {
    const utf8proc_int32_t taken = TakeCharacter(text);
    const utf8proc_int32_t character = taken < 0 ? kReplacementCharacter : taken;
    if (character < 0x10000) {
      append(character);
    } else {
      append(0xd800 + ((character - 0x10000) >> 10));
      append(0xdc00 + ((character - 0x10000) & 0x3ff));
    }
  }
  return bytes;
}

}  // namespace lwconfig::platform
