#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/pages/toc_definition.h>

namespace lwconfig {

void TOCDefinition::Load(const XMLElement& e, const std::shared_ptr<lwconfig::PageTemplate>& PageTemplate) {
  SetPageTemplate(PageTemplate);  // first: the nodes look up their layouts through it
  AttributeReader in(e);
  in.Require("Name", Name);
  in.Require("Description", Description);
  const auto self = SelfOf(*this);
  ReadChildren(e, "NodeDef", [&](const XMLElement& child) {
    auto node = std::make_shared<NodeDef>();
    node->Load(child, self);
    NodeDefs->Add(node, node->Key);
  });
}

void TOCDefinition::Save(XMLElement& e) const {
  e.PutAttribute("Name", Name);
  e.PutAttribute("Description", Description);
  for (const auto& node : *NodeDefs) {
    auto child = e.AddElement("NodeDef", "");
    node->Save(child);
  }
}

std::shared_ptr<TOCDefinition> TOCDefinition::Clone(
    const std::shared_ptr<lwconfig::PageTemplate>& PageTemplate) const {
  auto copy = std::make_shared<TOCDefinition>();
  copy->Name = Name;
  copy->Description = Description;
  copy->SetPageTemplate(PageTemplate);
  copy->NodeDefs = NodeDefs->Clone(copy);
  return copy;
}

}  // namespace lwconfig
