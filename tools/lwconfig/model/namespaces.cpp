#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

std::string IncludeFlag(const NamespaceDef& definition) {
  if (!definition.ProvideIncludeFlag) return {};
  return definition.DefaultIncludeFlag ? "include on" : "include off";
}

NodeList DescribeDefinitions(const NamespaceDefs* definitions);

std::vector<Property> PropertiesOf(const NamespaceDef& definition) {
  return {
      Labelled("caption", definition.Caption),
      Labelled("plural", definition.CaptionPlural),
      Labelled("commenter caption", definition.CommenterCaption),
      Labelled("handler", definition.Handler),
      {"include flag",
       {!definition.ProvideIncludeFlag  ? ""
        : definition.DefaultIncludeFlag ? "on by default"
                                        : "off by default"}},
      Labelled("tree icon", definition.Tree_Icon),
      Labelled("tree caption", definition.Tree_CaptionTemplate),
      {"tree", {definition.Tree_AlwaysPopulate ? "always populated" : ""}},
      {"tree", {definition.Tree_AlwaysExpand ? "always expanded" : ""}},
      {"tree", {definition.Tree_ShowFolder ? "folder" : ""}},
      {"tree", {definition.Tree_AllowExclude ? "" : "cannot be excluded"}},
      {"selection tree", {definition.Tree_ShowInSelect ? "shown" : ""}},
      {"selection tree", {definition.Tree_Select_AlwaysPopulate ? "always populated" : ""}},
      {"selection tree", {definition.Tree_ShowFolderInSelect ? "folder" : ""}},
      Labelled("file name", definition.FileNameFormat),
      Labelled("flags", definition.Flags),
      Labelled("id", definition.ID),
  };
}

Node Describe(const NamespaceDef& definition) {
  Node node{"definition", definition.Name};
  node.Summary = {{definition.Caption}, {IncludeFlag(definition), Tone::Quiet}};
  node.Properties = PropertiesOf(definition);
  node.Groups.push_back({"", "ChildNamespaceDefs", DescribeDefinitions(definition.ExistingChildren())});
  return node;
}

NodeList DescribeDefinitions(const NamespaceDefs* definitions) {
  if (definitions == nullptr) return {};
  return EachOf(*definitions, [](const NamespaceDef& definition) { return Describe(definition); });
}

Node Describe(const NamespaceDefs& profile) {
  Node node{"profile", profile.Name};
  node.IsExpanded = true;
  node.Properties = {
      Labelled("caption", profile.Caption),
      Labelled("commenter caption", profile.CommenterCaption),
      Labelled("supports", profile.Supports),
      {"supports", {profile.IsFile ? "files" : ""}},
  };
  node.Groups.push_back({"definitions", "NamespaceDefs", DescribeDefinitions(&profile)});
  node.Groups.push_back(tool::Describe(*profile.ElementDefs));
  return node;
}

}  // namespace

Group Describe(const NamespaceProfiles& profiles) {
  return {"namespaces", "NamespaceProfiles",
          EachOf(profiles, [](const NamespaceDefs& profile) { return Describe(profile); })};
}

}  // namespace lwconfig::tool
