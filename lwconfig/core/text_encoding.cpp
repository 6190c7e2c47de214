#include <algorithm>
#include <optional>

#include <lwconfig/core/text.h>
#include <lwconfig/platform/host.h>

namespace lwconfig {
namespace {

using namespace std::string_view_literals;

constexpr char32_t kReplacementCharacter = 0xFFFD;

/// How a text begins in an encoding.
struct Beginning {
  std::string_view Bytes;
  std::size_t UnitSize;
  bool IsLittleEndian;
};

// Longer marks first: the mark of UTF-32 begins with that of UTF-16.
constexpr Beginning kByteOrderMarks[] = {
    {"\xFF\xFE\0\0"sv, 4, true}, {"\0\0\xFE\xFF"sv, 4, false}, {"\xEF\xBB\xBF"sv, 1, true},
    {"\xFF\xFE"sv, 2, true},     {"\xFE\xFF"sv, 2, false},
};

/// Without a mark, UTF-16 shows in the two-byte form of the declaration's first characters.
constexpr Beginning kDeclarationStarts[] = {{"<\0?\0"sv, 2, true}, {"\0<\0?"sv, 2, false}};

/// The value of the encoding in an XML declaration at the start of the text; empty where there is none.
std::string DeclaredEncoding(std::string_view text) {
  if (!text.starts_with("<?xml")) return {};
  const auto declaration = text.substr(0, text.find("?>"));
  const auto name = declaration.find("encoding");
  if (name == std::string_view::npos) return {};
  const auto open = declaration.find_first_of("\"'", name);
  if (open == std::string_view::npos) return {};
  const auto close = declaration.find(declaration[open], open + 1);
  if (close == std::string_view::npos) return {};
  return std::string(declaration.substr(open + 1, close - open - 1));
}

bool NamesWindows1252(std::string_view encoding) {
  // Files that claim plain Latin 1 or ASCII and hold other bytes were written on a Windows-1252 system.
  for (const auto name :
       {"windows-1252"sv, "cp1252"sv, "iso-8859-1"sv, "latin1"sv, "us-ascii"sv, "ascii"sv}) {
    if (EqualIgnoringCase(encoding, name)) return true;
  }
  return false;
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

std::string FromWindows1252(std::string_view bytes) {
  // The upper control range of the encoding; the five places without a character keep their value.
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

/// UTF-16 or UTF-32 as UTF-8. What is no character becomes U+FFFD; an incomplete unit at the end is dropped.
std::string FromWideUnits(std::string_view bytes, std::size_t unitSize, bool littleEndian) {
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
      unit = unit << 8 | static_cast<unsigned char>(bytes[at + (littleEndian ? unitSize - 1 - i : i)]);
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

std::optional<std::string> DecodeByMark(std::string_view bytes) {
  for (const auto& mark : kByteOrderMarks) {
    if (!bytes.starts_with(mark.Bytes)) continue;
    bytes.remove_prefix(mark.Bytes.size());
    if (mark.UnitSize > 1) return FromWideUnits(bytes, mark.UnitSize, mark.IsLittleEndian);
    return IsValidUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
  }
  for (const auto& start : kDeclarationStarts) {
    if (bytes.starts_with(start.Bytes)) return FromWideUnits(bytes, start.UnitSize, start.IsLittleEndian);
  }
  return std::nullopt;
}

/// A declaration that can be read byte by byte is in none of these, whatever it says.
bool NamesWideUnits(std::string_view encoding) {
  const std::string folded = FoldCase(encoding);
  return folded.starts_with("utf-16") || folded.starts_with("utf-32") || folded.starts_with("ucs-") ||
         folded.starts_with("iso-10646-ucs");
}

std::optional<std::string> DecodeByDeclaration(std::string_view bytes) {
  const std::string encoding = DeclaredEncoding(bytes);
  if (encoding.empty() || EqualIgnoringCase(encoding, "utf-8") || NamesWideUnits(encoding))
    return std::nullopt;
  if (NamesWindows1252(encoding)) return FromWindows1252(bytes);
  return platform::DecodeAs(bytes, encoding);
}

}  // namespace

std::string DecodeText(std::string bytes) {
  if (auto text = DecodeByMark(bytes)) return *std::move(text);
  if (auto text = DecodeByDeclaration(bytes)) return *std::move(text);
  return IsValidUtf8(bytes) ? std::move(bytes) : FromWindows1252(bytes);
}

std::string EncodingDoubt(std::string_view bytes) {
  const bool isUtf8 = IsValidUtf8(bytes);
  const std::string readAs = isUtf8 ? "; it is read as UTF-8" : "; it is read as Windows-1252";
  for (const auto& mark : kByteOrderMarks) {
    if (!bytes.starts_with(mark.Bytes)) continue;
    if (mark.UnitSize == 1)
      return isUtf8 ? "" : "the file begins with the mark of UTF-8 and is not UTF-8" + readAs;
    return bytes.size() % mark.UnitSize == 0 ? "" : "the last character of the file is cut off";
  }
  for (const auto& start : kDeclarationStarts) {
    if (bytes.starts_with(start.Bytes)) return {};
  }
  const std::string declared = DeclaredEncoding(bytes);
  if (declared.empty() || EqualIgnoringCase(declared, "utf-8")) {
    if (!isUtf8) return "the file is not UTF-8 and names no other encoding" + readAs;
    return bytes.find("\xEF\xBF\xBD") == std::string_view::npos
               ? ""
               : "the file has the character U+FFFD, which stands for one that was lost";
  }
  const std::string named = "the file names the encoding \"" + declared + "\"";
  if (NamesWideUnits(declared)) return named + " and is in another" + readAs;
  const bool isAscii = std::ranges::all_of(bytes, [](char c) { return static_cast<signed char>(c) >= 0; });
  if (NamesWindows1252(declared))
    return isUtf8 && !isAscii ? named + " and looks like UTF-8; it is read as Windows-1252" : "";
  return platform::DecodeAs(bytes, declared) ? "" : named + ", in which it cannot be read" + readAs;
}

}  // namespace lwconfig
