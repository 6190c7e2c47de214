#pragma once

#include <string>
#include <vector>

#include <tools/lwconfig/view/styled_text.h>
#include <tools/lwconfig/view/tree_text.h>

namespace lwconfig::tool {

/// Rows of cells below a heading each, in aligned columns. Where the output is too narrow for them, the
/// widest columns are folded, up to a few lines for each cell; lines that are still too long are cut.
class Table {
 public:
  explicit Table(std::vector<std::string> headings);

  /// One cell for each heading.
  void Add(StyledText cells);
  std::string Text(const TextStyle& style) const;

 private:
  std::vector<StyledText> mRows;
};

}  // namespace lwconfig::tool
