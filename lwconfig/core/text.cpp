#include <algorithm>
#include <array>

#include <lwconfig/core/text.h>

namespace lwconfig {
namespace {

/// The length of the UTF-8 character at the start of `bytes`, 0 where there is no valid one.
std::size_t CharacterLength(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || length > bytes.size()) return 0;
  // The second byte tells overlong forms, surrogates and values beyond Unicode apart.
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
      const std::size_t length = wanted[i] == '?' ? CharacterLength(std::string_view(text).substr(at)) : 1;
      at += std::max<std::size_t>(length, 1);
      ++i;
    } else if (star != std::string::npos) {
      i = star + 1;
      at = ++retry;
    } else {
      return false;
    }
  }
  return wanted.find_first_not_of('*', i) == std::string::npos;
}

bool IsValidUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    bytes.remove_prefix(AsciiBlocks(bytes));
    // Character by character up to the next place where a quick block may begin.
    for (std::size_t steps = 0; steps < 64 && !bytes.empty(); ++steps) {
      const std::size_t length = CharacterLength(bytes);
      if (length == 0) return false;
      bytes.remove_prefix(length);
    }
  }
  return true;
}

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace lwconfig
