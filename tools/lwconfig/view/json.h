#pragma once

#include <tools/lwconfig/view/node.h>

namespace lwconfig::tool {

/// The node with everything below it, under published names.
Json ToJson(const Node& node);
/// The nodes of the group as a list, or its one node.
Json ToJson(const Group& group);

/// The JSON text, indented, as UTF-8; bytes that are not UTF-8 become replacement characters.
std::string JsonText(const Json& json);

}  // namespace lwconfig::tool
