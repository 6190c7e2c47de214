#pragma once

#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

/// The factory of a published class that clients can create: the result of `DllGetClassObject`.
HRESULT GetFactory(REFCLSID classId, REFIID id, void** result) noexcept;

}  // namespace lwconfig::com
