#include <array>
#include <charconv>
#include <memory>

#include <tools/lwconfig/view/node.h>

namespace lwconfig::tool {
namespace {

struct TextOf {
  std::string operator()(std::nullptr_t) const { return {}; }
  std::string operator()(bool flag) const { return flag ? "yes" : ""; }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(const Json::List& items) const {
    std::string joined;
    for (const Json& item : items) joined += (joined.empty() ? "" : ", ") + std::visit(*this, item.Value());
    return joined;
  }
  std::string operator()(const Json::Object&) const { return {}; }
  template <class Number>
  std::string operator()(Number number) const {
    std::array<char, 32> digits{};
    return {digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr};
  }
};

}  // namespace

Property Valued(std::string name, Json value, std::string label) {
  std::string text = std::visit(TextOf{}, value.Value());
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
