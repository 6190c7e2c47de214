#include <algorithm>
#include <optional>

#include <lwconfig/checking/text_references.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig {
namespace {

using Kinds = TextReference::Kinds;

constexpr auto kNone = std::string_view::npos;
constexpr std::string_view kDelimiter = "%%";
constexpr std::string_view kComment = "<!--";

bool StartsIgnoringCase(std::string_view text, std::string_view start) {
  return EqualIgnoringCase(text.substr(0, start.size()), start);
}

bool IsOfName(char c) {
  const bool isAscii = static_cast<unsigned char>(c) < 0x80;
  const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  return !isAscii || isLetter || c == '_' || c == '.' || c == '-';
}

/// The placeholder at the start of `text`, if there is one.
std::optional<TextReference> PlaceholderAt(std::string_view text) {
  const std::string_view behind = text.substr(kDelimiter.size());
  const auto length = static_cast<std::size_t>(std::ranges::find_if_not(behind, IsOfName) - behind.begin());
  if (length == 0 || !behind.substr(length).starts_with(kDelimiter)) return std::nullopt;
  std::string_view name = behind.substr(0, length);
  for (const auto& [prefix, kind] : {std::pair{std::string_view("phrase."), Kinds::Phrase},
                                     std::pair{std::string_view("scrap."), Kinds::Scrap}}) {
    if (name.size() > prefix.size() && StartsIgnoringCase(name, prefix))
      return TextReference{kind, name.substr(prefix.size()), 0};
  }
  return TextReference{Kinds::Placeholder, name, 0};
}

/// The comment for the generator at the start of `text`, replaced by a phrase or a scrap.
std::optional<TextReference> CommentAt(std::string_view text) {
  constexpr std::size_t kLongest = 1000;
  constexpr std::string_view kName = " name=\"";
  for (const auto& [start, kind] : {std::pair{std::string_view("<!--LW:Phrase "), Kinds::Phrase},
                                    std::pair{std::string_view("<!--LW:Scrap "), Kinds::Scrap}}) {
    if (!StartsIgnoringCase(text, start)) continue;
    const std::string_view limited = text.substr(start.size() - 1, kLongest);
    const std::string_view attributes = limited.substr(0, limited.find("-->"));
    const auto name = attributes.find(kName);
    if (name == kNone) return std::nullopt;
    const std::string_view value = attributes.substr(name + kName.size());
    const auto length = value.find('"');
    // A name composed of placeholders cannot be known.
    if (length == kNone || length == 0 || value.substr(0, length).find(kDelimiter) != kNone)
      return std::nullopt;
    return TextReference{kind, value.substr(0, length), 0};
  }
  return std::nullopt;
}

}  // namespace

std::vector<TextReference> FindTextReferences(std::string_view text) {
  std::vector<TextReference> found;
  std::size_t delimiter = text.find(kDelimiter);
  std::size_t comment = text.find(kComment);
  while (delimiter != kNone || comment != kNone) {
    const bool isDelimiter = delimiter < comment;
    const std::size_t at = std::min(delimiter, comment);
    auto reference = isDelimiter ? PlaceholderAt(text.substr(at)) : CommentAt(text.substr(at));
    std::size_t next = at + 1;
    if (reference) {
      reference->Offset = at;
      found.push_back(*reference);
      // Skip the last delimiter of a placeholder: it begins no other.
      if (isDelimiter)
        next = static_cast<std::size_t>(reference->Name.data() - text.data()) + reference->Name.size() +
               kDelimiter.size();
    }
    if (isDelimiter) {
      delimiter = text.find(kDelimiter, next);
    } else {
      comment = text.find(kComment, next);
    }
  }
  return found;
}

}  // namespace lwconfig
