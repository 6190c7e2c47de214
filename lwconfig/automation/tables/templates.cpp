#include <lwconfig/automation/publish.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {

template <>
const ClassInfo& ClassOf<PageTemplates>() {
  using I = Interface<PageTemplates>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&PageTemplates::TemplateFolder>("TemplateFolder"),
      I::CollectionMembers("obj"),
      I::Method<&PageTemplates::Load>("Load"),
      I::Method<&PageTemplates::Save>("Save"),
      I::Method<&PageTemplates::SaveTemplate>("SaveTemplate", "pt"));
  static const ClassInfo info =
      I::Class("PageTemplates", kSlots, {.Saving = Saving::Never, .ItemStorage = "folder"});
  return info;
}

template <>
const ClassInfo& ClassOf<PageTemplate>() {
  using I = Interface<PageTemplate>;
  static constexpr auto kSlots = I::Slots(
      I::Property<&PageTemplate::RootFolder>("RootFolder"),
      I::Property<&PageTemplate::Name>("Name", {.IsKey = true}),
      I::Property<&PageTemplate::Description>("Description"),
      I::Colour<&PageTemplate::objFillColor>("objFillColor"),
      I::Colour<&PageTemplate::objTextColor>("objTextColor"),
      I::Colour<&PageTemplate::objBorderColor>("objBorderColor"),
      I::Colour<&PageTemplate::colFillColor>("colFillColor"),
      I::Colour<&PageTemplate::colTextColor>("colTextColor"),
      I::Colour<&PageTemplate::colBorderColor>("colBorderColor"),
      I::Property<&PageTemplate::UseDropShadow>("UseDropShadow"),
      I::Property<&PageTemplate::CenterCaptions>("CenterCaptions"),
      I::Property<&PageTemplate::BorderWidth>("BorderWidth"),
      I::Property<&PageTemplate::DiagramBold>("DiagramBold"),
      I::Property<&PageTemplate::UseDiagramShapes>("UseDiagramShapes"),
      I::Property<&PageTemplate::TOCDefinitions>("TOCDefinitions"),
      I::Property<&PageTemplate::VariableDefs>("VariableDefs"),
      I::Property<&PageTemplate::DefTOCVBProject>("DefTOCVBProject", {.Names = NameOf::Contents}),
      I::Property<&PageTemplate::DefTOCVBProjectGroup>("DefTOCVBProjectGroup", {.Names = NameOf::Contents}),
      I::Property<&PageTemplate::DefTOCMixture>("DefTOCMixture", {.Names = NameOf::Contents}),
      I::Property<&PageTemplate::DefTOCComponent>("DefTOCComponent", {.Names = NameOf::Contents}),
      I::Property<&PageTemplate::DefTOCComponentGroup>("DefTOCComponentGroup", {.Names = NameOf::Contents}),
      I::Property<&PageTemplate::EnabledPlugins>("EnabledPlugins"),
      I::Property<&PageTemplate::NamespaceDefs>("NamespaceDefs"),
      I::Property<&PageTemplate::NoStandardSupport>("NoStandardSupport"),
      I::Property<&PageTemplate::TemplateCategory>("TemplateCategory"),
      I::Property<&PageTemplate::Supports>("Supports"),
      I::Property<&PageTemplate::StyleSheet>("StyleSheet"),
      I::Property<&PageTemplate::Version>("Version"),
      I::Property<&PageTemplate::Languages>("Languages"),
      I::Property<&PageTemplate::SupportedItemTypes>("SupportedItemTypes", {.Names = NameOf::Words}),
      I::Property<&PageTemplate::PageLayouts, &PageTemplate::SetPageLayouts>("PageLayouts"),
      I::Get<&PageTemplate::PlugIns>("PlugIns"),
      I::Get<&PageTemplate::NamespaceProfileNames>("NamespaceProfileNames"),
      I::Get<&PageTemplate::SupportsItemType>("SupportsItemType", "Name"),
      I::Method<&PageTemplate::Clone>("Clone"),
      I::Method<&PageTemplate::Load>("Load", "e"),
      I::Method<&PageTemplate::Save>("Save", "e"),
      I::MayBeNull(I::SetGetProperty<&PageTemplate::Scraps, &PageTemplate::SetScraps>("Scraps")),
      I::MayBeNull(I::SetGetProperty<&PageTemplate::Phrases, &PageTemplate::SetPhrases>("Phrases")),
      I::Method<&PageTemplate::ScrapNames>("ScrapNames"),
      I::Method<&PageTemplate::PhraseNames>("PhraseNames"),
      I::Method<&PageTemplate::LoadPhrasesAndScraps>("LoadPhrasesAndScraps", "Language"),
      I::Get<&PageTemplate::Phrase>("Phrase", "Name"),
      I::Get<&PageTemplate::Scrap>("Scrap", "Name"));
  static constexpr std::array kEvents{I::Event<&PageTemplate::PageLayoutsChange>("PageLayoutsChange")};
  static const ClassInfo info = I::Class(
      "PageTemplate", kSlots, {.Events = kEvents, .Saving = Saving::ByCatalogue, .Element = "PageTemplate"});
  return info;
}

}  // namespace lwconfig::automation
