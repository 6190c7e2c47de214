#include <unordered_map>

#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/pages/node_def.h>
#include <lwconfig/pages/page_layout.h>
#include <lwconfig/pages/toc_definition.h>
#include <lwconfig/templates/page_template.h>

namespace lwconfig {
namespace {

std::int64_t gNextNodeNumber = 0;

std::string_view NamespaceOf(DependantOnEnum dependantOn) {
  switch (dependantOn) {
    case depMethods:
      return "LW:Method";
    case depProperties:
      return "LW:Property";
    case depEvents:
      return "LW:Event";
    case depEnumerations:
      return "LW:Enumeration";
    case depUDTs:
      return "LW:Structure";
    case depLibraries:
      return "LW:Library";
    case depInterfaces:
      return "LW:ImplementedInterface";
    case depProjects:
      return "LW:Project";
    default:
      return {};
  }
}

constexpr auto kNoDependency = static_cast<DependantOnEnum>(-1);
constexpr std::int32_t kOlderStandardNode = 3;

/// The number of a key such as N41.
Conversion<std::int32_t> KeyNumber(std::string_view key) {
  std::size_t second = key.empty() ? 0 : 1;
  while (second < key.size() && (static_cast<unsigned char>(key[second]) & 0xC0) == 0x80) ++second;
  return StrictInteger(key.substr(second));
}

void ReportUnknownLayout(const XMLElement& e, const char* layout, const PageLayouts* layouts) {
  Report(Problem::UnknownLayout, e, "PageLayout",
         "the node gets no page: no page layout before it has the file \"" + std::string(layout) + "\"", [&] {
           std::vector<std::string> known;
           if (layouts != nullptr) {
             for (const auto& existing : *layouts) known.push_back(existing->FileName);
           }
           return Nearest(layout, known);
         });
}

std::shared_ptr<PageTemplate> TemplateOf(const std::shared_ptr<TOCDefinition>& definition) {
  auto pageTemplate = definition ? definition->PageTemplate() : nullptr;
  if (!pageTemplate)
    throw Error(kObjectNotSet, "The node belongs to no contents definition with a page template");
  return pageTemplate;
}

}  // namespace

NodeDef::NodeDef() : Key(1, 'N') {
  Key += std::to_string(gNextNodeNumber++);
}

void NodeDef::SetParentNodeDef(const std::shared_ptr<NodeDef>& parent) {
  mParentNodeDef.SetObject(parent);
  mParentKey = parent ? parent->Key : std::string();
}

std::shared_ptr<PageLayout> NodeDef::PageLayout() const {
  const auto layouts = TemplateOf(TOCDefinition())->PageLayouts();
  if (mPageLayout.empty()) return nullptr;
  return layouts->Item(mPageLayout);
}

void NodeDef::SetPageLayout(const std::shared_ptr<lwconfig::PageLayout>& layout) {
  mPageLayout = layout ? layout->FileName : std::string();
}

std::int32_t NodeDef::ActualIconIndex(bool HasChildren) const {
  if (UseCustomIcon) return mNodeIconIndex;
  if (MarkAsNew) return HasChildren ? 3 : 12;
  return HasChildren ? 1 : 11;
}

std::int32_t NodeDef::ActualExpandedIconIndex(bool HasChildren) const {
  if (UseCustomIcon) return mNodeIconIndex;
  if (MarkAsNew) return HasChildren ? 4 : 12;
  return HasChildren ? 2 : 11;
}

void NodeDef::CementReferences(const std::shared_ptr<lwconfig::NodeDefs>& NodeDefs) {
  if (mParentKey.empty()) return;
  if (!NodeDefs) throw Error(kObjectNotSet, "No nodes were given to find the parent node in");
  SetParentNodeDef(NodeDefs->Item(mParentKey));
}

void NodeDef::Load(const XMLElement& e, const std::shared_ptr<lwconfig::TOCDefinition>& TOCDefinition) {
  SetTOCDefinition(TOCDefinition);
  AttributeReader in(e);
  std::int32_t number = 0;
  in.Require("Key", number, [&](std::string_view text) { return KeyNumber(Key = text); });
  if (number >= gNextNodeNumber) gNextNodeNumber = std::int64_t{number} + 1;

  in.Try("DependantCount", DependantCount, LeadingInteger);
  DependantOn = kNoDependency;
  in.Try("DependantOn", DependantOn, StrictInteger);
  in.Try("DependantOnnamespace", DependantOnNamespace);
  if (DependantOnNamespace.empty() && DependantOn != kNoDependency)
    DependantOnNamespace = NamespaceOf(DependantOn);
  in.Try("DependantOnnamespace_Filter", DependantOnNamespace_Filter);
  in.Try("DependantStillProcessChildren", DependantStillProcessChildren, TextToBoolean);
  in.Try("FileNameTemplate", FileNameTemplate);
  in.Try("LinkToPage", LinkToPage, TextToBoolean);
  in.Try("MarkAsNew", MarkAsNew, TextToBoolean);
  in.Try("NodeCaptionTemplate", NodeCaptionTemplate);
  if (NodeCaptionTemplate.empty()) in.Try("NodeCaptionText", NodeCaptionTemplate);  // the name in older files
  in.Try("NodeIconIndex", mNodeIconIndex, StrictInteger);
  if (in.Try("NodeType", NodeType, StrictInteger) && NodeType == kOlderStandardNode) NodeType = ntStandard;
  const auto pageTemplate = TOCDefinition ? TOCDefinition->PageTemplate() : nullptr;
  const auto layouts = pageTemplate ? pageTemplate->PageLayouts() : nullptr;
  const char* layout = in.Find("PageLayout");
  if (layout != nullptr && layouts && StringTools::ObjectKeyExists(*layouts, layout)) {
    mPageLayout = layout;
  } else if (layout != nullptr && *layout != '\0') {
    ReportUnknownLayout(e, layout, layouts.get());
  }
  PageType = kNoPageType;
  in.Try("PageType", PageType, StrictInteger);
  in.Try("PageTypeNamespace", PageTypeNamespace);
  in.Try("PageTypeNamespaceFilter", PageTypeNamespaceFilter);
  if (PageTypeNamespace.empty() && PageType != kNoPageType) PageTypeNamespace = CodeElementOf(PageType);
  in.Try("ParentKey", mParentKey);
  in.Try("UseCustomIcon", UseCustomIcon, ExactTrue);
  in.Try("IsDefaultTopic", IsDefaultTopic, ExactTrue);
  in.Try("PlugInName", PlugInName);
  in.Try("PlugInData", PlugInData);
}

void NodeDef::Save(XMLElement& e) const {
  const auto parent = ParentNodeDef();
  e.SetName("NodeDef");
  e.PutAttribute("Key", Key);
  e.PutAttribute("DependantCount", ToText(DependantCount));
  e.PutAttribute("DependantOn", ToText(DependantOn));
  e.PutAttribute("DependantOnnamespace", DependantOnNamespace);
  e.PutAttribute("DependantOnnamespace_Filter", DependantOnNamespace_Filter);
  e.PutAttribute("DependantStillProcessChildren", ToText(DependantStillProcessChildren));
  e.PutAttribute("FileNameTemplate", FileNameTemplate);
  e.PutAttribute("LinkToPage", ToText(LinkToPage));
  e.PutAttribute("MarkAsNew", ToText(MarkAsNew));
  e.PutAttribute("NodeCaptionTemplate", NodeCaptionTemplate);
  e.PutAttribute("NodeIconIndex", ToText(mNodeIconIndex));
  e.PutAttribute("NodeType", ToText(NodeType));
  e.PutAttribute("PageLayout", mPageLayout);
  e.PutAttribute("PageTypeNamespace", PageTypeNamespace);
  e.PutAttribute("PageTypeNamespaceFilter", PageTypeNamespaceFilter);
  e.PutAttribute("ParentKey", parent ? parent->Key : std::string());
  e.PutAttribute("UseCustomIcon", ToText(UseCustomIcon));
  e.PutAttribute("IsDefaultTopic", ToText(IsDefaultTopic));
  e.PutAttribute("PlugInName", PlugInName);
  e.PutAttribute("PlugInData", PlugInData);
}

std::shared_ptr<NodeDef> NodeDef::Clone() const {
  auto layout = PageLayout();
  // Take a number for every node that is created, even if it then gets the key of its source.
  auto copy = std::make_shared<NodeDef>();
  *copy = *this;
  copy->SetPageLayout(layout);
  return copy;
}

std::shared_ptr<NodeDefs> NodeDefs::Clone(
    const std::shared_ptr<lwconfig::TOCDefinition>& TOCDefinition) const {
  auto copies = std::make_shared<NodeDefs>();
  for (const auto& node : *this) {
    auto copy = node->Clone();
    copy->SetTOCDefinition(TOCDefinition);
    if (const auto layout = node->PageLayout()) {
      copy->SetPageLayout(TemplateOf(TOCDefinition)->PageLayouts()->Item(layout->FileName));
    }
    copies->Add(copy, copy->Key);
  }
  for (const auto& copy : *copies) copy->CementReferences(copies);
  return copies;
}

std::vector<std::vector<std::shared_ptr<NodeDef>>> NodeDefs::ParentLoops() const {
  std::vector<std::vector<std::shared_ptr<NodeDef>>> loops;
  std::unordered_map<const NodeDef*, const NodeDef*> startOf;  // the node whose walk reached the node first
  for (const auto& start : *this) {
    std::shared_ptr<NodeDef> node = start;
    while (node && startOf.try_emplace(node.get(), start.get()).second) node = node->ParentNodeDef();
    if (!node || startOf[node.get()] != start.get()) continue;
    auto& loop = loops.emplace_back();
    const std::shared_ptr<NodeDef> first = node;
    do {
      loop.push_back(node);
      node = node->ParentNodeDef();
    } while (node != first);
  }
  return loops;
}

}  // namespace lwconfig
