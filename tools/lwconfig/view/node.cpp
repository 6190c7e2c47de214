#include <memory>

#include <tools/lwconfig/view/node.h>

namespace lwconfig::tool {

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
