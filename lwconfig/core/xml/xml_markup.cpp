#include <lwconfig/core/xml/internal/xml_data.h>

namespace lwconfig {
namespace {

constexpr auto kNone = std::string_view::npos;

struct Delimiters {
  std::string_view Open;
  std::string_view Close;
};
constexpr Delimiters kSection{"<![CDATA[", "]]>"};

/// The end of the tag, comment, section or instruction that begins at `at`; `kNone` where the text
/// is too short.
std::size_t EndOfMarkup(std::string_view text, std::size_t at) {
  for (const auto& [open, close] : {Delimiters{"<!--", "-->"}, kSection, Delimiters{"<?", "?>"}}) {
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

/// The source text inside the element whose content begins at `at`, up to its closing tag; in an unclosed
/// element, up to the end of the last complete item in it.
std::string Content(std::string_view text, std::size_t at) {
  std::string content;
  for (std::size_t depth = 1;;) {
    const auto open = text.find('<', at);
    content += text.substr(at, open - at);
    const auto end = open == kNone ? kNone : EndOfMarkup(text, open);
    if (end == kNone) return content;
    auto markup = text.substr(open, end - open);
    if (markup.starts_with(kSection.Open)) {
      markup.remove_prefix(kSection.Open.size());
      markup.remove_suffix(kSection.Close.size());
    } else if (markup[1] == '/') {
      if (--depth == 0) return content;
    } else if (markup[1] != '!' && markup[1] != '?' && markup[markup.size() - 2] != '/') {
      ++depth;
    }
    content += markup;
    at = end;
  }
}

}  // namespace

std::optional<std::string> XMLDocumentData::Inside(const char* name) const {
  const auto nameStart = OffsetOf(name);
  if (!nameStart) return std::nullopt;
  const std::string_view text = std::string_view(Original).substr(0, ParsedLength);
  const auto start = EndOfMarkup(text, *nameStart);
  if (start == kNone) return std::nullopt;
  return Content(text, start);
}

}  // namespace lwconfig
