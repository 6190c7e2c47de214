#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

template <>
const ClassInfo& ClassOf<NamespaceDef>() {
  using I = Interface<NamespaceDef>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&NamespaceDef::Name>("Name", {.IsKey = true}),
      I::Property<&NamespaceDef::Handler>("Handler"),
      I::Property<&NamespaceDef::Caption>("Caption"),
      I::Property<&NamespaceDef::CommenterCaption>("CommenterCaption"),
      I::Property<&NamespaceDef::CaptionPlural>("CaptionPlural"),
      I::Property<&NamespaceDef::ProvideIncludeFlag>("ProvideIncludeFlag"),
      I::Property<&NamespaceDef::DefaultIncludeFlag>("DefaultIncludeFlag"),
      I::Property<&NamespaceDef::Tree_AlwaysPopulate>("Tree_AlwaysPopulate"),
      I::Property<&NamespaceDef::Tree_AlwaysExpand>("Tree_AlwaysExpand"),
      I::Property<&NamespaceDef::Tree_Icon>("Tree_Icon"),
      I::Property<&NamespaceDef::Tree_ShowInSelect>("Tree_ShowInSelect"),
      I::Property<&NamespaceDef::Tree_AllowExclude>("Tree_AllowExclude"),
      I::Property<&NamespaceDef::Tree_CaptionTemplate>("Tree_CaptionTemplate"),
      I::Property<&NamespaceDef::Tree_Select_AlwaysPopulate>("Tree_Select_AlwaysPopulate"),
      I::Property<&NamespaceDef::Tree_ShowFolder>("Tree_ShowFolder"),
      I::Property<&NamespaceDef::Tree_ShowFolderInSelect>("Tree_ShowFolderInSelect"),
      I::Property<&NamespaceDef::FileNameFormat>("FileNameFormat"),
      I::Property<&NamespaceDef::Flags>("Flags"),
      I::Property<&NamespaceDef::ID>("ID"),
      I::Property<&NamespaceDef::Counter>("Counter"),
      I::Property<&NamespaceDef::IncludeFlag>("IncludeFlag"),
      I::SetGetProperty<&NamespaceDef::Tag, &NamespaceDef::SetTag>("Tag"),
      I::MayBeNull(
          I::SetGetProperty<&NamespaceDef::NamespaceDefs, &NamespaceDef::SetNamespaceDefs>("NamespaceDefs")),
      I::SetGetProperty<&NamespaceDef::ChildNamespaceDefs, &NamespaceDef::SetChildNamespaceDefs>(
          "ChildNamespaceDefs"),
      I::Method<&NamespaceDef::Load>("Load", "e"),
      I::Method<&NamespaceDef::ResetIncludeFlag>("ResetIncludeFlag"),
      I::Method<&NamespaceDef::ResetCounters>("ResetCounters"));
  static const ClassInfo info = I::Class("NamespaceDef", kSlots, {.Element = "lwnamespace"});
  return info;
}

namespace {

// Callers hand in the collection to fill by reference, and find a new one in its place where there was none.
std::shared_ptr<NamespaceDefs> ByCaption(
    const NamespaceDefs& self, std::string_view caption, std::shared_ptr<NamespaceDefs>& col) {
  return col = self.GetNamespaceDefsByCaption(caption, col);
}
std::shared_ptr<NamespaceDefs> ByName(
    const NamespaceDefs& self, std::string_view name, std::shared_ptr<NamespaceDefs>& col) {
  return col = self.GetNamespaceDefsByName(name, col);
}
std::shared_ptr<NamespaceDefs> All(const NamespaceDefs& self, std::shared_ptr<NamespaceDefs>& col) {
  return col = self.AllNamespaceDefs(col);
}

}  // namespace

template <>
const ClassInfo& ClassOf<NamespaceDefs>() {
  using I = Interface<NamespaceDefs>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&NamespaceDefs::Name>("Name", {.IsKey = true}),
      I::Property<&NamespaceDefs::Caption>("Caption"),
      I::Property<&NamespaceDefs::CommenterCaption>("CommenterCaption"),
      I::Property<&NamespaceDefs::IsFile>("IsFile"),
      I::Property<&NamespaceDefs::Supports>("Supports"),
      I::Property<&NamespaceDefs::ElementDefs>("ElementDefs"),
      I::CollectionMembers("Item"),
      I::Method<&NamespaceDefs::Load>("Load", "e"),
      I::Method<&NamespaceDefs::ResetIncludeFlags>("ResetIncludeFlags"),
      I::Method<ByCaption>("GetNamespaceDefsByCaption", "Caption", "[col]"),
      I::Method<ByName>("GetNamespaceDefsByName", "Name", "[col]"),
      I::Method<All>("AllNamespaceDefs", "[col]"));
  // Those of a template as well: it saves the names of the profiles only.
  static const ClassInfo info =
      I::Class("NamespaceDefs", kSlots, {.Saving = Saving::Never, .Element = "lwnamespaces"});
  return info;
}

template <>
const ClassInfo& ClassOf<NamespaceProfiles>() {
  using I = Interface<NamespaceProfiles>;
  static constexpr auto kSlots =
      I::Slots(I::CollectionMembers("Item"), I::Method<&NamespaceProfiles::Load>("Load"));
  static const ClassInfo info = I::Class("NamespaceProfiles", kSlots, {.Saving = Saving::Never});
  return info;
}

}  // namespace lwconfig::automation
