#include <memory>

#include <tools/lwconfig/view/node.h>

namespace lwconfig::tool {
namespace {

std::string TextOf(const Json& value) {
  if (value.is_string()) return value.get<std::string>();
  if (value.is_boolean()) return value.get<bool>() ? "yes" : "";
  if (value.is_number()) return value.dump();
  std::string joined;
  for (const Json& item : value) joined += (joined.empty() ? "" : ", ") + TextOf(item);
  return joined;
}

}  // namespace

Property Valued(std::string name, Json value, std::string label) {
  std::string text = TextOf(value);
  return {std::move(name), std::move(value), std::move(label), {std::move(text)}};
}

Property Unlabelled(std::string name, Json value) {
  return {std::move(name), std::move(value), {}, {}};
}

NodeList::NodeList(std::vector<Node> nodes) : mCount(nodes.size()) {
  mDescribe = [held = std::make_shared<const std::vector<Node>>(std::move(nodes))](std::size_t place) {
    return (*held)[place];
  };
}

std::size_t CountNotShown(const Node& node, int level) {
  std::size_t count = 0;
  if (level < kShownLevels) return count;
  for (const Group& group : node.Groups) {
    if (group.Name.empty()) WalkTree(group.Nodes, [&count](const Node&) { ++count; });
  }
  return count;
}

}  // namespace lwconfig::tool
