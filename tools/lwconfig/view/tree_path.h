#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <tools/lwconfig/view/node.h>

namespace lwconfig::tool {

using Target = std::variant<Node, Group>;

/// What a path led to; where a part of it names nothing, that part and what there is in its place.
struct Found {
  std::vector<Target> Targets{};  // several where names are not unique
  std::string Unknown{};
  std::vector<std::string> Existing{};
  std::vector<std::string> OtherNames{};  // that would have been found as well
};

/// Follows the path: names of groups and nodes, separated by slashes, without regard to letter case. A name
/// that contains slashes itself is written as it is. A node is found below its parent at any depth of the
/// parent's own tree.
Found FollowPath(Node root, std::string_view path);

}  // namespace lwconfig::tool
