#include <lwconfig/automation/implemented_provider.h>
#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

template <>
const ClassInfo& ClassOf<PlugIn>() {
  using I = Interface<PlugIn>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&PlugIn::Name>("Name"),
      I::Property<&PlugIn::Description>("Description"),
      I::Property<&PlugIn::ExtendsWizard>("ExtendsWizard"),
      I::Property<&PlugIn::WizardProgID>("WizardProgID"),
      I::Property<&PlugIn::ExtendsContent>("ExtendsContent"),
      I::Property<&PlugIn::ContentProgID>("ContentProgID"),
      I::Property<&PlugIn::ExtendsTableOfContents>("ExtendsTableOfContents"),
      I::Property<&PlugIn::TableOfContentsProgID>("TableOfContentsProgID"),
      // The key is made when a file, which has the name, is loaded.
      I::Property<&PlugIn::Key>("Key", {.Attribute = "Name", .IsKey = true}),
      I::Method<&PlugIn::Load>("Load", "e"),
      I::Method<&PlugIn::Save>("Save", "e"),
      I::Method<&PlugIn::Clone>("Clone"));
  static const ClassInfo info = I::Class("PlugIn", kSlots, {.Element = "PlugIn"});
  return info;
}

template <>
const ClassInfo& ClassOf<PlugIns>() {
  using I = Interface<PlugIns>;
  static constexpr auto kSlots = I::Slots(
      I::CollectionMembers("obj"),
      I::Method<&PlugIns::Load>("Load"),
      I::Method<&PlugIns::LoadFrom>("LoadFrom", "Folder"),
      I::Method<&PlugIns::Clone>("Clone"));
  static const ClassInfo info = I::Class("PlugIns", kSlots, {.Saving = Saving::Never});
  return info;
}

template <>
const ClassInfo& ClassOf<INamespaceProvider>() {
  using I = Interface<INamespaceProvider>;
  static constexpr auto kSlots = I::Slots(
      I::Method<&INamespaceProvider::GetItems>("GetItems", "NamespaceDef", "ParentItem", "[Filter]"),
      I::Get<&INamespaceProvider::DocumentDataProvider>("DocumentDataProvider"),
      I::Method<&INamespaceProvider::Initialise>("Initialise", "LWProject"),
      I::Method<&INamespaceProvider::GetRootItem>("GetRootItem", "NamespaceDef", "Moniker"),
      I::Method<&INamespaceProvider::GetObjectFromQualifiedName>(
          "GetObjectFromQualifiedName", "QualifiedName"),
      I::Method<&INamespaceProvider::GetNamespaceDefFromObject>(
          "GetNamespaceDefFromObject", "NamespaceDefs", "obj"),
      I::Method<&INamespaceProvider::AddRootItem>("AddRootItem", "RootItem"),
      I::Method<&INamespaceProvider::StreamContent>("StreamContent", "OutputFile", "ContentType"),
      I::Get<&INamespaceProvider::Name>("Name"),
      I::Method<&INamespaceProvider::ContentCreated>(
          "ContentCreated", "Item", "NamespaceDef", "FileName", "CoreContent"),
      I::Method<&INamespaceProvider::BeforeProcessRootItem>("BeforeProcessRootItem", "RootItem"),
      I::Method<&INamespaceProvider::AfterProcessRootItem>("AfterProcessRootItem", "RootItem"),
      I::Method<&INamespaceProvider::BeforeProcessItem>("BeforeProcessItem", "Item", "RootItem"),
      I::Method<&INamespaceProvider::AfterProcessItem>("AfterProcessItem", "Item", "RootItem"),
      I::Method<&INamespaceProvider::GetModuleItems>("GetModuleItems"),
      I::Method<&INamespaceProvider::BrowseForMoniker>("BrowseForMoniker", "Flags"),
      I::Method<&INamespaceProvider::VerifyMoniker>("VerifyMoniker", "Moniker", "Message"),
      I::Method<&INamespaceProvider::GetMonikerFromRootItem>("GetMonikerFromRootItem", "RootItem"),
      I::Method<&INamespaceProvider::MakeMonikerRelative>(
          "MakeMonikerRelative", "Moniker", "RelativeToFileName"),
      I::Method<&INamespaceProvider::MakeMonikerAbsolute>(
          "MakeMonikerAbsolute", "Moniker", "RelativeToFileName"));
  static const ClassInfo info = I::Class("INamespaceProvider", kSlots, {.Implement = ImplementProvider});
  return info;
}

}  // namespace lwconfig::automation
