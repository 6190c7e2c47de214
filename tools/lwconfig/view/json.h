#pragma once

#include <vector>

#include <tools/lwconfig/view/node.h>
#include <tools/lwconfig/view/tree_path.h>

namespace lwconfig::tool {

/// Writes the node with everything below it as JSON text, under published names, as far as levels are shown;
/// the nodes of a group as a list, or its one node.
void WriteJson(const Node& node, const Sink& sink);
void WriteJson(const Group& group, const Sink& sink);
/// As above for what a path led to: as itself where it is one target, as a list of several.
void WriteJson(const std::vector<Target>& targets, const Sink& sink);

/// The JSON text, indented, as UTF-8; bytes that are not UTF-8 become replacement characters.
std::string JsonText(const Json& json);

}  // namespace lwconfig::tool
