#include <tools/lwconfig/view/json.h>

namespace lwconfig::tool {

Json ToJson(const Node& node) {
  Json object = Json::object();
  for (const Property& property : node.Properties) {
    if (!property.Name.empty()) object[property.Name] = property.Value;
  }
  for (const Group& group : node.Groups) object[group.Published] = ToJson(group);
  if (node.NotShown > 0) object["DeeperLevelsNotShown"] = node.NotShown;
  return object;
}

Json ToJson(const Group& group) {
  if (group.IsSingle) return ToJson(group.Nodes.front());
  Json list = Json::array();
  for (const Node& node : group.Nodes) list.push_back(ToJson(node));
  return list;
}

std::string JsonText(const Json& json) {
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace lwconfig::tool
