#include <string_view>

#include <lwconfig/comments/tagged_comment_def.h>
#include <lwconfig/core/attribute_reader.h>

namespace lwconfig {
namespace {

/// The code elements that an element type stands for; empty for one that stands for none.
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
  // Older files name the code elements by their type only.
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
  e.AddAttribute("Group", GroupName);
  e.AddAttribute("Hidden", ToText(Hidden));
  e.AddAttribute("Identifier", TagIdentifier);
  e.AddAttribute("Flags", Flags);
  e.AddAttribute("Elementtype", ToText(ElementType));
  e.AddAttribute("Description", Description);
  e.AddAttribute("Format", Format);
  e.AddAttribute("General", ToText(IsGeneral));
  e.AddAttribute("WrapType", ToText(WrapType));
  e.AddAttribute("DesignerProgID", DesignerProgID);
  e.AddAttribute("LegacyFor", LegacyFor);
  e.AddAttribute("DesignFlags", DesignFlags);
  e.AddAttribute("TabName", TabName);
  e.AddAttribute("Tip", Tip);
  e.AddAttribute("Namespace", Namespace);
  e.AddAttribute("Standard", ToText(Standard));
  e.AddAttribute("XMLCommentTypes", XMLCommentTypes);
  e.AddAttribute("Icon", Icon);
}

std::shared_ptr<TaggedCommentDef> TaggedCommentDef::Clone() const {
  return std::make_shared<TaggedCommentDef>(*this);
}

}  // namespace lwconfig
