#pragma once

#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

class Object;

/// `IDispatch::GetIDsOfNames` and `IDispatch::Invoke` of the server's objects.
HRESULT FindNames(Object& object, REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) noexcept;
HRESULT InvokeLate(Object& object, DISPID id, REFIID reserved, WORD flags, DISPPARAMS* parameters,
                   VARIANT* result, EXCEPINFO* failure) noexcept;

}  // namespace lwconfig::com
