#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/externaldocs/external_doc.h>

namespace lwconfig {

void ExternalDoc::Load(const XMLElement& e) {
  AttributeReader(e).Require("Namespace", NamespaceName);
  ClassLink->Load(e);
  const auto children = e.Children();
  if (const auto first = children.begin(); first != children.end()) DefaultMemberLink->Load(*first);
}

void ExternalDoc::Save(XMLElement& e) const {
  e.PutAttribute("Namespace", NamespaceName);
  ClassLink->Save(e);
  XMLElement member = e.AddElement("DefaultMemberLink", "");
  DefaultMemberLink->Save(member);
}

std::shared_ptr<ExternalDoc> ExternalDoc::Clone() const {
  auto copy = std::make_shared<ExternalDoc>();
  copy->NamespaceName = NamespaceName;
  ClassLink->Clone(copy->ClassLink);
  DefaultMemberLink->Clone(copy->DefaultMemberLink);
  return copy;
}

}  // namespace lwconfig
