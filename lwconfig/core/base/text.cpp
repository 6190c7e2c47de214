#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/base/unicode.h>

namespace lwconfig {
std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  while (!separator.empty()) {
    const auto end = text.find(separator);
    if (end == std::string_view::npos) break;
    pieces.push_back(text.substr(0, end));
    text.remove_prefix(end + separator.size());
  }
  pieces.push_back(text);
  return pieces;
}

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
  return FoldCase(text).find(FoldCase(part)) != std::string::npos;
}

bool MatchesFilePattern(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  const std::string text = FoldCase(name);
  const std::string wanted = FoldCase(pattern);
  std::size_t at = 0;
  std::size_t star = std::string::npos;  // the last "*" met, and where its run may still grow
  std::size_t retry = 0;
  std::size_t i = 0;
  while (at < text.size()) {
    if (i < wanted.size() && wanted[i] == '*') {
      star = i++;
      retry = at;
    } else if (i < wanted.size() && (wanted[i] == '?' || wanted[i] == text[at])) {
      std::string_view rest = std::string_view(text).substr(at);
      if (wanted[i++] == '?') {
        TakeCharacter(rest);
        at = text.size() - rest.size();
      } else {
        ++at;
      }
    } else if (star != std::string::npos) {
      i = star + 1;
      at = ++retry;
    } else {
      return false;
    }
  }
  return wanted.find_first_not_of('*', i) == std::string::npos;
}

}  // namespace lwconfig
