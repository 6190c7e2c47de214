#pragma once

#include <lwconfig/core/base/variant.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

/// A new enumeration where the value holds an enumerator, else null. The caller releases it.
IEnumVARIANT* ToEnumeration(const Variant& value);

}  // namespace lwconfig::com
