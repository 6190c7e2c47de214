#include <cstdint>

#include <utf8proc.h>

#include <lwconfig/core/base/letter_case.h>

namespace lwconfig {
namespace {

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

struct Folding {
  static char OfAscii(char c) { return AsciiLower(c); }
  static utf8proc_int32_t Of(utf8proc_int32_t character) {
    constexpr utf8proc_int32_t kCapitalIWithDot = 0x130;
    constexpr utf8proc_ssize_t kLongest = 8;
    utf8proc_int32_t folded[kLongest];
    int boundary = 0;
    const auto count = utf8proc_decompose_char(character, folded, kLongest, UTF8PROC_CASEFOLD, &boundary);
    if (count == 1) return folded[0];
    // Where the full folding has several characters, the simple folding is the small letter. U+0130 is the
    // exception: it has no simple folding, and its small letter belongs to another capital.
    return character == kCapitalIWithDot ? character : utf8proc_tolower(character);
  }
};

struct Capitals {
  static char OfAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }
  static utf8proc_int32_t Of(utf8proc_int32_t character) { return utf8proc_toupper(character); }
};

/// Yields the bytes of a text in one letter case, so that comparing and hashing allocate nothing.
template <class LetterCase>
class BytesIn {
 public:
  explicit BytesIn(std::string_view text) : mText(text) {}

  /// The next byte in that letter case, or -1 at the end.
  int Next() {
    if (mPending < mPendingEnd) return static_cast<unsigned char>(mBuffer[mPending++]);
    if (mPosition == mText.size()) return -1;
    const char c = mText[mPosition];
    if (IsAscii(c)) {
      ++mPosition;
      return static_cast<unsigned char>(LetterCase::OfAscii(c));
    }
    ReadCharacter();
    return static_cast<unsigned char>(mBuffer[mPending++]);
  }

 private:
  void ReadCharacter() {
    utf8proc_int32_t character = 0;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(mText.data() + mPosition);
    const auto length =
        utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(mText.size() - mPosition), &character);
    mPending = 0;
    if (length <= 0) {
      mBuffer[0] = mText[mPosition++];
      mPendingEnd = 1;
      return;
    }
    mPosition += static_cast<std::size_t>(length);
    auto* const mapped = reinterpret_cast<utf8proc_uint8_t*>(mBuffer);
    mPendingEnd = static_cast<std::size_t>(utf8proc_encode_char(LetterCase::Of(character), mapped));
  }

  std::string_view mText;
  std::size_t mPosition = 0;
  char mBuffer[4] = {};
  std::size_t mPending = 0;
  std::size_t mPendingEnd = 0;
};

using FoldedBytes = BytesIn<Folding>;

template <class LetterCase>
std::weak_ordering CompareIn(std::string_view a, std::string_view b) {
  BytesIn<LetterCase> left(a);
  BytesIn<LetterCase> right(b);
  for (;;) {
    const int x = left.Next();
    const int y = right.Next();
    if (x != y) return x <=> y;
    if (x < 0) return std::weak_ordering::equivalent;
  }
}

}  // namespace

std::string FoldCase(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  FoldedBytes bytes(text);
  for (int byte = bytes.Next(); byte >= 0; byte = bytes.Next()) folded.push_back(static_cast<char>(byte));
  return folded;
}

std::weak_ordering CompareIgnoringCase(std::string_view a, std::string_view b) {
  std::size_t same = 0;
  for (; same < a.size() && same < b.size() && IsAscii(a[same]) && IsAscii(b[same]); ++same) {
    const char x = AsciiLower(a[same]);
    const char y = AsciiLower(b[same]);
    if (x != y) return x <=> y;
  }
  a.remove_prefix(same);
  b.remove_prefix(same);
  std::size_t i = 0;
  while (i < a.size() && i < b.size() && IsAscii(a[i]) && AsciiLower(a[i]) == AsciiLower(b[i])) ++i;
  return CompareIn<Folding>(a.substr(i), b.substr(i));
}

std::weak_ordering CompareInCapitals(std::string_view a, std::string_view b) {
  return CompareIn<Capitals>(a, b);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  if (a == b) return true;
  std::size_t i = 0;
  for (; i < a.size() && i < b.size(); ++i) {
    if (a[i] == b[i] && IsAscii(a[i])) continue;
    if (!IsAscii(a[i]) || !IsAscii(b[i])) break;
    if (AsciiLower(a[i]) != AsciiLower(b[i])) return false;
  }
  if (i == a.size() && i == b.size()) return true;
  return CompareIgnoringCase(a.substr(i), b.substr(i)) == 0;
}

std::size_t HashIgnoringCase(std::string_view text) {
  constexpr std::uint64_t kOffset = 0xcbf29ce484222325U;  // FNV-1a, 64 bits
  constexpr std::uint64_t kPrime = 0x100000001b3U;
  std::uint64_t hash = kOffset;
  std::size_t i = 0;
  for (; i < text.size() && IsAscii(text[i]); ++i) {
    hash = (hash ^ static_cast<unsigned char>(AsciiLower(text[i]))) * kPrime;
  }
  FoldedBytes rest(text.substr(i));
  for (int byte = rest.Next(); byte >= 0; byte = rest.Next()) {
    hash = (hash ^ static_cast<std::uint64_t>(byte)) * kPrime;
  }
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

}  // namespace lwconfig
