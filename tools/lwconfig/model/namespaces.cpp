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
      Unlabelled("Name", definition.Name),
      Valued("Caption", definition.Caption, "caption"),
      Valued("CaptionPlural", definition.CaptionPlural, "plural"),
      Valued("CommenterCaption", definition.CommenterCaption, "commenter caption"),
      Valued("Handler", definition.Handler, "handler"),
      Unlabelled("ProvideIncludeFlag", definition.ProvideIncludeFlag),
      {"DefaultIncludeFlag",
       definition.DefaultIncludeFlag,
       "include flag",
       {!definition.ProvideIncludeFlag  ? ""
        : definition.DefaultIncludeFlag ? "on by default"
                                        : "off by default"}},
      Valued("Tree_Icon", definition.Tree_Icon, "tree icon"),
      Valued("Tree_CaptionTemplate", definition.Tree_CaptionTemplate, "tree caption"),
      {"Tree_AlwaysPopulate",
       definition.Tree_AlwaysPopulate,
       "tree",
       {definition.Tree_AlwaysPopulate ? "always populated" : ""}},
      {"Tree_AlwaysExpand",
       definition.Tree_AlwaysExpand,
       "tree",
       {definition.Tree_AlwaysExpand ? "always expanded" : ""}},
      {"Tree_ShowFolder", definition.Tree_ShowFolder, "tree", {definition.Tree_ShowFolder ? "folder" : ""}},
      {"Tree_AllowExclude",
       definition.Tree_AllowExclude,
       "tree",
       {definition.Tree_AllowExclude ? "" : "cannot be excluded"}},
      {"Tree_ShowInSelect",
       definition.Tree_ShowInSelect,
       "selection tree",
       {definition.Tree_ShowInSelect ? "shown" : ""}},
      {"Tree_Select_AlwaysPopulate",
       definition.Tree_Select_AlwaysPopulate,
       "selection tree",
       {definition.Tree_Select_AlwaysPopulate ? "always populated" : ""}},
      {"Tree_ShowFolderInSelect",
       definition.Tree_ShowFolderInSelect,
       "selection tree",
       {definition.Tree_ShowFolderInSelect ? "folder" : ""}},
      Valued("FileNameFormat", definition.FileNameFormat, "file name"),
      Valued("Flags", definition.Flags, "flags"),
      Valued("ID", definition.ID, "id"),
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
      Unlabelled("Name", profile.Name),
      Valued("Caption", profile.Caption, "caption"),
      Valued("CommenterCaption", profile.CommenterCaption, "commenter caption"),
      Valued("Supports", profile.Supports, "supports"),
      {"IsFile", profile.IsFile, "supports", {profile.IsFile ? "files" : ""}},
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
