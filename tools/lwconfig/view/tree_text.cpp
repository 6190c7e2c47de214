#include <algorithm>
#include <utility>

#include <tools/lwconfig/view/tree_text.h>

namespace lwconfig::tool {
namespace {

constexpr std::size_t kLeastValueColumns = 20;
constexpr std::size_t kMostHeadColumns = 48;

StyledText Heading(const Group& group) {
  StyledText heading{{Printable(group.Name), Tone::Heading}};
  if (!group.IsSingle) heading.push_back({" (" + std::to_string(group.Nodes.Count()) + ")", Tone::Quiet});
  return heading;
}

StyledText Title(const Node& node, Tone tone) {
  if (node.Title.empty()) return {{"(no name)", Tone::Quiet}};
  return {{Printable(node.Title), tone}};
}

StyledText NoteOf(const Group& group) {
  return group.Note.empty() ? StyledText{} : StyledText{{group.Note, Tone::Alarm}};
}

bool IsVisible(const Property& property) {
  return !property.Text.Text.empty();
}

/// The groups that are drawn as branches; brief ones only below a node that is shown by itself.
std::vector<const Group*> BranchesOf(const Node& node, bool isAlone, int level) {
  std::vector<const Group*> branches;
  for (const Group& group : node.Groups) {
    const bool isTooDeep = group.Name.empty() && level >= kShownLevels;
    if (!group.Nodes.IsEmpty() && !isTooDeep && (isAlone || !group.IsBrief)) branches.push_back(&group);
  }
  return branches;
}

bool HasBranches(const Node& node, bool isAlone) {
  return !BranchesOf(node, isAlone, 0).empty();
}

/// The end of a prefix, which consists of characters one column wide.
std::string_view LastColumns(std::string_view prefix, std::size_t columns) {
  std::size_t at = prefix.size();
  for (; at > 0 && columns > 0; --columns) {
    do --at;
    while (at > 0 && (prefix[at] & 0xC0) == 0x80);
  }
  return prefix.substr(at);
}

std::string Names(const Group& group) {
  std::string names;
  for (std::size_t at = 0; at < group.Nodes.Count(); ++at)
    names += (at == 0 ? "" : ", ") + group.Nodes[at].Title;
  return names;
}

}  // namespace

TreeText::TreeText(const TextStyle& style, Sink sink)
    : mStyle(style),
      mGlyphs([&style]() -> const Glyphs& {
        static constexpr Glyphs kUnicode{"├─ ", "└─ ", "│  ", "   ", " · ", "→ ", "…"};
        static constexpr Glyphs kAscii{"|- ", "`- ", "|  ", "   ", ", ", "-> ", "..."};
        return style.IsUnicode ? kUnicode : kAscii;
      }()),
      mSink(std::move(sink)) {}

void TreeText::Add(const Node& node) {
  BeginTree();
  Add({{}, Title(node, Tone::Title)});
  AddRows(node, std::string(HasBranches(node, true) ? mGlyphs.Bar : mGlyphs.Gap));
  AddBranches(node, BranchesOf(node, true, 0), {}, 0);
}

void TreeText::Add(const Group& group) {
  BeginTree();
  Add({{}, Heading(group), NoteOf(group)});
  if (group.IsSingle) return AddRows(group.Nodes[0], std::string(mGlyphs.Gap));
  for (std::size_t at = 0; at < group.Nodes.Count(); ++at)
    AddNode(group.Nodes[at], {}, at + 1 == group.Nodes.Count(), 1);
}

void TreeText::End() {
  WriteLines();
  mSink(std::exchange(mText, {}));
}

void TreeText::BeginTree() {
  if (std::exchange(mIsBegun, true)) Add(Line());
}

void TreeText::Add(Line line) {
  if (!mLines.empty() && (mLines.back().Kind != line.Kind || mLines.size() == kMostAligned)) WriteLines();
  if (mStyle.Columns > 0) ShortenPrefix(line.Prefix);
  mLines.push_back(std::move(line));
}

void TreeText::ShortenPrefix(std::string& prefix) const {
  if (Width(prefix) <= mStyle.Columns / 2) return;
  const std::size_t rest = mStyle.Columns / 2 - Width(mGlyphs.Ellipsis);
  prefix = std::string(mGlyphs.Ellipsis) + std::string(LastColumns(prefix, rest));
}

void TreeText::WriteLines() {
  const std::size_t tailColumn = TailColumn();
  for (const Line& line : mLines) Write(line, tailColumn);
  mLines.clear();
  constexpr std::size_t kPart = 65536;
  if (mText.size() > kPart) mSink(std::exchange(mText, {}));
}

void TreeText::AddRows(const Node& node, const std::string& prefix) {
  const std::string* label = nullptr;
  StyledText values;
  const auto finishRow = [&] {
    if (!values.empty()) Add({prefix, {{*label, Tone::Quiet}}, Joined(values), kRow});
    values.clear();
  };
  for (const Property& property : node.Properties) {
    if (!IsVisible(property)) continue;
    if (label != nullptr && *label != property.Label) finishRow();
    label = &property.Label;
    values.push_back(property.Text);
  }
  finishRow();
}

void TreeText::AddNode(const Node& node, const std::string& prefix, bool isLast, int level) {
  const bool isPlain = !node.IsExpanded && !HasBranches(node, true);
  Add({Connected(prefix, isLast), Title(node, isPlain ? Tone::Plain : Tone::Title), Joined(node.Summary),
       node.IsExpanded ? std::string_view() : node.Kind});
  const std::string below = Below(prefix, isLast);
  const std::string rowPrefix = below + std::string(HasBranches(node, false) ? mGlyphs.Bar : mGlyphs.Gap);
  if (node.IsExpanded) AddRows(node, rowPrefix);
  for (const Group& group : node.Groups) {
    if (group.IsBrief && !group.Nodes.IsEmpty())
      Add({rowPrefix, {{group.Name, Tone::Quiet}}, {{Printable(Names(group))}}, kRow});
  }
  AddBranches(node, BranchesOf(node, false, level), below, level);
}

void TreeText::AddBranches(const Node& node, const std::vector<const Group*>& groups,
                           const std::string& prefix, int level) {
  const std::size_t notShown = CountNotShown(node, level);
  std::size_t left = notShown > 0 ? 1 : 0;
  for (const Group* group : groups) left += group->Name.empty() ? group->Nodes.Count() : 1;
  for (const Group* groupAt : groups) {
    const Group& group = *groupAt;
    std::string below = prefix;
    if (!group.Name.empty()) {
      const bool isLast = --left == 0;
      Add({Connected(prefix, isLast), Heading(group), NoteOf(group)});
      below = Below(prefix, isLast);
    }
    for (std::size_t at = 0; at < group.Nodes.Count(); ++at) {
      const bool isLast = group.Name.empty() ? --left == 0 : at + 1 == group.Nodes.Count();
      AddNode(group.Nodes[at], below, isLast, level + 1);
    }
  }
  if (notShown > 0) {
    Add({Connected(prefix, true),
         {{"deeper levels not shown (" + std::to_string(notShown) + ")", Tone::Alarm}}});
  }
}

std::string TreeText::Below(const std::string& prefix, bool isLast) const {
  return prefix + std::string(isLast ? mGlyphs.Gap : mGlyphs.Bar);
}
std::string TreeText::Connected(const std::string& prefix, bool isLast) const {
  return prefix + std::string(isLast ? mGlyphs.LastBranch : mGlyphs.Branch);
}

StyledText TreeText::Joined(const StyledText& facets) const {
  StyledText joined;
  for (const Span& facet : facets) {
    if (facet.Text.empty()) continue;
    if (facet.Tone == Tone::Link) {
      joined.push_back({(joined.empty() ? "" : " ") + std::string(mGlyphs.Arrow), Tone::Quiet});
    } else if (!joined.empty()) {
      joined.push_back({std::string(mGlyphs.Separator), Tone::Quiet});
    }
    joined.push_back({Printable(facet.Text), facet.Tone});
  }
  return joined;
}

std::size_t TreeText::TailColumn() const {
  const std::size_t most =
      mStyle.Columns == 0 ? kMostHeadColumns : std::min(kMostHeadColumns, mStyle.Columns / 2);
  std::size_t column = 0;
  for (const Line& line : mLines) {
    const std::size_t width = Width(line.Prefix) + Width(line.Head) + 2;
    if (!line.Tail.empty() && width <= most) column = std::max(column, width);
  }
  return column;
}

void TreeText::Write(const Line& line, std::size_t tailColumn) {
  StyledText text{{line.Prefix, Tone::Quiet}};
  text.insert(text.end(), line.Head.begin(), line.Head.end());
  if (line.Tail.empty()) return WriteLine(std::move(text));

  const auto indented = [&line](std::size_t column) {
    return StyledText{{line.Prefix, Tone::Quiet}, {std::string(column - Width(line.Prefix), ' ')}};
  };
  std::size_t column = std::max(tailColumn, Width(text) + 2);
  const bool isWrapped = line.Kind == kRow && mStyle.Columns > 0;
  if (isWrapped && column + kLeastValueColumns > mStyle.Columns) {
    WriteLine(std::move(text));
    column = Width(line.Prefix) + 2;
    text = indented(column);
  } else {
    text.push_back({std::string(column - Width(text), ' ')});
  }
  const auto pieces =
      isWrapped ? Wrap(line.Tail, mStyle.Columns - column) : std::vector<StyledText>{line.Tail};
  for (const StyledText& piece : pieces) {
    text.insert(text.end(), piece.begin(), piece.end());
    WriteLine(std::move(text));
    text = indented(column);
  }
}

void TreeText::WriteLine(StyledText text) {
  if (mStyle.Columns > 0) text = Cut(text, mStyle.Columns, mGlyphs.Ellipsis);
  mText += mStyle.IsColoured ? Painted(text, mStyle.IsTrueColour) : Unpainted(text);
  mText += '\n';
}

}  // namespace lwconfig::tool
