#pragma once

#include <memory>
#include <vector>

#include <pybind11/pybind11.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/base/variant.h>

namespace lwconfig::python {

/// Collections with Python's protocols: `len(c)`, `for x in c`, `x in c`, `c["key"]`, `c[0]`, slices,
/// `reversed(c)` and `del c["key"]`, beside the published default member as a call, `c("key")` and `c(1)`.

/// The type slots of a published class; none beyond its default member where it is no collection.
std::vector<PyType_Slot> CollectionSlots(const automation::ClassInfo& info);

pybind11::object MakeIterator(const std::shared_ptr<automation::Enumerator>& enumerator);

std::int32_t CountOf(const AnyObject& collection);

}  // namespace lwconfig::python
