#include <algorithm>
#include <optional>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/files/text_encoding.h>
#include <lwconfig/platform/host.h>

namespace lwconfig {
namespace {

using namespace std::string_view_literals;

/// The first bytes of a text in an encoding.
struct Beginning {
  std::string_view Bytes;
  std::size_t UnitSize;
  bool IsLittleEndian;
};

// List longer marks first: the mark of UTF-32 begins with that of UTF-16.
constexpr Beginning kByteOrderMarks[] = {
    {"\xFF\xFE\0\0"sv, 4, true}, {"\0\0\xFE\xFF"sv, 4, false}, {"\xEF\xBB\xBF"sv, 1, true},
    {"\xFF\xFE"sv, 2, true},     {"\xFE\xFF"sv, 2, false},
};

/// Recognise UTF-16 without a mark by the two-byte form of the declaration's first characters.
constexpr Beginning kDeclarationStarts[] = {{"<\0?\0"sv, 2, true}, {"\0<\0?"sv, 2, false}};

/// The encoding named by the XML declaration at the start of the text; empty where there is none.
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
  // Read files that claim Latin 1 or ASCII as Windows-1252: other bytes in them come from
  // a Windows-1252 system.
  for (const auto name :
       {"windows-1252"sv, "cp1252"sv, "iso-8859-1"sv, "latin1"sv, "us-ascii"sv, "ascii"sv}) {
    if (EqualIgnoringCase(encoding, name)) return true;
  }
  return false;
}

std::optional<std::string> DecodeByMark(std::string_view bytes) {
  for (const auto& mark : kByteOrderMarks) {
    if (!bytes.starts_with(mark.Bytes)) continue;
    bytes.remove_prefix(mark.Bytes.size());
    if (mark.UnitSize > 1) return Utf8FromUnits(bytes, mark.UnitSize, mark.IsLittleEndian);
    return Utf8From8Bit(std::string(WithoutCutCharacter(bytes)));
  }
  for (const auto& start : kDeclarationStarts) {
    if (bytes.starts_with(start.Bytes)) return Utf8FromUnits(bytes, start.UnitSize, start.IsLittleEndian);
  }
  return std::nullopt;
}

bool IsAscii(std::string_view bytes) {
  return std::ranges::all_of(bytes, [](char c) { return static_cast<signed char>(c) >= 0; });
}

/// Whether the bytes are UTF-8 but for a character that is cut off at their end. Where nothing else says so,
/// the last byte of an ASCII text is a character of Windows-1252.
bool IsCutUtf8(std::string_view bytes) {
  const std::string_view whole = WithoutCutCharacter(bytes);
  return whole.size() < bytes.size() &&
         (!IsAscii(whole) || EqualIgnoringCase(DeclaredEncoding(bytes), "utf-8"));
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
  if (NamesWindows1252(encoding)) return Utf8FromWindows1252(bytes);
  return platform::DecodeAs(bytes, encoding);
}

}  // namespace

std::string DecodeText(std::string bytes) {
  if (auto text = DecodeByMark(bytes)) return *std::move(text);
  if (auto text = DecodeByDeclaration(bytes)) return *std::move(text);
  if (IsCutUtf8(bytes)) bytes.resize(WithoutCutCharacter(bytes).size());
  return Utf8From8Bit(std::move(bytes));
}

std::string EncodingDoubt(std::string_view bytes) {
  constexpr const char* kCut = "the last character of the file is cut off";
  const bool isUtf8 = IsValidUtf8(bytes);
  const std::string readAs = isUtf8 ? "; it is read as UTF-8" : "; it is read as Windows-1252";
  for (const auto& mark : kByteOrderMarks) {
    if (!bytes.starts_with(mark.Bytes)) continue;
    if (mark.UnitSize == 1 && WithoutCutCharacter(bytes).size() < bytes.size()) return kCut;
    if (mark.UnitSize == 1)
      return isUtf8 ? "" : "the file begins with the mark of UTF-8 and is not UTF-8" + readAs;
    return bytes.size() % mark.UnitSize == 0 ? "" : kCut;
  }
  for (const auto& start : kDeclarationStarts) {
    if (bytes.starts_with(start.Bytes)) return {};
  }
  const std::string declared = DeclaredEncoding(bytes);
  if (declared.empty() || EqualIgnoringCase(declared, "utf-8")) {
    if (IsCutUtf8(bytes)) return kCut;
    if (!isUtf8) return "the file is not UTF-8 and names no other encoding" + readAs;
    return bytes.find("\xEF\xBF\xBD") == std::string_view::npos
               ? ""
               : "the file has the character U+FFFD, which replaces a lost one";
  }
  const std::string named = "the file names the encoding \"" + declared + "\"";
  if (NamesWideUnits(declared)) return named + " and is in another" + readAs;
  const bool isAscii = IsAscii(bytes);
  if (NamesWindows1252(declared))
    return isUtf8 && !isAscii ? named + " and looks like UTF-8; it is read as Windows-1252" : "";
  return platform::DecodeAs(bytes, declared) ? "" : named + ", in which it cannot be read" + readAs;
}

}  // namespace lwconfig
