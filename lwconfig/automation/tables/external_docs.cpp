#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

template <>
const ClassInfo& ClassOf<ExternalDoc>() {
  using I = Interface<ExternalDoc>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&ExternalDoc::NamespaceName>("NamespaceName", {.Attribute = "Namespace", .IsKey = true}),
      I::Property<&ExternalDoc::ClassLink>("ClassLink"),
      I::Property<&ExternalDoc::DefaultMemberLink>("DefaultMemberLink"),
      I::Property<&ExternalDoc::URLFormat, &ExternalDoc::SetURLFormat>("URLFormat"),
      I::Property<&ExternalDoc::HTMLHelp1LinkFormat, &ExternalDoc::SetHTMLHelp1LinkFormat>(
          "HTMLHelp1LinkFormat"),
      I::Property<&ExternalDoc::Help2LinkFormat, &ExternalDoc::SetHelp2LinkFormat>("Help2LinkFormat"),
      I::Method<&ExternalDoc::Load>("Load", "e"),
      I::Method<&ExternalDoc::Save>("Save", "e"),
      I::Method<&ExternalDoc::Clone>("Clone"));
  static const ClassInfo info = I::Class("ExternalDoc", kSlots, {.Element = "ExternalDoc"});
  return info;
}

template <>
const ClassInfo& ClassOf<ExternalDocs>() {
  using I = Interface<ExternalDocs>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&ExternalDocs::Dirty>("Dirty"),
      I::CollectionMembers("Item"),
      I::Method<&ExternalDocs::Load>("Load"),
      I::Method<&ExternalDocs::Save>("Save"),
      I::Method<&ExternalDocs::Link>("Link", "ObjectFullName", "Caption", "IsHelp2", "[AdditionalKey]"),
      I::Method<&ExternalDocs::IsLinkAvailable>("IsLinkAvailable", "ClassFullName"),
      I::Method<&ExternalDocs::MemberLink>("MemberLink", "ClassFullName", "MemberName", "Caption", "IsHelp2"),
      I::Method<&ExternalDocs::URL>("URL", "ObjectFullName"),
      I::Method<&ExternalDocs::Clone>("Clone"),
      I::Method<&ExternalDocs::ResetLinkCache>("ResetLinkCache"));
  static const ClassInfo info = I::Class("ExternalDocs", kSlots, {.Saving = Saving::ByItself});
  return info;
}

template <>
const ClassInfo& ClassOf<ExternalLink>() {
  using I = Interface<ExternalLink>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&ExternalLink::HTMLHelp1LinkFormat>("HTMLHelp1LinkFormat"),
      I::Property<&ExternalLink::Help2LinkFormat>("Help2LinkFormat"),
      I::Property<&ExternalLink::URLFormat>("URLFormat"),
      I::Method<&ExternalLink::Load>("Load", "e"),
      I::Method<&ExternalLink::Save>("Save", "e"),
      I::Method<&ExternalLink::Clone>("Clone", "Target"));
  static const ClassInfo info = I::Class("ExternalLink", kSlots);
  return info;
}

}  // namespace lwconfig::automation
