#include <string_view>

#include <lwconfig/comments/tagged_comment_def.h>
#include <lwconfig/core/loading/attribute_reader.h>

namespace lwconfig {
namespace {

/// The code elements of an element type; empty for a type without any.
std::string_view NamespaceOf(ElementTypeEnum type) {
  switch (type) {
    case etProject:
      return "LW:Project";
    case etModule:
      return "LW:Module";
    case etBlock:
      return "LW:Method,LW:Property";
    case etVariable:
      return "LW:Property";
    case etParameter:
      return "LW:Parameter";
    case etEvent:
      return "LW:Event";
    case etEnumeration:
      return "LW:Enumeration";
    case etEnumerationMember:
      return "LW:EnumerationMember";
    case etUDT:
      return "LW:Structure";
    case etUDTMember:
      return "LW:StructureMember";
    case etDeclaration:
      return "LW:Declaration";
    case etInterface:
      return "LW:ImplementedInterface";
    default:
      return {};
  }
}

}  // namespace

void TaggedCommentDef::Load(const XMLElement& e) {
  AttributeReader in(e);
  in.Require("Hidden", Hidden, ExactTrue);
  in.Require("Identifier", TagIdentifier);
  in.Require("Elementtype", ElementType, LeadingInteger);
  // Derive the code elements from the type: older files have no names of them.
  if (const auto derived = NamespaceOf(ElementType); !derived.empty()) Namespace = derived;
  in.Require("Description", Description);
  in.Require("Format", Format);
  in.Require("General", IsGeneral, ExactTrue);
  in.Require("WrapType", WrapType, LeadingInteger);
  in.Try("DesignerProgID", DesignerProgID);
  in.Try("LegacyFor", LegacyFor);
  in.Try("DesignFlags", DesignFlags);
  in.Try("TabName", TabName);
  in.Try("Tip", Tip);
  in.Try("Namespace", Namespace);
  in.Try("Flags", Flags);
  if (Flags.empty()) Flags = "-";
  in.Try("Standard", Standard, ExactTrue);
  GroupName = "General Description";
  in.Try("Group", GroupName);
  in.Try("XMLCommentTypes", XMLCommentTypes);
  in.Try("Icon", Icon);
  if (Icon.empty()) Icon = "other";
}

void TaggedCommentDef::Save(XMLElement& e) const {
  e.PutAttribute("Group", GroupName);
  e.PutAttribute("Hidden", ToText(Hidden));
  e.PutAttribute("Identifier", TagIdentifier);
  e.PutAttribute("Flags", Flags);
  e.PutAttribute("Elementtype", ToText(ElementType));
  e.PutAttribute("Description", Description);
  e.PutAttribute("Format", Format);
  e.PutAttribute("General", ToText(IsGeneral));
  e.PutAttribute("WrapType", ToText(WrapType));
  e.PutAttribute("DesignerProgID", DesignerProgID);
  e.PutAttribute("LegacyFor", LegacyFor);
  e.PutAttribute("DesignFlags", DesignFlags);
  e.PutAttribute("TabName", TabName);
  e.PutAttribute("Tip", Tip);
  e.PutAttribute("Namespace", Namespace);
  e.PutAttribute("Standard", ToText(Standard));
  e.PutAttribute("XMLCommentTypes", XMLCommentTypes);
  e.PutAttribute("Icon", Icon);
}

std::shared_ptr<TaggedCommentDef> TaggedCommentDef::Clone() const {
  return std::make_shared<TaggedCommentDef>(*this);
}

}  // namespace lwconfig
