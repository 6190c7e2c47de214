#include <cstdint>

#include <utf8proc.h>

#include <lwconfig/platform/letter_case.h>

namespace lwconfig {
namespace {

bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

/// Yields the bytes of a folded text one by one, so that comparing and hashing allocate nothing.
class FoldedBytes {
 public:
  explicit FoldedBytes(std::string_view text) : mText(text) {}

  /// The next byte of the folded text, or -1 at its end.
  int Next() {
    if (mPending < mPendingEnd) return static_cast<unsigned char>(mBuffer[mPending++]);
    if (mPosition == mText.size()) return -1;
    const char c = mText[mPosition];
    if (IsAscii(c)) {
      ++mPosition;
      return static_cast<unsigned char>(AsciiLower(c));
    }
    FoldCharacter();
    return static_cast<unsigned char>(mBuffer[mPending++]);
  }

 private:
  void FoldCharacter() {
    utf8proc_int32_t character = 0;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(mText.data() + mPosition);
    const auto length =
        utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(mText.size() - mPosition), &character);
    mPending = 0;
    mPendingEnd = 0;
    if (length <= 0) {
      mBuffer[mPendingEnd++] = mText[mPosition++];
      return;
    }
    mPosition += static_cast<std::size_t>(length);
    utf8proc_int32_t folded[8];
    int boundary = 0;
    const auto count = utf8proc_decompose_char(character, folded, 8, UTF8PROC_CASEFOLD, &boundary);
    for (utf8proc_ssize_t i = 0; i < count; ++i) {
      mPendingEnd += static_cast<std::size_t>(
          utf8proc_encode_char(folded[i], reinterpret_cast<utf8proc_uint8_t*>(mBuffer + mPendingEnd)));
    }
  }

  std::string_view mText;
  std::size_t mPosition = 0;
  char mBuffer[32] = {};
  std::size_t mPending = 0;
  std::size_t mPendingEnd = 0;
};

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
  FoldedBytes left(a.substr(i));
  FoldedBytes right(b.substr(i));
  for (;;) {
    const int x = left.Next();
    const int y = right.Next();
    if (x != y) return x <=> y;
    if (x < 0) return std::weak_ordering::equivalent;
  }
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
