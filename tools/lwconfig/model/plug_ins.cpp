#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

Node Describe(const PlugIn& plugIn) {
  const auto component = [](const char* label, bool extends, const std::string& progID) {
    return Property{label, {progID, extends ? Tone::Link : Tone::Quiet}};
  };
  Node node{"plug-in", plugIn.Name};
  node.OtherNames = {plugIn.Key};
  node.IsExpanded = true;
  node.Properties = {
      Labelled("description", plugIn.Description),
      Labelled("wizard", plugIn.ExtendsWizard),
      component("wizard", plugIn.ExtendsWizard, plugIn.WizardProgID),
      Labelled("content", plugIn.ExtendsContent),
      component("content", plugIn.ExtendsContent, plugIn.ContentProgID),
      Labelled("contents tree", plugIn.ExtendsTableOfContents),
      component("contents tree", plugIn.ExtendsTableOfContents, plugIn.TableOfContentsProgID),
  };
  return node;
}

}  // namespace

Group Describe(const PlugIns& plugIns) {
  return {"plugins", "PlugIns", EachOf(plugIns, [](const PlugIn& plugIn) { return Describe(plugIn); })};
}

}  // namespace lwconfig::tool
