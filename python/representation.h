#pragma once

#include <pybind11/pybind11.h>

#include <lwconfig/core/base/variant.h>

namespace lwconfig::python {

/// The text of `repr()` for an object of that Python type: `<lwconfig.TOCDefinition Name='Manual'>`, with the
/// key; where there is none the first options that differ from their defaults, or values that are not empty.
/// Options that are all at their defaults say so.
pybind11::str Representation(pybind11::handle type, const AnyObject& object);

}  // namespace lwconfig::python
