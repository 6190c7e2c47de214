#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/templates/page_template.h>

namespace lwconfig {
namespace {

constexpr std::string_view kCurrentVersion = "4.11";

/// Saves each item to a child element of its own.
template <class Items>
void SaveItems(XMLElement& e, std::string_view tag, const Items& items) {
  for (const auto& item : items) {
    auto child = e.AddElement(tag, "");
    item->Save(child);
  }
}

std::shared_ptr<Collection> CopyFiledUnderThemselves(const Collection& texts) {
  auto copy = std::make_shared<Collection>();
  for (const auto& text : texts) copy->Add(text, text);
  return copy;
}

}  // namespace

PageTemplate::PageTemplate() {
  SetPageLayouts(std::make_shared<lwconfig::PageLayouts>());
}

void PageTemplate::SetPageLayouts(std::shared_ptr<lwconfig::PageLayouts> layouts) {
  mLayoutsConnection.Close();
  mPageLayouts = std::move(layouts);
  if (mPageLayouts)
    mLayoutsConnection = mPageLayouts->ContentsChange.Connect([this] { PageLayoutsChange.Raise(); });
}

std::shared_ptr<PlugIns> PageTemplate::PlugIns() {
  if (mTemplatePlugins) return mTemplatePlugins;
  mTemplatePlugins = std::make_shared<lwconfig::PlugIns>();
  if (EnabledPlugins->Count() == 0) return mTemplatePlugins;
  const auto shared = SharedSlot<lwconfig::PlugIns>::Obtain();
  for (const auto& plugIn : *shared) {
    if (StringTools::KeyExists(*EnabledPlugins, plugIn->Name)) mTemplatePlugins->Add(plugIn, plugIn->Name);
  }
  return mTemplatePlugins;
}

bool PageTemplate::SupportsItemType(std::string_view itemType) const {
  return StringTools::KeyExists(*SupportedItemTypes, itemType);
}

void PageTemplate::LoadPhrasesAndScraps(std::string_view language) {
  mPhrases.Load(RootFolder, language);
  mScraps.Load(RootFolder, language);
}

std::string PageTemplate::Phrase(std::string_view name) const {
  const std::string* text = mPhrases.Find(name);
  return text != nullptr ? *text : "!MISSING PHRASE '" + std::string(name) + "'!";
}

std::string PageTemplate::Scrap(std::string_view name) const {
  const std::string* text = mScraps.Find(name);
  return text != nullptr ? *text : "!MISSING Scrap '" + std::string(name) + "'!";
}

void PageTemplate::Save(XMLElement& e) const {
  e.SetName("PageTemplate");
  e.PutAttribute("RootFolder", RootFolder);
  e.PutAttribute("Name", Name);
  e.PutAttribute("Description", Description);
  e.PutAttribute("ObjFillColor", ToText(objFillColor));
  e.PutAttribute("ObjTextColor", ToText(objTextColor));
  e.PutAttribute("ObjBorderColor", ToText(objBorderColor));
  e.PutAttribute("ColFillColor", ToText(colFillColor));
  e.PutAttribute("ColTextColor", ToText(colTextColor));
  e.PutAttribute("ColBordercolor", ToText(colBorderColor));
  e.PutAttribute("BorderWidth", ToText(BorderWidth));
  e.PutAttribute("UseDropShadow", ToText(UseDropShadow));
  e.PutAttribute("CenterCaptions", ToText(CenterCaptions));
  e.PutAttribute("DiagramBold", ToText(DiagramBold));
  e.PutAttribute("UseDiagramShapes", ToText(UseDiagramShapes));
  e.PutAttribute("Supports", Supports);
  e.PutAttribute("Version", kCurrentVersion);
  e.PutAttribute("Languages", Languages);
  SaveItems(e, "PageLayout", *mPageLayouts);
  SaveItems(e, "VariableDef", *VariableDefs);
  SaveItems(e, "TOCDefinition", *TOCDefinitions);
  e.PutAttribute("DefTOCVBProject", DefTOCVBProject);
  e.PutAttribute("DefTOCVBProjectGroup", DefTOCVBProjectGroup);
  e.PutAttribute("DefTOCMixture", DefTOCMixture);
  e.PutAttribute("DefTOCComponent", DefTOCComponent);
  e.PutAttribute("DefTOCComponentGroup", DefTOCComponentGroup);
  e.PutAttribute("NoStandardSupport", ToText(NoStandardSupport));
  for (const auto& name : *mNamespaceProfileNames)
    e.AddElement("NamespaceDef", "").PutAttribute("Name", name);
  auto enabled = e.AddElement("EnabledPlugins", "");
  for (const auto& name : *EnabledPlugins) enabled.AddElement("Plugin", name);
  e.PutAttribute("TemplateCategory", TemplateCategory);
  e.PutAttribute("StyleSheet", StyleSheet);
  e.PutAttribute("SupportedItemTypes", StringTools::JoinCollection(*SupportedItemTypes, ","));
}

std::shared_ptr<PageTemplate> PageTemplate::Clone() const {
  auto copy = std::make_shared<PageTemplate>();
  copy->RootFolder = RootFolder;
  copy->Name = Name;
  copy->Description = Description;
  copy->objFillColor = objFillColor;
  copy->objTextColor = objTextColor;
  copy->objBorderColor = objBorderColor;
  copy->colFillColor = colFillColor;
  copy->colTextColor = colTextColor;
  copy->colBorderColor = colBorderColor;
  copy->UseDropShadow = UseDropShadow;
  copy->BorderWidth = BorderWidth;
  copy->CenterCaptions = CenterCaptions;
  copy->DiagramBold = DiagramBold;
  copy->UseDiagramShapes = UseDiagramShapes;
  copy->Supports = Supports;
  copy->Version = Version;
  copy->Languages = Languages;
  // Copy the layouts first: the copied nodes look up theirs in the copy.
  for (const auto& layout : *mPageLayouts) copy->mPageLayouts->Add(layout->Clone(), layout->FileName);
  for (const auto& variable : *VariableDefs) copy->VariableDefs->Add(variable->Clone(), variable->Name);
  for (const auto& toc : *TOCDefinitions) copy->TOCDefinitions->Add(toc->Clone(copy), toc->Name);
  copy->NamespaceDefs = NamespaceDefs;
  copy->mNamespaceProfileNames = mNamespaceProfileNames;
  copy->DefTOCVBProject = DefTOCVBProject;
  copy->DefTOCVBProjectGroup = DefTOCVBProjectGroup;
  copy->DefTOCMixture = DefTOCMixture;
  copy->DefTOCComponent = DefTOCComponent;
  copy->DefTOCComponentGroup = DefTOCComponentGroup;
  copy->NoStandardSupport = NoStandardSupport;
  copy->EnabledPlugins = CopyFiledUnderThemselves(*EnabledPlugins);
  copy->TemplateCategory = TemplateCategory;
  copy->StyleSheet = StyleSheet;
  copy->SupportedItemTypes = CopyFiledUnderThemselves(*SupportedItemTypes);
  return copy;
}

}  // namespace lwconfig
