#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include <tools/lwconfig/view/tree_path.h>

#include <lwconfig/core/base/letter_case.h>

namespace lwconfig::tool {
namespace {

/// The bytes at the start of `path` that are `name` as whole parts of the path; 0 for none.
std::size_t LeadingName(std::string_view path, std::string_view name) {
  if (name.empty()) return 0;
  for (std::size_t end = path.size(); end != std::string_view::npos && end > 0;
       end = path.rfind('/', end - 1)) {
    if (EqualIgnoringCase(path.substr(0, end), name)) return end;
  }
  return 0;
}

std::size_t LeadingPart(std::string_view path, const Node& node) {
  std::size_t longest = LeadingName(path, node.Title);
  for (const auto& name : node.OtherNames) longest = std::max(longest, LeadingName(path, name));
  return longest;
}
std::size_t LeadingPart(std::string_view path, const Group& group) {
  return std::max(LeadingName(path, group.Name), LeadingName(path, group.Published));
}

/// Collects the targets that match the start of a path; of those that match differently much the longest.
class Matches {
 public:
  explicit Matches(std::string_view path) : mPath(path) {}

  template <class T>
  bool Offer(const T& candidate) {
    const std::size_t part = LeadingPart(mPath, candidate);
    if (part == 0 || part < mLongest) return false;
    if (part > mLongest) mTargets.clear();
    mLongest = part;
    mTargets.emplace_back(candidate);
    return true;
  }
  /// What is directly below the target: the nodes are those of the whole tree.
  void OfferContent(const Group& group) {
    WalkTree(group.Nodes, [this](const Node& node) { Offer(node); });
  }
  void OfferContent(const Node& node) {
    bool isGroup = false;
    for (const Group& group : node.Groups) isGroup = Offer(group) || isGroup;
    if (isGroup) return;
    for (const Group& group : node.Groups) OfferContent(group);
  }

  std::size_t Longest() const { return mLongest; }
  std::vector<Target> Take() { return std::move(mTargets); }

 private:
  std::string_view mPath;
  std::size_t mLongest = 0;
  std::vector<Target> mTargets;
};

/// Lists what is directly below the target.
void ListContent(const Group& group, Found& found) {
  for (std::size_t at = 0; at < group.Nodes.Count(); ++at) {
    Node node = group.Nodes[at];
    if (!node.Title.empty()) found.Existing.push_back(std::move(node.Title));
    std::ranges::move(node.OtherNames, std::back_inserter(found.OtherNames));
  }
}
void ListContent(const Node& node, Found& found) {
  for (const Group& group : node.Groups) {
    if (group.Name.empty()) {
      ListContent(group, found);
    } else {
      found.Existing.push_back(group.Name);
    }
  }
}

std::string_view WithoutOuterSlashes(std::string_view path) {
  while (path.starts_with('/')) path.remove_prefix(1);
  while (path.ends_with('/')) path.remove_suffix(1);
  return path;
}

}  // namespace

Found FollowPath(Node root, std::string_view path) {
  Found found;
  found.Targets.emplace_back(std::move(root));
  while (!(path = WithoutOuterSlashes(path)).empty()) {
    Matches matches(path);
    for (const Target& target : found.Targets) {
      std::visit([&](const auto& object) { matches.OfferContent(object); }, target);
    }
    if (matches.Longest() == 0) {
      for (const Target& target : std::exchange(found.Targets, {})) {
        std::visit([&](const auto& object) { ListContent(object, found); }, target);
      }
      found.Unknown = path.substr(0, path.find('/'));
      return found;
    }
    found.Targets = matches.Take();
    path.remove_prefix(matches.Longest());
  }
  return found;
}

}  // namespace lwconfig::tool
