#include "type_library.h"

#include "failures.h"
#include "unknown.h"

namespace lwconfig::com {

HRESULT FindTypeInfo(REFGUID id, ITypeInfo** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return Guarded([&] {
    ComPtr<ITypeLib> library;
    // Do not cache it: the system caches the libraries in use.
    const HRESULT loaded = ::LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.GetAddressOf());
    return FAILED(loaded) ? ForgetFailure(loaded) : library->GetTypeInfoOfGuid(id, result);
  });
}

std::wstring ModulePath() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ModulePath), &module);
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(2 * path.size());
  }
}

}  // namespace lwconfig::com
