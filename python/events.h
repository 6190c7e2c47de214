#pragma once

#include <pybind11/pybind11.h>

namespace lwconfig::python {

/// `obj.on(event, callback)`: a connection that lasts until it is closed or its Python object is destroyed.
/// An exception in the callback is reported as unraisable, and stops nothing.
PyObject* ConnectHandler(PyObject* self, PyObject* arguments);

/// Adds the type of connections to the module.
void AddConnections(pybind11::module_& module);

}  // namespace lwconfig::python
