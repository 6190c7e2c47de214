#include <algorithm>

#include <lwconfig/core/base/unicode.h>

namespace lwconfig {
namespace {

/// The length of the UTF-8 character at the start of `bytes`, 0 where there is no valid one.
std::size_t CharacterLength(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || length > bytes.size()) return 0;
  // Use the second byte to reject overlong forms, surrogates and values beyond Unicode.
  const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (byte(1) < low || byte(1) > high) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (byte(i) < 0x80 || byte(i) > 0xBF) return 0;
  }
  return length;
}

/// The length of the ASCII text at the start of `bytes`, in whole blocks: a quick first pass.
std::size_t AsciiBlocks(std::string_view bytes) {
  constexpr std::size_t kBlock = 64;
  std::size_t at = 0;
  for (; at + kBlock <= bytes.size(); at += kBlock) {
    unsigned char any = 0;
    for (std::size_t i = 0; i < kBlock; ++i) any |= static_cast<unsigned char>(bytes[at + i]);
    if (any >= 0x80) break;
  }
  return at;
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
  const std::size_t length = CharacterLength(text);
  const auto lead = static_cast<unsigned char>(text.front());
  char32_t character = lead;
  if (length == 0) {
    character = kNoCharacter;
  } else if (length > 1) {
    character = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
      character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
    }
  }
  text.remove_prefix(std::max<std::size_t>(length, 1));
  return character;
}

void AppendCharacter(std::string& text, char32_t character) {
  const auto continuation = [&](int shift) {
    return static_cast<char>(0x80 | ((character >> shift) & 0x3F));
  };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += {static_cast<char>(0xC0 | (character >> 6)), continuation(0)};
  } else if (character < 0x10000) {
    text += {static_cast<char>(0xE0 | (character >> 12)), continuation(6), continuation(0)};
  } else {
    text += {static_cast<char>(0xF0 | (character >> 18)), continuation(12), continuation(6), continuation(0)};
  }
}

bool IsValidUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    bytes.remove_prefix(AsciiBlocks(bytes));
    // Decode single characters up to the next place where an ASCII block may begin.
    for (std::size_t steps = 0; steps < 64 && !bytes.empty(); ++steps) {
      const std::size_t length = CharacterLength(bytes);
      if (length == 0) return false;
      bytes.remove_prefix(length);
    }
  }
  return true;
}

std::string_view WithoutCutCharacter(std::string_view bytes) {
  constexpr std::size_t kMostCut = 3;
  for (std::size_t cut = 1; cut <= std::min(kMostCut, bytes.size()); ++cut) {
    const auto lead = static_cast<unsigned char>(bytes[bytes.size() - cut]);
    if (lead < 0x80) break;
    if (lead < 0xC0) continue;
    if (lead < 0xC2 || lead > 0xF4) break;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    const std::string_view whole = bytes.substr(0, bytes.size() - cut);
    return length > cut && IsValidUtf8(whole) ? whole : bytes;
  }
  return bytes;
}

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string Utf8FromUnits(std::string_view bytes, std::size_t unitSize, bool isLittleEndian) {
  std::string text;
  text.reserve(bytes.size());
  char32_t high = 0;  // the first half of a surrogate pair
  const auto appendLoneHalf = [&] {
    if (high != 0) AppendCharacter(text, kReplacementCharacter);
    high = 0;
  };
  for (std::size_t at = 0; at + unitSize <= bytes.size(); at += unitSize) {
    char32_t unit = 0;
    for (std::size_t i = 0; i < unitSize; ++i) {
      unit = unit << 8 | static_cast<unsigned char>(bytes[at + (isLittleEndian ? unitSize - 1 - i : i)]);
    }
    const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
    const bool isLow = unit >= 0xDC00 && unit < 0xE000;
    if (isLow && high != 0) {
      AppendCharacter(text, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
      high = 0;
      continue;
    }
    appendLoneHalf();
    if (isHigh && unitSize == 2) {
      high = unit;
    } else {
      AppendCharacter(text, isHigh || isLow || unit > 0x10FFFF ? kReplacementCharacter : unit);
    }
  }
  appendLoneHalf();
  return text;
}

std::vector<std::uint8_t> Utf16FromUtf8(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(2 * text.size());
  const auto append = [&](char32_t unit) {
    bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
  };
  while (!text.empty()) {
    const char32_t taken = TakeCharacter(text);
    const char32_t character = taken == kNoCharacter ? kReplacementCharacter : taken;
    if (character < 0x10000) {
      append(character);
    } else {
      append(0xD800 + ((character - 0x10000) >> 10));
      append(0xDC00 + ((character - 0x10000) & 0x3FF));
    }
  }
  return bytes;
}

std::string Utf8FromWindows1252(std::string_view bytes) {
  // Decode the upper control range of the encoding; its five undefined bytes keep their value.
  static constexpr char16_t kUpperControls[32] = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const char32_t character = byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80] : byte;
    AppendCharacter(text, character);
  }
  return text;
}

std::string Utf8From8Bit(std::string bytes) {
  return IsValidUtf8(bytes) ? std::move(bytes) : Utf8FromWindows1252(bytes);
}

}  // namespace lwconfig
