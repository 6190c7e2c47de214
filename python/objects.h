#pragma once

#include <pybind11/pybind11.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/base/variant.h>

namespace lwconfig::python {

/// One Python type for each published class, with its members as attributes, made from the class table.

/// A published object in Python. While it is alive, it is the only wrapper of its object.
struct Wrapper {
  PyObject_HEAD AnyObject* Object;
  PyObject* WeakReferences;
};

/// Creates the types and adds them to the module.
void AddTypes(pybind11::module_& module);

/// The wrapper of the object; None where there is none. A foreign object that came from Python is
/// returned as itself.
pybind11::object WrapperOf(const AnyObject& object);

/// The object in a wrapper; any other Python object becomes a foreign object.
AnyObject ObjectOf(pybind11::handle value);

/// Releases one reference to a Python object, from any thread. The library may outlive the interpreter, and
/// with it every Python object.
void Release(PyObject* object) noexcept;

bool IsWrapper(pybind11::handle value);

/// The object of a wrapper, which `self` is.
inline AnyObject& Unwrap(PyObject* self) {
  return *reinterpret_cast<Wrapper*>(self)->Object;
}

}  // namespace lwconfig::python
