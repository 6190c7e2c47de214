#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <tools/lwconfig/view/node.h>

namespace lwconfig::tool {

/// What the output can show.
struct TextStyle {
  std::size_t Columns = 0;  // 0: lines of any length
  bool IsUnicode = true;
  bool IsColoured = false;
  bool IsTrueColour = false;
};

/// Draws nodes as trees: one line each, those on the same level aligned. Lines longer than the output is wide
/// are cut, values of properties wrapped.
class TreeText {
 public:
  explicit TreeText(const TextStyle& style);

  /// Draws a node with all its properties and what is below it.
  void Add(const Node& node);
  /// Draws the nodes of a group below its heading.
  void Add(const Group& group);
  /// What was drawn, a blank line between two additions.
  std::string Text();

 private:
  struct Glyphs {
    std::string_view Branch, LastBranch, Bar, Gap, Separator, Arrow, Ellipsis;
  };
  struct Line {
    std::string Prefix;
    StyledText Head;
    StyledText Tail{};
    std::string_view Kind{};  // neighbours of one kind have their tails in one column
  };
  static constexpr std::string_view kRow = "row";

  void BeginTree();
  /// Leaves out the outermost levels of deep trees, so that half of a line is left for what stands in it.
  void ShortenPrefixes();
  void AddRows(const Node& node, const std::string& prefix);
  void AddNode(const Node& node, const std::string& prefix, bool isLast);
  void AddBranches(const Node& node, const std::vector<const Group*>& groups, const std::string& prefix);
  std::string Below(const std::string& prefix, bool isLast) const;
  std::string Connected(const std::string& prefix, bool isLast) const;
  StyledText Joined(const StyledText& facets) const;
  std::size_t TailColumn(std::size_t first, std::size_t end) const;
  void Write(const Line& line, std::size_t tailColumn);
  void WriteLine(StyledText text);

  const TextStyle mStyle;
  const Glyphs& mGlyphs;
  std::vector<Line> mLines;
  std::string mText;
};

}  // namespace lwconfig::tool
