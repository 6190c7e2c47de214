#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {
namespace {

/// A loader that finds none keeps -1, and saves it.
constexpr std::array kNoUsableValue{-1};
constexpr std::array kNoneOrUnusable{-1, 0};
constexpr std::array kOlderStandardNode{3};

}  // namespace

template <>
const ClassInfo& ClassOf<PageLayout>() {
  using I = Interface<PageLayout>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&PageLayout::Name>("Name"),
      I::Property<&PageLayout::FileName>("FileName", {.IsKey = true}),
      I::Property<&PageLayout::PageType>("PageType", {.MoreNumbers = kNoUsableValue}),
      I::Property<&PageLayout::TitleTemplate>("TitleTemplate"),
      I::Property<&PageLayout::NodeTag>("NodeTag"),
      I::Property<&PageLayout::ControlTag>("ControlTag"),
      I::Property<&PageLayout::Namespace>("Namespace", {.Names = NameOf::CodeElements}),
      I::Property<&PageLayout::DependantOnNamespace>("DependantOnNamespace", {.Names = NameOf::CodeElements}),
      I::Property<&PageLayout::DependantOnNamespace_Filter>("DependantOnNamespace_Filter"),
      I::Property<&PageLayout::DependantCount>("DependantCount"),
      I::Get<&PageLayout::IsHTMLHelpProjectFile>("IsHTMLHelpProjectFile"),
      I::AsVariant(I::Method<&PageLayout::Clone>("Clone")),
      I::Method<&PageLayout::Load>("Load", "e"),
      I::Method<&PageLayout::Save>("Save", "e"));
  static const ClassInfo info = I::Class("PageLayout", kSlots, {.Element = "PageLayout"});
  return info;
}

template <>
const ClassInfo& ClassOf<PageLayouts>() {
  using I = Interface<PageLayouts>;
  static constexpr auto kSlots = I::Slots(I::CollectionMembers("obj"));
  static constexpr std::array kEvents{I::Event<&PageLayouts::ContentsChange>("ContentsChange")};
  static const ClassInfo info = I::Class("PageLayouts", kSlots, {.Events = kEvents});
  return info;
}

template <>
const ClassInfo& ClassOf<TOCDefinition>() {
  using I = Interface<TOCDefinition>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&TOCDefinition::Name>("Name", {.IsKey = true}),
      I::Property<&TOCDefinition::Description>("Description"),
      I::Property<&TOCDefinition::NodeDefs>("NodeDefs"),
      I::MayBeNull(
          I::Property<&TOCDefinition::PageTemplate, &TOCDefinition::SetPageTemplate>("PageTemplate")),
      I::Method<&TOCDefinition::Load>("Load", "e", "PageTemplate"),
      I::Method<&TOCDefinition::Save>("Save", "e"),
      I::Method<&TOCDefinition::Clone>("Clone", "PageTemplate"));
  static const ClassInfo info = I::Class("TOCDefinition", kSlots, {.Element = "TOCDefinition"});
  return info;
}

template <>
const ClassInfo& ClassOf<TOCDefinitions>() {
  using I = Interface<TOCDefinitions>;
  static constexpr auto kSlots = I::Slots(I::CollectionMembers("obj"));
  static const ClassInfo info = I::Class("TOCDefinitions", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<NodeDef>() {
  using I = Interface<NodeDef>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&NodeDef::Key>("Key", {.IsKey = true}),
      I::Property<&NodeDef::NodeType>("NodeType", {.MoreNumbers = kOlderStandardNode}),
      I::Property<&NodeDef::UseCustomIcon>("UseCustomIcon"),
      I::Property<&NodeDef::MarkAsNew>("MarkAsNew"),
      I::Property<&NodeDef::NodeCaptionTemplate>("NodeCaptionTemplate"),
      I::Property<&NodeDef::PlugInName>("PlugInName", {.Names = NameOf::PlugIn}),
      I::Property<&NodeDef::PlugInData>("PlugInData"),
      I::Property<&NodeDef::DependantOn>("DependantOn", {.MoreNumbers = kNoneOrUnusable}),
      I::Property<&NodeDef::DependantOnNamespace>("DependantOnNamespace", {.Names = NameOf::CodeElements}),
      I::Property<&NodeDef::DependantOnNamespace_Filter>("DependantOnNamespace_Filter"),
      I::Property<&NodeDef::DependantCount>("DependantCount"),
      I::Property<&NodeDef::DependantStillProcessChildren>("DependantStillProcessChildren"),
      I::Property<&NodeDef::FileNameTemplate>("FileNameTemplate"),
      I::Property<&NodeDef::PageType>("PageType", {.MoreNumbers = kNoUsableValue}),
      I::Property<&NodeDef::PageTypeNamespace>("PageTypeNamespace", {.Names = NameOf::CodeElements}),
      I::Property<&NodeDef::PageTypeNamespaceFilter>("PageTypeNamespaceFilter"),
      I::Property<&NodeDef::LinkToPage>("LinkToPage"),
      I::Property<&NodeDef::IsDefaultTopic>("IsDefaultTopic"),
      I::Property<&NodeDef::ParentKey, &NodeDef::SetParentKey>("ParentKey"),
      I::Property<&NodeDef::NodeIconIndex, &NodeDef::SetNodeIconIndex>("NodeIconIndex"),
      I::MayBeNull(I::Property<&NodeDef::ParentNodeDef, &NodeDef::SetParentNodeDef>("ParentNodeDef")),
      I::MayBeNull(I::Property<&NodeDef::TOCDefinition, &NodeDef::SetTOCDefinition>("TOCDefinition")),
      I::MayBeNull(I::Property<&NodeDef::PageLayout, &NodeDef::SetPageLayout>("PageLayout")),
      I::Get<&NodeDef::ActualIconIndex>("ActualIconIndex", "HasChildren"),
      I::Get<&NodeDef::ActualExpandedIconIndex>("ActualExpandedIconIndex", "HasChildren"),
      I::Method<&NodeDef::CementReferences>("CementReferences", "NodeDefs"),
      I::Method<&NodeDef::Load>("Load", "e", "TOCDefinition"),
      I::Method<&NodeDef::Save>("Save", "e"),
      I::Method<&NodeDef::Clone>("Clone"));
  static const ClassInfo info = I::Class("NodeDef", kSlots, {.Element = "NodeDef"});
  return info;
}

template <>
const ClassInfo& ClassOf<NodeDefs>() {
  using I = Interface<NodeDefs>;
  static constexpr auto kSlots =
      I::Slots(I::CollectionMembers("obj"), I::Method<&NodeDefs::Clone>("Clone", "[TOCDefinition]"));
  static const ClassInfo info = I::Class("NodeDefs", kSlots);
  return info;
}

template <>
const ClassInfo& ClassOf<VariableDef>() {
  using I = Interface<VariableDef>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&VariableDef::Name>("Name", {.IsKey = true}),
      I::Property<&VariableDef::Description>("Description"),
      I::Property<&VariableDef::VariableDefType>("VariableDefType", {.Attribute = "Type"}),
      I::Property<&VariableDef::Caption>("Caption"),
      I::Property<&VariableDef::DefaultValue>("DefaultValue"),
      I::Method<&VariableDef::Clone>("Clone"),
      I::Method<&VariableDef::Load>("Load", "e", "PageTemplate"),
      I::Method<&VariableDef::Save>("Save", "e"));
  static const ClassInfo info = I::Class("VariableDef", kSlots, {.Element = "VariableDef"});
  return info;
}

template <>
const ClassInfo& ClassOf<VariableDefs>() {
  using I = Interface<VariableDefs>;
  static constexpr auto kSlots = I::Slots(I::CollectionMembers("obj"));
  static const ClassInfo info = I::Class("VariableDefs", kSlots);
  return info;
}

template <>
const EnumInfo& EnumOf<PageTypeEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"pgStandard", pgStandard},
      EnumMember{"pgobject", pgobject},
      EnumMember{"pgcollection", pgcollection},
      EnumMember{"pgMethod", pgMethod},
      EnumMember{"pgProperty", pgProperty},
      EnumMember{"pgEvent", pgEvent},
      EnumMember{"pgEnumeration", pgEnumeration},
      EnumMember{"pgUDT", pgUDT},
      EnumMember{"pgLibrary", pgLibrary},
      EnumMember{"pgDeclaration", pgDeclaration},
      EnumMember{"pgProject", pgProject},
      EnumMember{"pgModule", pgModule},
      EnumMember{"pgInterface", pgInterface},
      EnumMember{"pgProjectGroup", pgProjectGroup},
      EnumMember{"pgSourceCode", pgSourceCode},
      EnumMember{"pgExample", pgExample}};
  static constexpr EnumInfo info{"PageTypeEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<NodeTypeEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"ntStandard", ntStandard}, EnumMember{"ntSmart", ntSmart}, EnumMember{"ntPlugIn", ntPlugIn}};
  static constexpr EnumInfo info{"NodeTypeEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<DependantOnEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"depMethods", depMethods},
      EnumMember{"depProperties", depProperties},
      EnumMember{"depEvents", depEvents},
      EnumMember{"depEnumerations", depEnumerations},
      EnumMember{"depUDTs", depUDTs},
      EnumMember{"depLibraries", depLibraries},
      EnumMember{"depInterfaces", depInterfaces},
      EnumMember{"depProjects", depProjects}};
  static constexpr EnumInfo info{"DependantOnEnum", kMembers};
  return info;
}

template <>
const EnumInfo& EnumOf<VariableDefTypeEnum>() {
  static constexpr std::array kMembers{
      EnumMember{"vdtText", vdtText},
      EnumMember{"vdtHTML", vdtHTML},
      EnumMember{"vdtNumber", vdtNumber},
      EnumMember{"vdtDate", vdtDate},
      EnumMember{"vdtColor", vdtColor}};
  static constexpr EnumInfo info{"VariableDefTypeEnum", kMembers};
  return info;
}

}  // namespace lwconfig::automation
