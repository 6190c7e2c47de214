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

}  // namespace lwconfig::tool
