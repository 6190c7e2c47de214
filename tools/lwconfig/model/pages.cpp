#include <array>
#include <string_view>

#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

std::string PageTypeName(PageTypeEnum type) {
  static constexpr std::array<std::string_view, 16> kNames{
      "standard",    "object",        "collection",  "method",      "property", "event",
      "enumeration", "structure",     "library",     "declaration", "project",  "module",
      "interface",   "project group", "source code", "example"};
  if (type == kNoPageType) return "no page type";
  const auto number = static_cast<std::size_t>(type);
  return number < kNames.size() ? std::string(kNames[number]) : "page type " + std::to_string(type);
}

Node Describe(const PageLayout& layout) {
  const std::string kind = layout.IsHTMLHelpProjectFile() ? "help project" : PageTypeName(layout.PageType);
  const std::string repetition = Repetition(layout.Namespace, {});
  const std::string condition =
      Condition(layout.DependantOnNamespace, layout.DependantOnNamespace_Filter, layout.DependantCount);
  Node node{"layout", layout.FileName};
  node.Summary = {{kind},
                  {repetition, Tone::Repetition},
                  {layout.TitleTemplate, Tone::Link},
                  {condition, Tone::Condition}};
  node.Properties = {
      Labelled("name", layout.Name),
      {"kind", {kind}},
      {"repeats", {repetition, Tone::Repetition}},
      {"file names", {layout.TitleTemplate}},
      {"condition", {condition, Tone::Condition}},
  };
  return node;
}

std::string VariableTypeName(VariableDefTypeEnum type) {
  static constexpr std::array<std::string_view, 5> kNames{"text", "HTML", "number", "date", "colour"};
  const auto number = static_cast<std::size_t>(type);
  return number < kNames.size() ? std::string(kNames[number]) : "kind " + std::to_string(type);
}

Node Describe(const VariableDef& variable) {
  const std::string type = VariableTypeName(variable.VariableDefType);
  Node node{"variable", variable.Name};
  node.Summary = {{type, Tone::Repetition},
                  {variable.DefaultValue.empty() ? "" : "= " + variable.DefaultValue},
                  {variable.Caption == variable.Name ? "" : variable.Caption, Tone::Quiet}};
  node.Properties = {
      Labelled("caption", variable.Caption),
      Labelled("description", variable.Description),
      {"kind", {type}},
      Labelled("default", variable.DefaultValue),
  };
  return node;
}

}  // namespace

Group Describe(const PageLayouts& layouts) {
  return {"layouts", "PageLayouts",
          EachOf(layouts, [](const PageLayout& layout) { return Describe(layout); })};
}

Group Describe(const VariableDefs& variables) {
  return {"variables", "VariableDefs",
          EachOf(variables, [](const VariableDef& variable) { return Describe(variable); })};
}

}  // namespace lwconfig::tool
