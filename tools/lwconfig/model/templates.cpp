#include <tools/lwconfig/model/describe.h>

#include <lwconfig/core/base/colour.h>

namespace lwconfig::tool {
namespace {

/// A colour with what it colours in front.
Property Colour(const char* name, std::int32_t colour, const char* label, const char* part) {
  return {name, colour, label, {part + (" " + ColourText(colour)), Tone::Colour}};
}

Property Flag(const char* name, bool value, const char* label, const char* text) {
  return {name, value, label, {value ? text : ""}};
}

Property DefaultContents(const char* name, const std::string& contents, const char* use) {
  return {name, contents, "default contents", {contents.empty() ? "" : use + (": " + contents)}};
}

Json Texts(const Collection& collection) {
  Json texts = Json::array();
  for (const std::string& text : collection) texts.push_back(text);
  return texts;
}

Json Names(const NamespaceDefs& definitions) {
  Json names = Json::array();
  for (const auto& definition : definitions) names.push_back(definition->Name);
  return names;
}

std::vector<Property> PropertiesOf(const PageTemplate& t) {
  return {
      Unlabelled("Name", t.Name),
      Valued("Description", t.Description, "description"),
      {"RootFolder", t.RootFolder, "folder", {ShownPath(t.RootFolder)}},
      Valued("TemplateCategory", t.TemplateCategory, "category"),
      Valued("Version", t.Version, "version"),
      Valued("Supports", t.Supports, "supports"),
      Valued("SupportedItemTypes", Texts(*t.SupportedItemTypes), "item types"),
      Valued("Languages", t.Languages, "languages"),
      Valued("NamespaceProfileNames", Texts(*t.NamespaceProfileNames()), "namespaces"),
      Unlabelled("NamespaceDefs", Names(*t.NamespaceDefs)),
      Flag("NoStandardSupport", t.NoStandardSupport, "namespaces", "no standard support"),
      Valued("EnabledPlugins", Texts(*t.EnabledPlugins), "plug-ins"),
      Valued("StyleSheet", t.StyleSheet, "style sheet"),
      Colour("objFillColor", t.objFillColor, "objects", "fill"),
      Colour("objTextColor", t.objTextColor, "objects", "text"),
      Colour("objBorderColor", t.objBorderColor, "objects", "border"),
      Colour("colFillColor", t.colFillColor, "collections", "fill"),
      Colour("colTextColor", t.colTextColor, "collections", "text"),
      Colour("colBorderColor", t.colBorderColor, "collections", "border"),
      {"BorderWidth", t.BorderWidth, "diagrams", {"border width " + std::to_string(t.BorderWidth)}},
      Flag("UseDropShadow", t.UseDropShadow, "diagrams", "drop shadow"),
      Flag("CenterCaptions", t.CenterCaptions, "diagrams", "centred captions"),
      Flag("DiagramBold", t.DiagramBold, "diagrams", "bold captions"),
      Flag("UseDiagramShapes", t.UseDiagramShapes, "diagrams", "shapes"),
      DefaultContents("DefTOCVBProject", t.DefTOCVBProject, "project"),
      DefaultContents("DefTOCVBProjectGroup", t.DefTOCVBProjectGroup, "project group"),
      DefaultContents("DefTOCMixture", t.DefTOCMixture, "mixture"),
      DefaultContents("DefTOCComponent", t.DefTOCComponent, "component"),
      DefaultContents("DefTOCComponentGroup", t.DefTOCComponentGroup, "component group"),
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

std::string FolderName(std::string path) {
  if (path.ends_with('\\')) path.pop_back();
  return path.substr(path.rfind('\\') + 1);
}

Group Describe(const PageTemplates& templates) {
  return {"templates", "PageTemplates",
          EachOf(templates, [](const PageTemplate& pageTemplate) { return Describe(pageTemplate); })};
}

}  // namespace lwconfig::tool
