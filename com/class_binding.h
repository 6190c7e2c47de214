#pragma once

#include <vector>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

/// The identifiers and entries by which clients reach a published class.
struct ClassBinding {
  const automation::ClassInfo& Class;
  GUID ClassId;
  GUID InterfaceId;
  GUID EventsId;  // zero for a class without events
  /// The entries of the interface: those of `IDispatch`, then one for each slot.
  std::vector<const void*> Entries;
};

const ClassBinding& BindingOf(const automation::ClassInfo& info);
/// The binding with that class id; null where there is none.
const ClassBinding* FindBinding(REFCLSID classId);

}  // namespace lwconfig::com
