#pragma once

#include <pybind11/pybind11.h>

namespace lwconfig::python {

/// Adds `check`, `configuration` and `transaction` to the module.
void AddConfigurations(pybind11::module_& module);

}  // namespace lwconfig::python
