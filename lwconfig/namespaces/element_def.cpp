#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/namespaces/element_def.h>

namespace lwconfig {

void ElementAttributeDef::Load(const XMLElement& e) {
  AttributeReader in(e);
  in.Require("Name", Name);
  in.Require("Description", Description);
  in.Try("HelpTopic", HelpTopic);
  in.Try("EditType", EditType);
  in.Try("ListSource", ListSource);
  in.Try("ListValues", ListValues);
  in.Try("DefaultValue", DefaultValue);
  in.Try("Mandatory", Mandatory, ExactTrue);
}

std::shared_ptr<ElementAttributeDef> ElementAttributeDef::Clone(
    const std::shared_ptr<lwconfig::ElementDef>& ElementDef) const {
  auto copy = std::make_shared<ElementAttributeDef>(*this);
  copy->SetElementDef(ElementDef);
  return copy;
}

void ElementDef::Load(const XMLElement& e, const std::shared_ptr<NamespaceDefs>& Parent,
                      const std::shared_ptr<lwconfig::ElementAttributeDefs>& CommonAttributes) {
  SetNamespaceProfile(Parent);
  AttributeReader in(e);
  in.Require("Name", Name);
  in.Try("Description", Description);
  in.Try("Category", Category);
  in.Try("DesignerProgID", DesignerProgID);
  in.Try("Namespaces", Namespaces);
  in.Try("ScrapsOnly", ScrapsOnly, ExactTrue);
  ReadChildren(e, AnyCase("attribute"), [&](const XMLElement& child) {
    auto attribute = std::make_shared<ElementAttributeDef>();
    attribute->SetElementDef(SelfOf(*this));
    attribute->Load(child);
    ElementAttributeDefs->Add(attribute, attribute->Name);
  });
  if (!CommonAttributes || !ElementAttributeDefs) return;
  for (const auto& common : *CommonAttributes) {
    // Skip a common attribute where the element has its own of that name.
    if (ElementAttributeDefs->Item(common->Name)) continue;
    ElementAttributeDefs->Add(common->Clone(SelfOf(*this)), common->Name);
  }
}

void ElementDefs::Load(const XMLElement& e, const std::shared_ptr<NamespaceDefs>& NamespaceProfile) {
  const auto commonAttributes = std::make_shared<ElementAttributeDefs>();
  const auto readCommonAttribute = [&](const XMLElement& child) {
    auto attribute = std::make_shared<ElementAttributeDef>();
    attribute->Load(child);
    commonAttributes->Add(attribute, attribute->Name);
  };
  const auto readCommonAttributes = [&](const XMLElement& child) {
    ReadChildren(child, AnyCase("attribute"), readCommonAttribute);
  };
  const auto readElement = [&](const XMLElement& child) {
    auto element = std::make_shared<ElementDef>();
    element->Load(child, NamespaceProfile, commonAttributes);
    Add(element);
  };
  ReadChildren(e, {{AnyCase("commonattributes"), readCommonAttributes}, {AnyCase("lwelement"), readElement}});
}

}  // namespace lwconfig
