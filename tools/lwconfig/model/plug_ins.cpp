#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

Property Extension(const char* name, bool extends, const char* label) {
  return {name, extends, label, {extends ? "yes" : ""}};
}

Node Describe(const PlugIn& plugIn) {
  const auto component = [](const char* name, bool extends, const std::string& progID, const char* label) {
    return Property{name, progID, label, {progID, extends ? Tone::Link : Tone::Quiet}};
  };
  Node node{"plug-in", plugIn.Name};
  node.OtherNames = {plugIn.Key};
  node.IsExpanded = true;
  node.Properties = {
      Unlabelled("Name", plugIn.Name),
      Unlabelled("Key", plugIn.Key),
      Valued("Description", plugIn.Description, "description"),
      Extension("ExtendsWizard", plugIn.ExtendsWizard, "wizard"),
      component("WizardProgID", plugIn.ExtendsWizard, plugIn.WizardProgID, "wizard"),
      Extension("ExtendsContent", plugIn.ExtendsContent, "content"),
      component("ContentProgID", plugIn.ExtendsContent, plugIn.ContentProgID, "content"),
      Extension("ExtendsTableOfContents", plugIn.ExtendsTableOfContents, "contents tree"),
      component("TableOfContentsProgID", plugIn.ExtendsTableOfContents, plugIn.TableOfContentsProgID,
                "contents tree"),
  };
  return node;
}

}  // namespace

Group Describe(const PlugIns& plugIns) {
  return {"plugins", "PlugIns", EachOf(plugIns, [](const PlugIn& plugIn) { return Describe(plugIn); })};
}

}  // namespace lwconfig::tool
