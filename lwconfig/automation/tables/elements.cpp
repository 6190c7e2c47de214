#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

namespace {

/// Asks for an attribute by the text of the index, also that of a Boolean or a fraction. No object and no
/// Null has a text, and neither names an attribute.
template <std::string (ElementAttributes::*Query)(const ItemKey&) const>
std::string ByText(const ElementAttributes& self, const Variant& index) {
  if (std::holds_alternative<AnyObject>(index) || std::holds_alternative<Null>(index)) return {};
  return (self.*Query)(ToText(index));
}

}  // namespace

template <>
const ClassInfo& ClassOf<ElementDef>() {
  using I = Interface<ElementDef>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&ElementDef::Name>("Name", {.IsKey = true}),
      I::Property<&ElementDef::Description>("Description"),
      I::Property<&ElementDef::Category>("Category"),
      I::Property<&ElementDef::DesignerProgID>("DesignerProgID"),
      I::Property<&ElementDef::Namespaces>("Namespaces", {.Names = NameOf::CodeElements}),
      I::Property<&ElementDef::ScrapsOnly>("ScrapsOnly"),
      I::Property<&ElementDef::ElementAttributeDefs>("ElementAttributeDefs"),
      I::MayBeNull(I::SetGetProperty<&ElementDef::NamespaceProfile, &ElementDef::SetNamespaceProfile>(
          "NamespaceProfile")),
      I::Method<&ElementDef::Load>("Load", "e", "Parent", "CommonAttributes"));
  static const ClassInfo info = I::Class("ElementDef", kSlots, {.Element = "lwelement"});
  return info;
}

template <>
const ClassInfo& ClassOf<ElementDefs>() {
  using I = Interface<ElementDefs>;
  static constexpr auto kSlots =
      I::Slots(I::CollectionMembers("Item"), I::Method<&ElementDefs::Load>("Load", "e", "NamespaceProfile"));
  static const ClassInfo info = I::Class("ElementDefs", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<ElementAttributeDef>() {
  using I = Interface<ElementAttributeDef>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&ElementAttributeDef::Name>("Name", {.IsKey = true}),
      I::Property<&ElementAttributeDef::Description>("Description"),
      I::Property<&ElementAttributeDef::HelpTopic>("HelpTopic"),
      I::Property<&ElementAttributeDef::EditType>("EditType"),
      I::Property<&ElementAttributeDef::ListSource>("ListSource"),
      I::Property<&ElementAttributeDef::ListValues>("ListValues"),
      I::Property<&ElementAttributeDef::DefaultValue>("DefaultValue"),
      I::Property<&ElementAttributeDef::Mandatory>("Mandatory"),
      I::MayBeNull(I::SetGetProperty<&ElementAttributeDef::ElementDef, &ElementAttributeDef::SetElementDef>(
          "ElementDef")),
      I::Method<&ElementAttributeDef::Load>("Load", "e"),
      I::AsVariant(I::Method<&ElementAttributeDef::Clone>("Clone", "ElementDef")));
  static const ClassInfo info = I::Class("ElementAttributeDef", kSlots, {.Element = "attribute"});
  return info;
}

template <>
const ClassInfo& ClassOf<ElementAttributeDefs>() {
  using I = Interface<ElementAttributeDefs>;
  static constexpr auto kSlots = I::Slots(I::CollectionMembers("Item"));
  static const ClassInfo info = I::Class("ElementAttributeDefs", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<ElementAttributes>() {
  using I = Interface<ElementAttributes>;
  static constexpr auto kSlots = I::Slots(
      I::Method<&ElementAttributes::Parse>("Parse", "[CommandLine]"),
      I::Get<ByText<&ElementAttributes::AttributeName>>("AttributeName", "Index"),
      I::Get<ByText<&ElementAttributes::AttributeData>>("AttributeData", "Index"),
      I::Get<&ElementAttributes::Count>("Count"));
  static const ClassInfo info = I::Class("ElementAttributes", kSlots);
  return info;
}

}  // namespace lwconfig::automation
