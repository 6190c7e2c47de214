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
      Unlabelled("Name", attribute.Name),
      Valued("Description", attribute.Description, "description"),
      Valued("Mandatory", attribute.Mandatory, "mandatory"),
      Valued("EditType", attribute.EditType, "edited as"),
      Valued("ListSource", attribute.ListSource, "list source"),
      Valued("ListValues", attribute.ListValues, "list values"),
      Valued("DefaultValue", attribute.DefaultValue, "default"),
      Valued("HelpTopic", attribute.HelpTopic, "help topic"),
  };
  return node;
}

Node Describe(const ElementDef& element) {
  Node node{"element", element.Name};
  node.Summary = {{element.Category, Tone::Repetition},
                  {element.ScrapsOnly ? "scraps only" : "", Tone::Condition},
                  {element.Description, Tone::Quiet}};
  node.Properties = {
      Unlabelled("Name", element.Name),
      Valued("Description", element.Description, "description"),
      Valued("Category", element.Category, "category"),
      Valued("DesignerProgID", element.DesignerProgID, "designer"),
      Valued("Namespaces", element.Namespaces, "namespaces"),
      Valued("ScrapsOnly", element.ScrapsOnly, "scraps only"),
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
