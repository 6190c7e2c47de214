#include <array>

#include <lwconfig/comments/model_comment.h>
#include <lwconfig/core/loading/attribute_reader.h>

namespace lwconfig {

void ModelComment::SetMemberType(std::int32_t type) {
  static constexpr std::array kNamespaces{"LW:Method",      "LW:Property",  "LW:Event",
                                          "LW:Enumeration", "LW:Structure", "LW:ImplementedInterface",
                                          "LW:Module"};
  mMemberType = type;
  if (type >= mtMethod && type <= mtModule)
    MemberType_Namespace = kNamespaces[static_cast<std::size_t>(type - mtMethod)];
}

void ModelComment::Load(const XMLElement& e) {
  AttributeReader in(e);
  if (in.Find("MemberType") != nullptr) {
    std::int32_t type = 0;
    in.Require("MemberType", type, LeadingInteger);
    SetMemberType(type);
  } else {
    in.Require("MemberType_Namespace", MemberType_Namespace);
  }
  in.Require("MemberName", MemberName);
  in.Require("TaggedCommentPrefix", TaggedCommentPrefix);
  in.Require("TaggedCommentText", TaggedCommentText);
  in.Try("OnlyIfBlank", OnlyIfBlank, ExactTrue);
  in.Try("InsertionPoint", InsertionPoint, StrictInteger);
}

void ModelComment::Save(XMLElement& e) const {
  e.SetName("MC");
  e.PutAttribute("MemberType_Namespace", MemberType_Namespace);
  e.PutAttribute("MemberName", MemberName);
  e.PutAttribute("TaggedCommentPrefix", TaggedCommentPrefix);
  e.PutAttribute("TaggedCommentText", TaggedCommentText);
  e.PutAttribute("OnlyIfBlank", ToText(OnlyIfBlank));
  e.PutAttribute("InsertionPoint", ToText(InsertionPoint));
}

std::shared_ptr<ModelComment> ModelComment::Clone() const {
  auto copy = std::make_shared<ModelComment>(*this);
  copy->Tag = {};
  return copy;
}

}  // namespace lwconfig
