#pragma once

#include <string>
#include <string_view>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// The class of the objects that elements of this name describe; null where there is none.
const automation::ClassInfo* ClassOfElement(std::string_view name);

/// The path from the root object to the object that an element of a configuration file describes, such as
/// `PageTemplates[House].VariableDefs[Footer]`. An element inside an object that is none itself has the path
/// of the object. Empty for a file of unknown kind.
std::string ModelPathOf(const XMLElement& e);

}  // namespace lwconfig
