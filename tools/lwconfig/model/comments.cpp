#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

std::vector<Property> PropertiesOf(const TaggedCommentDef& definition, const std::string& usualDesigner) {
  const bool isUsual = definition.DesignerProgID.empty() && !usualDesigner.empty();
  return {
      Unlabelled("TagIdentifier", definition.TagIdentifier),
      Valued("Description", definition.Description, "description"),
      Valued("GroupName", definition.GroupName, "group"),
      Valued("Namespace", definition.Namespace, "applies to"),
      Valued("XMLCommentTypes", definition.XMLCommentTypes, "XML tags"),
      Unlabelled("ElementType", static_cast<std::int32_t>(definition.ElementType)),
      Valued("Format", definition.Format, "format"),
      Valued("IsGeneral", definition.IsGeneral, "general"),
      Unlabelled("WrapType", static_cast<std::int32_t>(definition.WrapType)),
      {"DesignerProgID",
       definition.DesignerProgID,
       "designer",
       {isUsual ? usualDesigner + " (default)" : definition.DesignerProgID}},
      Valued("DesignFlags", definition.DesignFlags, "designer"),
      Valued("Hidden", definition.Hidden, "hidden"),
      Valued("LegacyFor", definition.LegacyFor, "replaced by"),
      Valued("TabName", definition.TabName, "tab"),
      Valued("Tip", definition.Tip, "tip"),
      Valued("Flags", definition.Flags, "flags"),
      Valued("Icon", definition.Icon, "icon"),
      Unlabelled("Standard", definition.Standard),
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
      Unlabelled("Standard", isStandard),
      {"DefaultDesignerProgID",
       definitions.DefaultDesignerProgID,
       "default designer",
       {definitions.DefaultDesignerProgID}},
  };
  std::vector<const TaggedCommentDef*> members;
  for (const auto& definition : definitions) {
    if (definition->Standard == isStandard) members.push_back(definition.get());
  }
  const std::size_t count = members.size();
  part.Summary = {{std::to_string(count) + (count == 1 ? " tag" : " tags")}};
  const auto describe = [members = std::move(members), &definitions](std::size_t place) {
    return Describe(*members[place], definitions.DefaultDesignerProgID);
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
      Unlabelled("MemberName", comment.MemberName),
      Valued("MemberType_Namespace", comment.MemberType_Namespace, "kind of member"),
      Unlabelled("MemberType", comment.MemberType()),
      Valued("TaggedCommentPrefix", comment.TaggedCommentPrefix, "comment"),
      Valued("TaggedCommentText", comment.TaggedCommentText, "text"),
      Unlabelled("OnlyIfBlank", comment.OnlyIfBlank),
      {"InsertionPoint",
       static_cast<std::int32_t>(comment.InsertionPoint),
       "inserted",
       {InsertionPointName(comment)}},
  };
  return node;
}

Node Describe(const ModelComments& profile) {
  Node node{"profile", profile.Name};
  node.IsExpanded = true;
  node.Properties = {
      Unlabelled("Name", profile.Name),
      Valued("Description", profile.Description, "description"),
      Valued("NamespaceProfile", profile.NamespaceProfile, "namespaces"),
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
      Unlabelled("AssemblyFileName", location.AssemblyFileName),
      Valued("CommentFilePath", path, "comment file"),
      {"InternalCommentFilePath",
       location.InternalCommentFilePath(),
       "set as",
       {location.InternalCommentFilePath() == path ? "" : location.InternalCommentFilePath()}},
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
