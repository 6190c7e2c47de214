#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

std::vector<Property> PropertiesOf(const TaggedCommentDef& definition, const std::string& usualDesigner) {
  const bool isUsual = definition.DesignerProgID.empty() && !usualDesigner.empty();
  return {
      Labelled("description", definition.Description),
      Labelled("group", definition.GroupName),
      Labelled("applies to", definition.Namespace),
      Labelled("XML tags", definition.XMLCommentTypes),
      Labelled("format", definition.Format),
      Labelled("general", definition.IsGeneral),
      {"designer", {isUsual ? usualDesigner + " (default)" : definition.DesignerProgID}},
      Labelled("designer", definition.DesignFlags),
      Labelled("hidden", definition.Hidden),
      Labelled("replaced by", definition.LegacyFor),
      Labelled("tab", definition.TabName),
      Labelled("tip", definition.Tip),
      Labelled("flags", definition.Flags),
      Labelled("icon", definition.Icon),
  };
}

Node Describe(const TaggedCommentDef& definition, const std::string& usualDesigner) {
  const std::string tags = definition.XMLCommentTypes;
  Node node{"comment", definition.TagIdentifier};
  node.Summary = {{definition.GroupName, Tone::Repetition},
                  {definition.Namespace.empty() ? "" : "for " + definition.Namespace},
                  {tags.empty() ? "" : "XML " + tags, Tone::Condition},
                  {definition.Hidden ? "hidden" : "", Tone::Quiet},
                  {definition.LegacyFor, Tone::Link}};
  node.Properties = PropertiesOf(definition, usualDesigner);
  return node;
}

/// The standard definitions or the custom ones.
Node DescribePart(const TaggedCommentDefs& definitions, bool isStandard) {
  Node part{"part", isStandard ? "standard" : "custom"};
  part.Properties = {
      {"default designer", {definitions.DefaultDesignerProgID}},
  };
  std::vector<std::shared_ptr<TaggedCommentDef>> members;
  for (const auto& definition : definitions) {
    if (definition->Standard == isStandard) members.push_back(definition);
  }
  const std::size_t count = members.size();
  part.Summary = {{std::to_string(count) + (count == 1 ? " tag" : " tags")}};
  const auto describe = [members = std::move(members), &definitions](std::size_t place) {
    Node node = Describe(*members[place], definitions.DefaultDesignerProgID);
    node.Value = automation::ToAnyObject(members[place]);
    return node;
  };
  part.Groups.push_back({"", "TaggedCommentDefs", {count, describe}});
  return part;
}

std::string InsertionPointName(const ModelComment& comment) {
  if (comment.OnlyIfBlank) return "if blank";
  switch (comment.InsertionPoint) {
    case ctPrefix:
      return "in front";
    case ctSuffix:
      return "at the end";
  }
  return "insertion point " + std::to_string(comment.InsertionPoint);
}

Node Describe(const ModelComment& comment) {
  Node node{"model comment", comment.MemberName};
  node.Summary = {{comment.MemberType_Namespace, Tone::Repetition},
                  {InsertionPointName(comment), Tone::Condition},
                  {comment.TaggedCommentPrefix, Tone::Link},
                  {comment.TaggedCommentText, Tone::Quiet}};
  node.Properties = {
      Labelled("kind of member", comment.MemberType_Namespace),
      Labelled("comment", comment.TaggedCommentPrefix),
      Labelled("text", comment.TaggedCommentText),
      {"inserted", {InsertionPointName(comment)}},
  };
  return node;
}

Node Describe(const ModelComments& profile) {
  Node node{"profile", profile.Name};
  node.IsExpanded = true;
  node.Properties = {
      Labelled("description", profile.Description),
      Labelled("namespaces", profile.NamespaceProfile),
  };
  node.Groups.push_back(
      {"", "ModelComments", EachOf(profile, [](const ModelComment& comment) { return Describe(comment); })});
  return node;
}

/// The path, as it is stored where the framework's folder cannot be found out.
std::string ResolvedPath(const CommentFileLocation& location) {
  try {
    return location.CommentFilePath();
  } catch (const Error&) {
    return location.InternalCommentFilePath();
  }
}

Node Describe(const CommentFileLocation& location) {
  Node node{"comment file", location.AssemblyFileName};
  const std::string path = ResolvedPath(location);
  node.Summary = {{path, Tone::Link}};
  node.Properties = {
      Labelled("comment file", path),
      {"set as", {location.InternalCommentFilePath() == path ? "" : location.InternalCommentFilePath()}},
  };
  return node;
}

}  // namespace

Group Describe(const TaggedCommentDefs& definitions) {
  return {"comments", "TaggedCommentDefs",
          std::vector{DescribePart(definitions, true), DescribePart(definitions, false)}};
}

Group Describe(const ModelCommentProfiles& profiles) {
  return {"modelcomments", "ModelCommentProfiles",
          EachOf(profiles, [](const ModelComments& profile) { return Describe(profile); })};
}

Group Describe(const CommentFileLocations& locations) {
  return {"commentfiles", "CommentFileLocations",
          EachOf(locations, [](const CommentFileLocation& location) { return Describe(location); })};
}

}  // namespace lwconfig::tool
