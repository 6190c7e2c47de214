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
  TreeText(const TextStyle& style, Sink sink);

  /// Draws a node with all its properties and what is below it.
  void Add(const Node& node);
  /// Draws the nodes of a group below its heading.
  void Add(const Group& group);
  /// Hands everything drawn to the sink, a blank line between two additions; parts of it were handed over
  /// before.
  void End();

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

  /// The lines that are aligned with each other at most: the output begins before a long list is at its end.
  static constexpr std::size_t kMostAligned = 1000;

  void BeginTree();
  void Add(Line line);
  /// Leaves out the outermost levels of a deep tree, so that half of a line is left for what stands in it.
  void ShortenPrefix(std::string& prefix) const;
  /// Aligns and writes the lines collected.
  void WriteLines();
  void AddRows(const Node& node, const std::string& prefix);
  void AddNode(const Node& node, const std::string& prefix, bool isLast, int level);
  void AddBranches(const Node& node, const std::vector<const Group*>& groups, const std::string& prefix,
                   int level);
  std::string Below(const std::string& prefix, bool isLast) const;
  std::string Connected(const std::string& prefix, bool isLast) const;
  StyledText Joined(const StyledText& facets) const;
  std::size_t TailColumn() const;
  void Write(const Line& line, std::size_t tailColumn);
  void WriteLine(StyledText text);

  const TextStyle mStyle;
  const Glyphs& mGlyphs;
  const Sink mSink;
  std::vector<Line> mLines;  // neighbours of one kind that are not written yet
  bool mIsBegun = false;
  std::string mText;
};

}  // namespace lwconfig::tool
