#include <memory>
#include <unordered_map>
#include <utility>

#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

Node Describe(const std::shared_ptr<NodeDef>& held, bool hasChildren);

/// The tree that the flat nodes of a contents definition form. The lists that it hands out keep it.
class ContentsTree : public std::enable_shared_from_this<ContentsTree> {
 public:
  explicit ContentsTree(const NodeDefs& nodes) {
    for (const auto& node : nodes) mBranches[node.get()];
    for (const auto& node : nodes) {
      const auto parent = mBranches.find(node->ParentNodeDef().get());
      (parent == mBranches.end() ? mRoots : parent->second.Children).push_back(node);
    }
    auto pending = mRoots;
    while (!pending.empty()) {
      Branch& branch = mBranches[pending.back().get()];
      pending.pop_back();
      branch.IsReached = true;
      pending.insert(pending.end(), branch.Children.begin(), branch.Children.end());
    }
    for (const auto& node : nodes) {
      if (!mBranches[node.get()].IsReached) mUnreached.push_back(node);
    }
  }

  NodeList Roots() const { return Below(mRoots); }
  /// The nodes that no root leads to, because their parents lead back to themselves.
  NodeList Unreached() const {
    return {mUnreached.size(), [tree = shared_from_this()](std::size_t place) {
              const auto& node = tree->mUnreached[place];
              Node shown = Describe(node, !tree->mBranches.at(node.get()).Children.empty());
              shown.Summary.push_back({node->Key + " below " + node->ParentKey(), Tone::Alarm});
              return shown;
            }};
  }

 private:
  using Nodes = std::vector<std::shared_ptr<NodeDef>>;
  struct Branch {
    Nodes Children;
    bool IsReached = false;
  };

  /// The nodes, each with the tree below it.
  NodeList Below(const Nodes& nodes) const {
    return {nodes.size(), [tree = shared_from_this(), &nodes](std::size_t place) {
              const auto& children = tree->mBranches.at(nodes[place].get()).Children;
              Node shown = Describe(nodes[place], !children.empty());
              shown.Groups.push_back({"", "ChildNodeDefs", tree->Below(children)});
              return shown;
            }};
  }

  std::unordered_map<const NodeDef*, Branch> mBranches;
  Nodes mRoots;
  Nodes mUnreached;
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

Node Describe(const std::shared_ptr<NodeDef>& held, bool hasChildren) {
  const NodeDef& node = *held;
  const std::string icon = IconOf(node, hasChildren);
  const std::string producer = ProducerOf(node);
  const std::string condition =
      Condition(node.DependantOnNamespace, node.DependantOnNamespace_Filter, node.DependantCount);
  const std::string link = node.LinkToPage || node.PageLayoutFileName().empty() ? "" : "no link";
  const std::string topic = node.IsDefaultTopic ? "default topic" : "";
  Node shown{"node", node.NodeCaptionTemplate, {node.Key}};
  shown.Value = automation::ToAnyObject(held);
  shown.Summary = {{icon, node.MarkAsNew ? Tone::Alarm : Tone::Quiet},
                   {producer, Tone::Repetition},
                   {node.PageLayoutFileName(), Tone::Link},
                   {link, Tone::Quiet},
                   {condition, Tone::Condition},
                   {topic, Tone::Title}};
  shown.Properties = {
      Labelled("key", node.Key),
      {"produced", {producer, Tone::Repetition}},
      {"page", {node.PageLayoutFileName(), Tone::Link}},
      {"page", {link}},
      {"page", {topic}},
      Labelled("file name", node.FileNameTemplate),
      {"icon", {icon}},
      {"condition", {condition, Tone::Condition}},
      {"condition", {node.DependantStillProcessChildren ? "children also without it" : ""}},
  };
  return shown;
}

Node Describe(const TOCDefinition& definition) {
  const auto tree = std::make_shared<const ContentsTree>(*definition.NodeDefs);
  Node node{"contents", definition.Name};
  node.Summary = {{definition.Description, Tone::Quiet}};
  node.Properties = {
      Labelled("description", definition.Description),
  };
  node.Groups.push_back({"", "NodeDefs", tree->Roots()});
  Group loops{"loops", "NodeDefsInLoops", tree->Unreached()};
  loops.Note = "their parents lead back to themselves";
  if (!loops.Nodes.IsEmpty()) node.Groups.push_back(std::move(loops));
  return node;
}

}  // namespace

Group Describe(const TOCDefinitions& definitions) {
  return {"contents", "TOCDefinitions",
          EachOf(definitions, [](const TOCDefinition& definition) { return Describe(definition); })};
}

}  // namespace lwconfig::tool
