#include <algorithm>
#include <utility>

#include <tools/lwconfig/view/table.h>

namespace lwconfig::tool {
namespace {

constexpr std::size_t kGap = 2;           // between columns
constexpr std::size_t kLeastColumns = 8;  // narrower ones cannot be read
constexpr std::size_t kMostLines = 4;     // of one cell

std::vector<std::size_t> Widths(const std::vector<StyledText>& rows) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const StyledText& row : rows) {
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], Width(row[column].Text));
  }
  return widths;
}

/// Narrows the widest columns to one width, so that all fit into so many.
void Narrow(std::vector<std::size_t>& widths, std::size_t columns) {
  const auto total = [&](std::size_t most) {
    std::size_t sum = kGap * (widths.size() - 1);
    for (const std::size_t width : widths) sum += std::min(width, most);
    return sum;
  };
  std::size_t most = *std::ranges::max_element(widths);
  while (most > kLeastColumns && total(most) > columns) --most;
  std::size_t left = columns - std::min(columns, total(most));
  for (std::size_t& width : widths) {
    const std::size_t more = width > most ? std::min(left, width - most) : 0;
    width = std::min(width, most) + more;
    left -= more;
  }
}

/// The cell in pieces of at most so many columns, one for each line.
StyledText Folded(const Span& cell, std::size_t columns, std::string_view ellipsis) {
  if (Width(cell.Text) <= columns) return {cell};
  StyledText pieces;
  for (const StyledText& line : Wrap({cell}, columns)) {
    if (pieces.size() == kMostLines) {
      Span& last = pieces.back();
      last.Text = Unpainted(Cut({last}, columns - std::min(columns, Width(ellipsis)), "")).append(ellipsis);
      break;
    }
    pieces.push_back({Unpainted(line), cell.Tone});
  }
  return pieces;
}

}  // namespace

Table::Table(std::vector<std::string> headings) {
  StyledText cells;
  for (std::string& heading : headings) cells.push_back({std::move(heading), Tone::Heading});
  mRows.push_back(std::move(cells));
}

void Table::Add(StyledText cells) {
  for (Span& cell : cells) cell.Text = Printable(cell.Text);
  mRows.push_back(std::move(cells));
}

std::string Table::Text(const TextStyle& style) const {
  const std::string_view ellipsis = style.IsUnicode ? "…" : "...";
  const bool isWhole = style.Columns == 0;
  std::vector<std::size_t> widths = Widths(mRows);
  if (!isWhole) Narrow(widths, style.Columns);
  std::vector<StyledText> lines;
  for (const StyledText& row : mRows) {
    const std::size_t first = lines.size();
    for (std::size_t column = 0; column < row.size(); ++column) {
      std::size_t at = first;
      for (Span& piece : Folded(row[column], widths[column], ellipsis)) {
        if (at == lines.size()) lines.emplace_back(row.size());
        lines[at++][column] = std::move(piece);
      }
    }
  }
  widths = Widths(lines);  // folded texts are often narrower than their room
  std::string text;
  for (const StyledText& cells : lines) {
    StyledText line;
    std::size_t blanks = 0;
    for (std::size_t column = 0; column < cells.size(); ++column) {
      // Blanks stand before a text only, so that no line ends in blanks.
      if (!cells[column].Text.empty()) {
        line.push_back({std::string(std::exchange(blanks, 0), ' ')});
        line.push_back(cells[column]);
      }
      blanks += widths[column] - Width(cells[column].Text) + kGap;
    }
    if (!isWhole) line = Cut(line, style.Columns, ellipsis);
    text += style.IsColoured ? Painted(line, style.IsTrueColour) : Unpainted(line);
    text += '\n';
  }
  return text;
}

}  // namespace lwconfig::tool
