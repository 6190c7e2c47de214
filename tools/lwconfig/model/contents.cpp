#include <unordered_map>
#include <utility>

#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

/// The tree that the flat nodes of a contents definition form.
class ContentsTree {
 public:
  explicit ContentsTree(const NodeDefs& nodes) {
    for (const auto& node : nodes) mBranches[node.get()];
    for (const auto& node : nodes) {
      const auto parent = mBranches.find(node->ParentNodeDef().get());
      (parent == mBranches.end() ? mRoots : parent->second.Children).push_back(node.get());
    }
    for (const NodeDef* root : mRoots) CountBelow(*root);
    for (const auto& node : nodes) {
      if (!mBranches[node.get()].IsReached) mUnreached.push_back(node.get());
    }
  }

  std::vector<Node> Describe() { return Describe(mRoots, 1); }
  /// The nodes that no root leads to, because their parents lead back to themselves.
  std::vector<Node> DescribeUnreached() {
    std::vector<Node> nodes;
    for (const NodeDef* node : mUnreached) {
      nodes.push_back(Describe(*node, !mBranches[node].Children.empty()));
      nodes.back().Summary.push_back({node->Key + " below " + node->ParentKey(), Tone::Alarm});
    }
    return nodes;
  }

 private:
  struct Branch {
    std::vector<const NodeDef*> Children;
    bool IsReached = false;
  };

  /// Marks the node and all below it as reached; returns how many are below it.
  std::size_t CountBelow(const NodeDef& top) {
    std::vector<const NodeDef*> pending{&top};
    std::size_t count = 0;
    for (; !pending.empty(); ++count) {
      Branch& branch = mBranches[pending.back()];
      pending.pop_back();
      branch.IsReached = true;
      pending.insert(pending.end(), branch.Children.begin(), branch.Children.end());
    }
    return count - 1;
  }

  std::vector<Node> Describe(const std::vector<const NodeDef*>& nodes, int level) {
    std::vector<Node> described;
    for (const NodeDef* node : nodes) {
      const auto& children = mBranches[node].Children;
      Node& shown = described.emplace_back(Describe(*node, !children.empty()));
      if (level < kShownLevels) {
        shown.Groups.push_back({"", "ChildNodeDefs", Describe(children, level + 1)});
      } else {
        shown.NotShown = CountBelow(*node);
      }
    }
    return described;
  }

  static Node Describe(const NodeDef& node, bool hasChildren);

  std::unordered_map<const NodeDef*, Branch> mBranches;
  std::vector<const NodeDef*> mRoots;
  std::vector<const NodeDef*> mUnreached;
};

std::string IconOf(const NodeDef& node, bool hasChildren) {
  std::string icon = node.UseCustomIcon ? "icon " + std::to_string(node.NodeIconIndex())
                     : hasChildren      ? "book"
                                        : "page";
  return node.MarkAsNew ? icon + ", new" : icon;
}

std::string ProducerOf(const NodeDef& node) {
  switch (node.NodeType) {
    case ntStandard:
      return {};
    case ntSmart:
      return node.PageTypeNamespace.empty()
                 ? "repeats"
                 : Repetition(node.PageTypeNamespace, node.PageTypeNamespaceFilter);
    case ntPlugIn:
      return "by plug-in " + node.PlugInName + (node.PlugInData.empty() ? "" : " (" + node.PlugInData + ")");
  }
  return "node type " + std::to_string(node.NodeType);
}

Node ContentsTree::Describe(const NodeDef& node, bool hasChildren) {
  const std::string icon = IconOf(node, hasChildren);
  const std::string producer = ProducerOf(node);
  const std::string condition =
      Condition(node.DependantOnNamespace, node.DependantOnNamespace_Filter, node.DependantCount);
  const std::string link = node.LinkToPage || node.PageLayoutFileName().empty() ? "" : "no link";
  const std::string topic = node.IsDefaultTopic ? "default topic" : "";
  Node shown{"node", node.NodeCaptionTemplate, {node.Key}};
  shown.Summary = {{icon, node.MarkAsNew ? Tone::Alarm : Tone::Quiet},
                   {producer, Tone::Repetition},
                   {node.PageLayoutFileName(), Tone::Link},
                   {link, Tone::Quiet},
                   {condition, Tone::Condition},
                   {topic, Tone::Title}};
  shown.Properties = {
      Valued("Key", node.Key, "key"),
      Unlabelled("ParentKey", node.ParentKey()),
      Unlabelled("NodeCaptionTemplate", node.NodeCaptionTemplate),
      {"NodeType", static_cast<std::int32_t>(node.NodeType), "produced", {producer, Tone::Repetition}},
      Unlabelled("PageType", static_cast<std::int32_t>(node.PageType)),
      Unlabelled("PageTypeNamespace", node.PageTypeNamespace),
      Unlabelled("PageTypeNamespaceFilter", node.PageTypeNamespaceFilter),
      Unlabelled("PlugInName", node.PlugInName),
      Unlabelled("PlugInData", node.PlugInData),
      {"PageLayout", node.PageLayoutFileName(), "page", {node.PageLayoutFileName(), Tone::Link}},
      {"LinkToPage", node.LinkToPage, "page", {link}},
      {"IsDefaultTopic", node.IsDefaultTopic, "page", {topic}},
      Valued("FileNameTemplate", node.FileNameTemplate, "file name"),
      {"NodeIconIndex", node.NodeIconIndex(), "icon", {icon}},
      Unlabelled("UseCustomIcon", node.UseCustomIcon),
      Unlabelled("MarkAsNew", node.MarkAsNew),
      Unlabelled("DependantOn", static_cast<std::int32_t>(node.DependantOn)),
      {"DependantOnNamespace", node.DependantOnNamespace, "condition", {condition, Tone::Condition}},
      Unlabelled("DependantOnNamespace_Filter", node.DependantOnNamespace_Filter),
      Unlabelled("DependantCount", node.DependantCount),
      {"DependantStillProcessChildren",
       node.DependantStillProcessChildren,
       "condition",
       {node.DependantStillProcessChildren ? "children also without it" : ""}},
  };
  return shown;
}

Node Describe(const TOCDefinition& definition) {
  ContentsTree tree(*definition.NodeDefs);
  Node node{"contents", definition.Name};
  node.Summary = {{definition.Description, Tone::Quiet}};
  node.Properties = {
      Unlabelled("Name", definition.Name),
      Valued("Description", definition.Description, "description"),
  };
  node.Groups.push_back({"", "NodeDefs", tree.Describe()});
  Group loops{"loops", "NodeDefsInLoops", tree.DescribeUnreached()};
  loops.Note = "their parents lead back to themselves";
  if (!loops.Nodes.empty()) node.Groups.push_back(std::move(loops));
  return node;
}

}  // namespace

Group Describe(const TOCDefinitions& definitions) {
  Group group{"contents", "TOCDefinitions"};
  for (const auto& definition : definitions) group.Nodes.push_back(Describe(*definition));
  return group;
}

}  // namespace lwconfig::tool
