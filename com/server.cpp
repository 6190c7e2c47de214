#include <olectl.h>

#include "class_factory.h"
#include "failures.h"
#include "registration.h"
#include "type_library.h"
#include "unknown.h"

using namespace lwconfig::com;

namespace {

/// Installers show this result as a message.
HRESULT RegistrationFailure(const lwconfig::Error& failure) {
  return failure.Number() == lwconfig::kPermissionDenied ? E_ACCESSDENIED : SELFREG_E_CLASS;
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
  return GetFactory(classId, id, result);
}

STDAPI DllCanUnloadNow() {
  return gUses == 0 && gLocks <= 0 ? S_OK : S_FALSE;
}

/// The command line "user" registers for the current user only, an empty one for every user.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  const bool isForUser = commandLine != nullptr && ::lstrcmpiW(commandLine, L"user") == 0;
  if (!isForUser && commandLine != nullptr && *commandLine != L'\0') return E_INVALIDARG;
  const auto scope = isForUser ? RegistrationScope::User : RegistrationScope::Machine;
  return Guarded(
      [&] {
        if (install != FALSE) {
          Register(scope, ModulePath());
        } else {
          Unregister(scope);
        }
        return S_OK;
      },
      RegistrationFailure);
}

STDAPI DllRegisterServer() {
  return DllInstall(TRUE, nullptr);
}

STDAPI DllUnregisterServer() {
  return DllInstall(FALSE, nullptr);
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
  if (reason == DLL_PROCESS_DETACH) gIsUnloading = true;
  return TRUE;
}
