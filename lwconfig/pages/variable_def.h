#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <lwconfig/core/instance_count.h>
#include <lwconfig/core/keyed_collection.h>
#include <lwconfig/core/xml_element.h>

namespace lwconfig {

class PageTemplate;

enum VariableDefTypeEnum : std::int32_t {
  vdtText = 0,
  vdtHTML = 1,
  vdtNumber = 2,
  vdtDate = 3,
  vdtColor = 4
};

/// A variable that a template's pages use and a user can set.
class VariableDef : public Counted<VariableDef> {
 public:
  static constexpr const char* kClassName = "VariableDef";

  std::string Name;  // the key in `VariableDefs`
  std::string Description;
  VariableDefTypeEnum VariableDefType = vdtText;
  std::string Caption;
  std::string DefaultValue;  // as text; not checked against the type

  std::shared_ptr<VariableDef> Clone() const;
  /// Reads a `VariableDef` element. "Name" and "Description" are required: error 5 ends the load where one is
  /// missing. An empty caption becomes the name. `PageTemplate` is accepted and not used.
  void Load(const XMLElement& e, const std::shared_ptr<PageTemplate>& PageTemplate);
  void Save(XMLElement& e) const;
};

/// The variables of a template, filed under their names.
class VariableDefs : public KeyedCollection<VariableDef>, public Counted<VariableDefs> {
 public:
  static constexpr const char* kClassName = "VariableDefs";
};

}  // namespace lwconfig
