#pragma once

#include <string>
#include <vector>

#include <tools/lwconfig/view/styled_text.h>
#include <tools/lwconfig/view/tree_text.h>

namespace lwconfig::tool {

/// Rows of cells below a heading each, in aligned columns. Lines longer than the output is wide are cut.
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
