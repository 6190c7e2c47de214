#pragma once

#include <string>
#include <string_view>

#include <pybind11/pybind11.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/base/variant.h>

namespace lwconfig::python {

/// Conversion of values between Python and the published interface. Texts that are not valid UTF-8 keep their
/// bytes through Python's surrogates; error 13 for a text with any other lone surrogate. Other failures are
/// Python exceptions (`error_already_set`).

/// None is no object; integers beyond 32 bits are doubles; objects of no published class are passed
/// as they are.
Variant FromPython(pybind11::handle value);

/// The file name of a text or path object, by `os.fspath`.
std::string FromPythonPath(pybind11::handle value);

/// No object, empty and Null are None; an integer of an enumeration is its member, where it has one.
pybind11::object ToPython(const Variant& value, const automation::TypeInfo& type = {});

/// The IntEnum of an enumeration, created on first use.
pybind11::object EnumerationType(const automation::EnumInfo& info);

pybind11::str ToPythonText(std::string_view text);

}  // namespace lwconfig::python
