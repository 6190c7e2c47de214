#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <tools/lwconfig/view/styled_text.h>

#include <lwconfig/core/base/variant.h>

namespace lwconfig::tool {

/// One value of a node as a person reads it. Without a text it is not shown. Neighbours with one label share
/// a line.
struct Property {
  std::string Label;
  Span Text;
};

inline Property Labelled(std::string label, std::string text) {
  return {std::move(label), {std::move(text)}};
}
/// True as "yes" and false not at all, a number in digits.
template <std::integral T>
Property Labelled(std::string label, T value) {
  if constexpr (std::same_as<T, bool>)
    return {std::move(label), {value ? "yes" : ""}};
  else
    return {std::move(label), {std::to_string(value)}};
}

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
  Variant Value{};          // of the object model: what JSON has
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
