#pragma once

#include <string>

#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

/// The type information of an interface or a class, from the type library in the server's own file. The
/// caller releases it.
HRESULT FindTypeInfo(REFGUID id, ITypeInfo** result);

/// The file of this code.
std::wstring ModulePath();

}  // namespace lwconfig::com
