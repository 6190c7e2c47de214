#pragma once

#include <pybind11/pybind11.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/base/variant.h>

namespace lwconfig::python {

/// Calls of published members with Python's arguments. None omits an optional argument. Failures are set as
/// Python exceptions, and the result is then null or -1.

/// The argument at that place, from 0; path objects are accepted for file names. Error 13 names the argument.
Variant ToArgument(const automation::ClassInfo& info, const automation::MemberInfo& slot, std::size_t place,
                   pybind11::handle value);

/// The slot's result; for a slot with returned parameters, a tuple of the result and these.
PyObject* CallSlot(PyObject* self, const automation::MemberInfo& slot, PyObject* const* arguments,
                   std::size_t count, PyObject* names = nullptr);
PyObject* GetProperty(PyObject* self, const automation::MemberInfo& getter);
/// `value` is null for a deletion, which is refused.
int SetProperty(PyObject* self, const automation::ClassInfo::Member& member, PyObject* value);

/// A callable object that is a method of its class.
pybind11::object MakeMethod(const automation::ClassInfo& info, const automation::MemberInfo& slot);
/// Creates the type of such objects.
void PrepareMethods();

}  // namespace lwconfig::python
