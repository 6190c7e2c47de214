#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <tools/lwconfig/view/json_value.h>
#include <tools/lwconfig/view/styled_text.h>

namespace lwconfig::tool {

/// One value of a node: under its published name as JSON, and under a label as a person reads it. Without a
/// name it is not part of the JSON, without a text it is not shown to people. Neighbours with one label share
/// a line.
struct Property {
  std::string Name;
  Json Value;
  std::string Label;
  Span Text;
};

/// A property whose text follows from its value: texts and numbers as they are, lists joined by commas, true
/// as "yes" and false, like empty texts and lists, not at all.
Property Valued(std::string name, Json value, std::string label);
/// A property that only JSON has.
Property Unlabelled(std::string name, Json value);

struct Node;

/// Nodes in order. A node is described when it is asked for and not kept, so that what is being read costs
/// memory, not what there is.
class NodeList {
 public:
  NodeList() = default;
  NodeList(std::size_t count, std::function<Node(std::size_t)> describe)
      : mCount(count), mDescribe(std::move(describe)) {}
  /// Nodes that are there already.
  NodeList(std::vector<Node> nodes);

  std::size_t Count() const { return mCount; }
  bool IsEmpty() const { return mCount == 0; }
  /// The node at a place from 0 on.
  Node operator[](std::size_t place) const;

 private:
  std::size_t mCount = 0;
  std::function<Node(std::size_t)> mDescribe;
};

/// Nodes of one sort below another. A group without a name continues its parent's own tree.
struct Group {
  std::string Name;       // as paths and headings have it
  std::string Published;  // as JSON has it
  NodeList Nodes{};
  bool IsSingle = false;  // one object rather than a list
  bool IsBrief = false;   // one line of names, unless the object that it belongs to is shown by itself
  std::string Note{};     // what a person should know about it
};

/// One object of the configuration, or a part of one, as it is shown.
struct Node {
  std::string_view Kind;  // a literal
  std::string Title;
  std::vector<std::string> OtherNames{};  // by which it is found besides its title
  StyledText Summary{};                   // what stands beside the title
  std::vector<Property> Properties{};
  std::vector<Group> Groups{};
  bool IsExpanded = false;  // its properties are shown also when it is one of many
};

inline Node NodeList::operator[](std::size_t place) const {
  return mDescribe(place);
}

/// Calls `visit(node)` for the nodes and those of their own trees, each before what is below it. Nesting of
/// any depth is safe.
template <class Visit>
void WalkTree(NodeList nodes, Visit visit) {
  struct Level {
    NodeList Nodes;
    std::size_t Next = 0;
  };
  std::vector<Level> levels{{std::move(nodes)}};
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.Next == level.Nodes.Count()) {
      levels.pop_back();
      continue;
    }
    Node node = level.Nodes[level.Next++];
    visit(node);
    for (auto group = node.Groups.rbegin(); group != node.Groups.rend(); ++group) {
      if (group->Name.empty() && !group->Nodes.IsEmpty()) levels.push_back({std::move(group->Nodes)});
    }
  }
}

/// How many levels of a tree are shown, from the node on that was asked for.
inline constexpr int kShownLevels = 200;

/// How many nodes of the node's own tree are not shown, where the node is on the last level that is.
std::size_t CountNotShown(const Node& node, int level);

}  // namespace lwconfig::tool
