#pragma once

#include <vector>

#include <lwconfig/automation/class_info.h>

namespace lwconfig::com {

/// The entries of the dual interface of a class: functions that take a `DualInterface*` first.
std::vector<const void*> InterfaceEntries(const automation::ClassInfo& info);

}  // namespace lwconfig::com
