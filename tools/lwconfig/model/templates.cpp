#include <tools/lwconfig/model/describe.h>

#include <lwconfig/core/base/colour.h>

namespace lwconfig::tool {
namespace {

/// A colour with what it colours in front.
Property Colour(const char* label, const char* part, std::int32_t colour) {
  return {label, {part + (" " + ColourText(colour)), Tone::Colour}};
}

Property Flag(const char* label, const char* text, bool value) {
  return {label, {value ? text : ""}};
}

Property DefaultContents(const char* use, const std::string& contents) {
  return {"default contents", {contents.empty() ? "" : use + (": " + contents)}};
}

Property Texts(const char* label, const Collection& collection) {
  std::string joined;
  for (const std::string& text : collection) joined += (joined.empty() ? "" : ", ") + text;
  return {label, {joined}};
}

std::vector<Property> PropertiesOf(const PageTemplate& t) {
  return {
      Labelled("description", t.Description),
      {"folder", {ShownPath(t.RootFolder)}},
      Labelled("category", t.TemplateCategory),
      Labelled("version", t.Version),
      Labelled("supports", t.Supports),
      Texts("item types", *t.SupportedItemTypes),
      Labelled("languages", t.Languages),
      Texts("namespaces", *t.NamespaceProfileNames()),
      Flag("namespaces", "no standard support", t.NoStandardSupport),
      Texts("plug-ins", *t.EnabledPlugins),
      Labelled("style sheet", t.StyleSheet),
      Colour("objects", "fill", t.objFillColor),
      Colour("objects", "text", t.objTextColor),
      Colour("objects", "border", t.objBorderColor),
      Colour("collections", "fill", t.colFillColor),
      Colour("collections", "text", t.colTextColor),
      Colour("collections", "border", t.colBorderColor),
      {"diagrams", {"border width " + std::to_string(t.BorderWidth)}},
      Flag("diagrams", "drop shadow", t.UseDropShadow),
      Flag("diagrams", "centred captions", t.CenterCaptions),
      Flag("diagrams", "bold captions", t.DiagramBold),
      Flag("diagrams", "shapes", t.UseDiagramShapes),
      DefaultContents("project", t.DefTOCVBProject),
      DefaultContents("project group", t.DefTOCVBProjectGroup),
      DefaultContents("mixture", t.DefTOCMixture),
      DefaultContents("component", t.DefTOCComponent),
      DefaultContents("component group", t.DefTOCComponentGroup),
  };
}

Node Describe(const PageTemplate& t) {
  Node node{"template", t.Name};
  node.OtherNames = {FolderName(t.RootFolder)};
  node.IsExpanded = true;
  node.Properties = PropertiesOf(t);
  node.Groups = {tool::Describe(*t.PageLayouts()), tool::Describe(*t.TOCDefinitions),
                 tool::Describe(*t.VariableDefs)};
  return node;
}

}  // namespace

Group Describe(const PageTemplates& templates) {
  return {"templates", "PageTemplates",
          EachOf(templates, [](const PageTemplate& pageTemplate) { return Describe(pageTemplate); })};
}

}  // namespace lwconfig::tool
