#include <cstdint>

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>
#include <lwconfig/namespaces/plug_in.h>

namespace lwconfig {
namespace {

std::int64_t gLastPlugInNumber = 0;

}  // namespace

PlugInKey::PlugInKey() : Key("P" + std::to_string(++gLastPlugInNumber)) {}

void PlugIn::Load(const XMLElement& e) {
  AttributeReader in(e);
  in.Require("Name", Name);
  in.Require("Description", Description);
  in.Require("ExtendsWizard", ExtendsWizard, ExactTrue);
  in.Require("WizardProgID", WizardProgID);
  in.Require("ExtendsContent", ExtendsContent, ExactTrue);
  in.Require("ContentProgID", ContentProgID);
  in.Require("ExtendsTableOfContents", ExtendsTableOfContents, ExactTrue);
  in.Require("TableOfContentsProgID", TableOfContentsProgID);
}

void PlugIn::Save(XMLElement& e) const {
  e.PutAttribute("Name", Name);
  e.PutAttribute("Description", Description);
  e.PutAttribute("ExtendsWizard", ToText(ExtendsWizard));
  e.PutAttribute("WizardProgID", WizardProgID);
  e.PutAttribute("ExtendsContent", ToText(ExtendsContent));
  e.PutAttribute("ContentProgID", ContentProgID);
  e.PutAttribute("ExtendsTableOfContents", ToText(ExtendsTableOfContents));
  e.PutAttribute("TableOfContentsProgID", TableOfContentsProgID);
}

std::shared_ptr<PlugIn> PlugIn::Clone() const {
  return std::make_shared<PlugIn>(*this);
}

void PlugIns::Load() {
  LoadFrom(ConfigPath() + "\\PlugIns\\");
}

// A file of the folder "PlugIns". The root element has any name; the letter case of names is ignored.
//
//   <PlugIns>
//     <PlugIn Name="LW.Core" Description= ExtendsWizard="True" WizardProgID= ExtendsContent="True"
//             ContentProgID= ExtendsTableOfContents="False" TableOfContentsProgID=/>
//   </PlugIns>
void PlugIns::LoadFrom(std::string_view Folder) {
  mCol.Clear();
  ReadConfigurationFolder(Folder, [&](const XMLElement& root) {
    ReadChildren(root, AnyCase("PlugIn"), [&](const XMLElement& child) {
      auto plugIn = std::make_shared<PlugIn>();
      plugIn->Load(child);
      Add(plugIn, plugIn->Key);
    });
  });
}

std::shared_ptr<PlugIns> PlugIns::Clone() const {
  auto copies = std::make_shared<PlugIns>();
  for (const auto& plugIn : *this) {
    auto copy = plugIn->Clone();
    copies->Add(copy, copy->Key);
  }
  return copies;
}

}  // namespace lwconfig
