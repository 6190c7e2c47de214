#include "sample_configuration.h"

#include <algorithm>

namespace lwconfig::bench {
namespace {

constexpr int kLayouts = 60;
constexpr int kDefinitions = 5;
constexpr int kNodes = 60;
constexpr int kVariables = 20;

std::string Number(int value) {
  return std::to_string(value);
}
std::string LayoutFile(int layout) {
  return "page" + Number(layout) + ".html";
}

std::string Layout(int layout) {
  return "\t<PageLayout Name=\"Page " + Number(layout) + "\" FileName=\"" + LayoutFile(layout) +
         "\" PageType=\"" + Number(layout % 16) + "\" TitleTemplate=\"%%itemqualifiedname%%_page" +
         Number(layout) +
         ".html\" Namespace=\"LW:Method,LW:ImplementedMethod\" DependantCount=\"1\" "
         "DependantOnnamespace=\"LW:Module\" "
         "DependantOnnamespace_Filter=\"\" />\n";
}

std::string Variable(int variable) {
  return "\t<VariableDef Name=\"Variable" + Number(variable) + "\" Type=\"" + Number(variable % 5) +
         "\" Caption=\"Variable number " + Number(variable) +
         "\" Description=\"What the user sets here stands at the foot of every page &amp; in the index.\" "
         "Defaultvalue=\"Default text " +
         Number(variable) + "\" />\n";
}

std::string Node(int node) {
  const bool smart = node % 3 == 1;
  return "\t\t<NodeDef Key=\"N" + Number(node + 1) +
         "\" DependantCount=\"1\" DependantOn=\"0\" DependantOnnamespace=\"LW:Module\" "
         "DependantOnnamespace_Filter=\"\" "
         "DependantStillProcessChildren=\"False\" FileNameTemplate=\"%%itemqualifiedname%%_" +
         Number(node) +
         ".html\" LinkToPage=\"True\" MarkAsNew=\"False\" NodeCaptionTemplate=\"%%phrase.Members%% " +
         Number(node) + "\" NodeIconIndex=\"1\" NodeType=\"" + (smart ? "1" : "0") + "\" PageLayout=\"" +
         LayoutFile(node % kLayouts) + "\" PageTypeNamespace=\"" + (smart ? "LW:Method" : "") +
         "\" PageTypeNamespaceFilter=\"\" ParentKey=\"" +
         (node < 5 ? std::string() : "N" + Number(node / 4)) +
         "\" UseCustomIcon=\"False\" IsDefaultTopic=\"False\" PlugInName=\"\" PlugInData=\"\" />\n";
}

std::string Template(int number) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<PageTemplate RootFolder=\"\" Name=\"Template " +
      Number(number) +
      "\" Description=\"A template made up for measuring\" ObjFillColor=\"16777215\" ObjTextColor=\"0\" "
      "ObjBorderColor=\"0\" ColFillColor=\"16777215\" ColTextColor=\"0\" ColBordercolor=\"0\" "
      "BorderWidth=\"1\" UseDropShadow=\"True\" CenterCaptions=\"False\" DiagramBold=\"True\" "
      "UseDiagramShapes=\"False\" Supports=\"\" Version=\"4.11\" Languages=\"\" DefTOCVBProject=\"Contents "
      "0\" "
      "DefTOCVBProjectGroup=\"Contents 1\" DefTOCMixture=\"Contents 2\" DefTOCComponent=\"Contents 3\" "
      "DefTOCComponentGroup=\"Contents 4\" NoStandardSupport=\"False\" TemplateCategory=\"Measured\" "
      "StyleSheet=\"style.css\" SupportedItemTypes=\"binary,source\">\n";
  for (int i = 0; i < kLayouts; ++i) text += Layout(i);
  for (int i = 0; i < kVariables; ++i) text += Variable(i);
  for (int i = 0; i < kDefinitions; ++i) {
    text += "\t<TOCDefinition Name=\"Contents " + Number(i) + "\" Description=\"Contents definition\">\n";
    for (int node = 0; node < kNodes; ++node) text += Node(node);
    text += "\t</TOCDefinition>\n";
  }
  return text + "\t<NamespaceDef Name=\"LW.Core\" />\n\t<EnabledPlugins />\n</PageTemplate>\n";
}

}  // namespace

std::optional<RegistryValue> ConfigPathRegistry::Read(Hive, std::string_view, std::string_view name) {
  if (name != "ConfigPath") return std::nullopt;
  return RegistryValue{1, mConfigPath};
}
std::optional<RegistryKey> ConfigPathRegistry::List(Hive, std::string_view) {
  return RegistryKey();
}
void ConfigPathRegistry::Apply(const std::vector<RegistryChange>&) {}

SampleConfiguration::SampleConfiguration(int templates) {
  std::filesystem::create_directories(mFolder.Path() / "Namespaces");
  WriteFile(mFolder.Path() / "Namespaces" / "LW.Core.xml",
            "<Profile Name=\"LW.Core\"><lwnamespace Name=\"LW:Module\" Handler=\"\" "
            "Caption=\"Module\"/></Profile>\n");
  for (int number = 0; number < templates; ++number) {
    std::string name = Number(number);
    name.insert(0, 6 - std::min<std::size_t>(6, name.size()), '0');
    const auto folder = mFolder.Path() / "Templates" / ("t" + name);
    std::filesystem::create_directories(folder);
    for (int layout = 0; layout < kLayouts; ++layout)
      WriteFile(folder / LayoutFile(layout), "<html></html>\n");
    const std::string text = Template(number);
    mConfigFiles.push_back(folder / "config.xml");
    WriteFile(mConfigFiles.back(), text);
  }
}

}  // namespace lwconfig::bench
