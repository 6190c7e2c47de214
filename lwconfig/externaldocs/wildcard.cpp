#include <cstddef>

#include <lwconfig/core/base/unicode.h>
#include <lwconfig/externaldocs/wildcard.h>

namespace lwconfig {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// Reads the character at `at` and advances past it. A byte that begins no character matches itself only.
char32_t TakeCharacter(std::string_view text, std::size_t& at) {
  constexpr char32_t kBeyondUnicode = 0x110000;
  const auto first = static_cast<unsigned char>(text[at]);
  std::string_view rest = text.substr(at);
  const char32_t character = lwconfig::TakeCharacter(rest);
  at = text.size() - rest.size();
  return character == kNoCharacter ? kBeyondUnicode + first : character;
}

/// `list` is the text between the brackets.
bool IsListed(char32_t character, std::string_view list) {
  const bool isNegated = list.starts_with('!');
  bool isFound = false;
  for (std::size_t at = isNegated ? 1 : 0; at < list.size() && !isFound;) {
    const char32_t first = TakeCharacter(list, at);
    char32_t last = first;
    if (at + 1 < list.size() && list[at] == '-') last = TakeCharacter(list, ++at);
    isFound = first <= character && character <= last;
  }
  return isFound != isNegated;
}

/// Whether there is a character that `IsListed`.
bool ListsAny(std::string_view list) {
  bool listsAny = list.starts_with('!');
  for (std::size_t at = 0; at < list.size() && !listsAny;) {
    const char32_t first = TakeCharacter(list, at);
    char32_t last = first;
    if (at + 1 < list.size() && list[at] == '-') last = TakeCharacter(list, ++at);
    listsAny = first <= last;
  }
  return listsAny;
}

/// Matches single characters of a text against the parts of a pattern.
class PatternReader {
 public:
  explicit PatternReader(std::string_view pattern) : mPattern(pattern), mLastClose(pattern.rfind(']')) {}

  /// Whether the part at `at`, which is no "*", matches the character; if so, advances past the part.
  bool Take(std::size_t& at, char32_t character) const {
    if (mPattern[at] == '[' && mLastClose != kNone && mLastClose > at) {
      const auto close = mPattern.find(']', at);
      if (!IsListed(character, mPattern.substr(at + 1, close - at - 1))) return false;
      at = close + 1;
      return true;
    }
    std::size_t next = at;
    const char32_t wanted = TakeCharacter(mPattern, next);
    const bool isMatch =
        wanted == '#' ? character >= '0' && character <= '9' : wanted == '?' || wanted == character;
    if (isMatch) at = next;
    return isMatch;
  }

 private:
  std::string_view mPattern;
  std::size_t mLastClose;
};

}  // namespace

bool IsPossibleWildcard(std::string_view pattern) {
  for (auto open = pattern.find('['); open != kNone; open = pattern.find('[', open)) {
    const auto close = pattern.find(']', open);
    if (close == kNone) break;
    if (!ListsAny(pattern.substr(open + 1, close - open - 1))) return false;
    open = close;
  }
  return true;
}

bool MatchesWildcard(std::string_view text, std::string_view pattern) {
  const PatternReader reader(pattern);
  std::size_t at = 0;
  std::size_t part = 0;
  // Extend only the last "*" met: a longer run for an earlier one leaves less to match, never more.
  std::size_t afterStar = kNone;
  std::size_t runEnd = 0;
  while (at < text.size()) {
    if (part < pattern.size() && pattern[part] == '*') {
      afterStar = ++part;
      runEnd = at;
      continue;
    }
    std::size_t next = at;
    if (part < pattern.size() && reader.Take(part, TakeCharacter(text, next))) {
      at = next;
    } else if (afterStar != kNone) {
      TakeCharacter(text, runEnd);
      at = runEnd;
      part = afterStar;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', part) == kNone;
}

}  // namespace lwconfig
