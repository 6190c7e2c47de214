#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

Node Describe(const ElementAttributeDef& attribute) {
  Node node{"attribute", attribute.Name};
  node.Summary = {{attribute.Mandatory ? "mandatory" : "", Tone::Condition},
                  {attribute.EditType, Tone::Repetition},
                  {attribute.DefaultValue.empty() ? "" : "= " + attribute.DefaultValue},
                  {attribute.ListValues.empty() ? "" : "of " + attribute.ListValues},
                  {attribute.Description, Tone::Quiet}};
  node.Properties = {
      Labelled("description", attribute.Description), Labelled("mandatory", attribute.Mandatory),
      Labelled("edited as", attribute.EditType),      Labelled("list source", attribute.ListSource),
      Labelled("list values", attribute.ListValues),  Labelled("default", attribute.DefaultValue),
      Labelled("help topic", attribute.HelpTopic),
  };
  return node;
}

Node Describe(const ElementDef& element) {
  Node node{"element", element.Name};
  node.Summary = {{element.Category, Tone::Repetition},
                  {element.ScrapsOnly ? "scraps only" : "", Tone::Condition},
                  {element.Description, Tone::Quiet}};
  node.Properties = {
      Labelled("description", element.Description), Labelled("category", element.Category),
      Labelled("designer", element.DesignerProgID), Labelled("namespaces", element.Namespaces),
      Labelled("scraps only", element.ScrapsOnly),
  };
  Group attributes{"attributes", "ElementAttributeDefs"};
  attributes.IsBrief = true;
  attributes.Nodes = EachOf(*element.ElementAttributeDefs,
                            [](const ElementAttributeDef& attribute) { return Describe(attribute); });
  node.Groups.push_back(std::move(attributes));
  return node;
}

}  // namespace

Group Describe(const ElementDefs& elements) {
  return {"elements", "ElementDefs",
          EachOf(elements, [](const ElementDef& element) { return Describe(element); })};
}

}  // namespace lwconfig::tool
