#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace lwconfig::tool {

/// What a piece of text is to its reader; the terminal's colours follow from it.
enum class Tone { Plain, Title, Heading, Quiet, Link, Repetition, Condition, Colour, Alarm };

struct Span {
  std::string Text;
  lwconfig::tool::Tone Tone = Tone::Plain;
};
using StyledText = std::vector<Span>;

/// Takes text part by part.
using Sink = std::function<void(std::string_view)>;

/// The columns that a text takes on a terminal.
std::size_t Width(std::string_view text);
std::size_t Width(const StyledText& text);

/// The text as it can safely be printed in one line: control characters, and those that turn the direction of
/// writing, in the notation `\n`, `\x1b`, `\u202e`; bytes that are not UTF-8 as replacement characters.
std::string Printable(std::string_view text);

/// The beginning of the text that fits into so many columns; where something is left out it ends in
/// `ellipsis`.
StyledText Cut(const StyledText& text, std::size_t columns, std::string_view ellipsis);

/// The text in lines of at most so many columns, broken at blanks, else, where a word alone is too long,
/// inside it: behind a separator or before a capital where it has one. At least one line.
std::vector<StyledText> Wrap(const StyledText& text, std::size_t columns);

/// The text with the control sequences of a colour terminal. `trueColour` shows colour values as themselves.
std::string Painted(const StyledText& text, bool trueColour);
/// The text alone.
std::string Unpainted(const StyledText& text);

}  // namespace lwconfig::tool
