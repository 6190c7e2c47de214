#pragma once

#include <pybind11/pybind11.h>

namespace lwconfig::python {

/// `obj.on(event, callback)`: a connection of which the callback is part until it is closed, whoever holds
/// it. A callback that raises is told of like other exceptions that nobody can catch, and stops nothing.
PyObject* ConnectHandler(PyObject* self, PyObject* arguments);

/// Adds the type of connections to the module.
void AddConnections(pybind11::module_& module);

}  // namespace lwconfig::python
