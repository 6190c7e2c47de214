#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

class PageTemplate;

/// Kinds of value that a variable can have.
enum VariableDefTypeEnum : std::int32_t {
  vdtText = 0,    // plain text
  vdtHTML = 1,    // markup
  vdtNumber = 2,  // a number
  vdtDate = 3,    // a date
  vdtColor = 4,   // a colour
};

/// A variable that a template's pages use and a user can set.
class VariableDef : public Counted<VariableDef> {
 public:
  static constexpr const char* kClassName = "VariableDef";

  std::string Name;                               // the key in `VariableDefs`
  std::string Description;                        // description shown to users
  VariableDefTypeEnum VariableDefType = vdtText;  // kind of value
  std::string Caption;                            // prompt shown to users
  std::string DefaultValue;  // value unless the user sets one, as text; not checked against the type

  /// A copy of all properties.
  std::shared_ptr<VariableDef> Clone() const;
  /// Reads a `VariableDef` element. "Name" and "Description" are required: error 5 stops the load where one
  /// is missing. An empty caption becomes the name. `PageTemplate` is accepted and not used.
  void Load(const XMLElement& e, const std::shared_ptr<PageTemplate>& PageTemplate);
  /// Names the element `VariableDef` and writes the properties to it.
  void Save(XMLElement& e) const;
};

/// The variables of a template, filed under their names.
class VariableDefs : public KeyedCollection<VariableDef>, public Counted<VariableDefs> {
 public:
  static constexpr const char* kClassName = "VariableDefs";
};

}  // namespace lwconfig
