#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

#include <tools/lwconfig/view/styled_text.h>
#include <utf8proc.h>

namespace lwconfig::tool {
namespace {

/// The next character of a text and the bytes that it takes; `Point` is -1 for a byte that is not UTF-8.
struct Character {
  std::int32_t Point;
  std::size_t Bytes;
};

Character NextCharacter(std::string_view text) {
  utf8proc_int32_t point = -1;
  const auto bytes = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                      static_cast<utf8proc_ssize_t>(text.size()), &point);
  return bytes > 0 ? Character{point, static_cast<std::size_t>(bytes)} : Character{-1, 1};
}

std::size_t ColumnsOf(std::int32_t point) {
  return point < 0 ? 1 : static_cast<std::size_t>(std::max(utf8proc_charwidth(point), 0));
}

bool TurnsDirection(std::int32_t point) {
  return point == 0x61C || (point >= 0x200E && point <= 0x200F) || (point >= 0x202A && point <= 0x202E) ||
         (point >= 0x2066 && point <= 0x2069);
}

bool IsControl(std::int32_t point) {
  return point < 0x20 || (point >= 0x7F && point < 0xA0) || point == 0x2028 || point == 0x2029;
}

std::string Hexadecimal(std::int32_t number, std::size_t digits) {
  std::string text(digits, '0');
  for (std::size_t at = digits; at-- > 0; number /= 16) text[at] = "0123456789abcdef"[number % 16];
  return text;
}

std::string Escaped(std::int32_t point) {
  switch (point) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return point < 0x100 ? "\\x" + Hexadecimal(point, 2) : "\\u" + Hexadecimal(point, 4);
  }
}

/// The bytes at the start of the text that fit into so many columns.
std::size_t FittingBytes(std::string_view text, std::size_t columns) {
  std::size_t bytes = 0;
  while (bytes < text.size()) {
    const Character next = NextCharacter(text.substr(bytes));
    if (ColumnsOf(next.Point) > columns) break;
    columns -= ColumnsOf(next.Point);
    bytes += next.Bytes;
  }
  return bytes;
}

void Append(StyledText& text, std::string_view piece, Tone tone) {
  if (piece.empty()) return;
  if (!text.empty() && text.back().Tone == tone) {
    text.back().Text += piece;
  } else {
    text.push_back({std::string(piece), tone});
  }
}

/// How much of the word's first bytes to leave in a line that has room for those: up to a separator or the
/// next capital, where there is one.
std::size_t BreakIn(std::string_view word, std::size_t fitting) {
  const auto isSmall = [](char c) { return c >= 'a' && c <= 'z'; };
  const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
  for (std::size_t at = fitting; at > 1; --at) {
    const char before = word[at - 1];
    if (std::string_view(".,/\\").find(before) != std::string_view::npos) return at;
    if (isSmall(before) && isCapital(word[at])) return at;
  }
  return fitting;
}

/// Breaks one styled text into lines, word by word.
class Wrapper {
 public:
  explicit Wrapper(std::size_t columns) : mColumns(std::max<std::size_t>(columns, 1)) {}

  void Add(std::string_view text, Tone tone) {
    while (!text.empty()) {
      const auto blank = text.find(' ');
      Word(text.substr(0, blank), tone);
      if (blank == std::string_view::npos) return;
      mBlanks += mUsed > 0 ? 1 : 0;
      text.remove_prefix(blank + 1);
    }
  }
  std::vector<StyledText> Lines() && { return std::move(mLines); }

 private:
  void Word(std::string_view word, Tone tone) {
    if (word.empty()) return;
    if (mBlanks > 0) {
      if (mUsed + mBlanks + Width(word) > mColumns) {
        Break();
      } else {
        Put(std::string(mBlanks, ' '), tone);
      }
      mBlanks = 0;
    }
    while (mUsed + Width(word) > mColumns) {
      std::size_t fitting = FittingBytes(word, mColumns - mUsed);
      if (fitting == 0 && mUsed == 0) fitting = NextCharacter(word).Bytes;
      fitting = BreakIn(word, fitting);
      Put(word.substr(0, fitting), tone);
      word.remove_prefix(fitting);
      if (word.empty()) return;
      Break();
    }
    Put(word, tone);
  }
  void Put(std::string_view piece, Tone tone) {
    Append(mLines.back(), piece, tone);
    mUsed += Width(piece);
  }
  void Break() {
    mLines.emplace_back();
    mUsed = 0;
  }

  std::size_t mColumns;
  std::size_t mUsed = 0;
  std::size_t mBlanks = 0;  // that stand between the line and the next word
  std::vector<StyledText> mLines{1};
};

std::string_view ControlSequence(Tone tone) {
  switch (tone) {
    case Tone::Title:
      return "\x1b[1m";
    case Tone::Heading:
      return "\x1b[1;36m";
    case Tone::Quiet:
      return "\x1b[2m";
    case Tone::Link:
      return "\x1b[36m";
    case Tone::Repetition:
      return "\x1b[35m";
    case Tone::Condition:
      return "\x1b[33m";
    case Tone::Alarm:
      return "\x1b[31m";
    default:
      return {};
  }
}

/// A colour value such as `#ffcc00` on a ground of that colour, with the text in front of it as it is.
std::string Swatch(const std::string& text) {
  const auto hash = text.find('#');
  if (hash == std::string::npos || text.size() < hash + 7) return text;
  std::array<long, 3> parts{};
  std::string ground;
  for (std::size_t part = 0; part < parts.size(); ++part) {
    parts[part] = std::strtol(text.substr(hash + 1 + 2 * part, 2).c_str(), nullptr, 16);
    ground += ";" + std::to_string(parts[part]);
  }
  const bool isLight = parts[0] * 299 + parts[1] * 587 + parts[2] * 114 > 128000;
  return text.substr(0, hash) + "\x1b[" + (isLight ? "30" : "97") + ";48;2" + ground + "m" +
         text.substr(hash) + "\x1b[0m";
}

}  // namespace

std::size_t Width(std::string_view text) {
  std::size_t columns = 0;
  while (!text.empty()) {
    const Character next = NextCharacter(text);
    columns += ColumnsOf(next.Point);
    text.remove_prefix(next.Bytes);
  }
  return columns;
}

std::size_t Width(const StyledText& text) {
  std::size_t columns = 0;
  for (const Span& span : text) columns += Width(span.Text);
  return columns;
}

std::string Printable(std::string_view text) {
  std::string printable;
  printable.reserve(text.size());
  while (!text.empty()) {
    const Character next = NextCharacter(text);
    if (next.Point < 0) {
      printable += "\xEF\xBF\xBD";
    } else if (IsControl(next.Point) || TurnsDirection(next.Point)) {
      printable += Escaped(next.Point);
    } else {
      printable += text.substr(0, next.Bytes);
    }
    text.remove_prefix(next.Bytes);
  }
  return printable;
}

StyledText Cut(const StyledText& text, std::size_t columns, std::string_view ellipsis) {
  if (Width(text) <= columns) return text;
  std::size_t left = columns - std::min(columns, Width(ellipsis));
  StyledText cut;
  for (const Span& span : text) {
    const std::size_t bytes = FittingBytes(span.Text, left);
    Append(cut, std::string_view(span.Text).substr(0, bytes), span.Tone);
    if (bytes < span.Text.size()) break;
    left -= Width(span.Text);
  }
  Append(cut, ellipsis.substr(0, FittingBytes(ellipsis, columns)), Tone::Quiet);
  return cut;
}

std::vector<StyledText> Wrap(const StyledText& text, std::size_t columns) {
  Wrapper wrapper(columns);
  for (const Span& span : text) wrapper.Add(span.Text, span.Tone);
  return std::move(wrapper).Lines();
}

std::string Painted(const StyledText& text, bool trueColour) {
  std::string painted;
  for (const Span& span : text) {
    if (span.Text.empty()) continue;
    const auto sequence = ControlSequence(span.Tone);
    if (span.Tone == Tone::Colour && trueColour) {
      painted += Swatch(span.Text);
    } else if (sequence.empty()) {
      painted += span.Text;
    } else {
      ((painted += sequence) += span.Text) += "\x1b[0m";
    }
  }
  return painted;
}

std::string Unpainted(const StyledText& text) {
  std::string unpainted;
  for (const Span& span : text) unpainted += span.Text;
  return unpainted;
}

}  // namespace lwconfig::tool
