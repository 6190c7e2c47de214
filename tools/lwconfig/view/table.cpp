#include <algorithm>
#include <utility>

#include <tools/lwconfig/view/table.h>

namespace lwconfig::tool {

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
  std::vector<std::size_t> widths(mRows.front().size());
  for (const StyledText& row : mRows) {
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], Width(row[column].Text));
  }
  std::string text;
  for (const StyledText& row : mRows) {
    StyledText line;
    std::size_t blanks = 0;
    for (std::size_t column = 0; column < row.size(); ++column) {
      // Blanks stand before a text only, so that no line ends in blanks.
      if (!row[column].Text.empty()) {
        line.push_back({std::string(std::exchange(blanks, 0), ' ')});
        line.push_back(row[column]);
      }
      blanks += widths[column] - Width(row[column].Text) + 2;
    }
    if (style.Columns > 0) line = Cut(line, style.Columns, style.IsUnicode ? "…" : "...");
    text += style.IsColoured ? Painted(line, style.IsTrueColour) : Unpainted(line);
    text += '\n';
  }
  return text;
}

}  // namespace lwconfig::tool
