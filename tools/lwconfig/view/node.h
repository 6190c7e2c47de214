#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>
#include <tools/lwconfig/view/styled_text.h>

namespace lwconfig::tool {

using Json = nlohmann::ordered_json;

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

struct Group;

/// One object of the configuration, or a part of one, as it is shown.
struct Node {
  Node();
  Node(std::string kind, std::string title, std::vector<std::string> otherNames = {});

  std::string Kind;
  std::string Title;
  std::vector<std::string> OtherNames{};  // by which it is found besides its title
  StyledText Summary{};                   // what stands beside the title
  std::vector<Property> Properties{};
  std::vector<Group> Groups;
  bool IsExpanded = false;   // its properties are shown also when it is one of many
  std::size_t NotShown = 0;  // objects that lie too deep below it to be shown
};

/// Nodes of one sort below another. A group without a name continues its parent's own tree.
struct Group {
  std::string Name;       // as paths and headings have it
  std::string Published;  // as JSON has it
  std::vector<Node> Nodes{};
  bool IsSingle = false;  // one object rather than a list
  bool IsBrief = false;   // one line of names, unless the object that it belongs to is shown by itself
  std::string Note{};     // what a person should know about it
};

inline Node::Node() = default;
inline Node::Node(std::string kind, std::string title, std::vector<std::string> otherNames)
    : Kind(std::move(kind)), Title(std::move(title)), OtherNames(std::move(otherNames)) {}

/// The levels of a tree that are shown.
inline constexpr int kShownLevels = 200;

}  // namespace lwconfig::tool
