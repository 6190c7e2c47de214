#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/pages/variable_def.h>

namespace lwconfig {

std::shared_ptr<VariableDef> VariableDef::Clone() const {
  return std::make_shared<VariableDef>(*this);
}

void VariableDef::Load(const XMLElement& e, const std::shared_ptr<lwconfig::PageTemplate>& /*PageTemplate*/) {
  AttributeReader in(e);
  in.Require("Name", Name);
  in.Require("Description", Description);
  in.Try("Type", VariableDefType, StrictInteger);
  in.Try("Caption", Caption);
  in.Try("Defaultvalue", DefaultValue);
  if (Caption.empty()) Caption = Name;
}

void VariableDef::Save(XMLElement& e) const {
  e.SetName("VariableDef");
  e.PutAttribute("Name", Name);
  e.PutAttribute("Type", ToText(VariableDefType));
  e.PutAttribute("Caption", Caption);
  e.PutAttribute("Description", Description);
  e.PutAttribute("Defaultvalue", DefaultValue);
}

}  // namespace lwconfig
