#include <lwconfig/core/internal/xml_data.h>

namespace lwconfig {
namespace {

constexpr auto kNone = std::string_view::npos;

/// Where the tag, comment, section or instruction that begins at `at` ends; `kNone` where the text ends
/// first.
std::size_t EndOfMarkup(std::string_view text, std::size_t at) {
  struct Delimiters {
    std::string_view Open;
    std::string_view Close;
  };
  for (const auto& [open, close] :
       {Delimiters{"<!--", "-->"}, Delimiters{"<![CDATA[", "]]>"}, Delimiters{"<?", "?>"}}) {
    if (text.substr(at, open.size()) != open) continue;
    const auto end = text.find(close, at + open.size());
    return end == kNone ? kNone : end + close.size();
  }
  while ((at = text.find_first_of(">\"'", at)) != kNone && text[at] != '>') {
    at = text.find(text[at], at + 1);
    if (at == kNone) return kNone;
    ++at;
  }
  return at == kNone ? kNone : at + 1;
}

/// Where the closing tag of the element begins whose content begins at `at`; for an element that is not
/// closed, where the last thing complete in it ends.
std::size_t EndOfContent(std::string_view text, std::size_t at) {
  for (std::size_t depth = 1;;) {
    const auto open = text.find('<', at);
    if (open == kNone) return text.size();
    const auto end = EndOfMarkup(text, open);
    if (end == kNone) return open;
    const char kind = text[open + 1];
    if (kind == '/') {
      if (--depth == 0) return open;
    } else if (kind != '!' && kind != '?' && text[end - 2] != '/') {
      ++depth;
    }
    at = end;
  }
}

}  // namespace

std::optional<std::string_view> XMLDocumentData::Inside(const char* name) const {
  const auto nameStart = OffsetOf(name);
  if (!nameStart) return std::nullopt;
  const std::string_view text = std::string_view(Original).substr(0, ParsedLength);
  const auto start = EndOfMarkup(text, *nameStart);
  if (start == kNone) return std::nullopt;
  return text.substr(start, EndOfContent(text, start) - start);
}

}  // namespace lwconfig
