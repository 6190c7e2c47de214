#include "class_factory.h"
#include "failures.h"
#include "registration.h"
#include "type_library.h"
#include "unknown.h"

using namespace lwconfig::com;

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
  return GetFactory(classId, id, result);
}

STDAPI DllCanUnloadNow() {
  return gUses == 0 && gLocks <= 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return Guarded([] {
    Register(RegistrationScope::Machine, ModulePath());
    return S_OK;
  });
}

STDAPI DllUnregisterServer() {
  return Guarded([] {
    Unregister(RegistrationScope::Machine);
    return S_OK;
  });
}

/// With "user" as the command line for the current user only, without one for everybody.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  return Guarded([&] {
    const bool isForUser = commandLine != nullptr && ::lstrcmpiW(commandLine, L"user") == 0;
    if (!isForUser && commandLine != nullptr && *commandLine != L'\0') return E_INVALIDARG;
    const auto scope = isForUser ? RegistrationScope::User : RegistrationScope::Machine;
    if (install != FALSE) {
      Register(scope, ModulePath());
    } else {
      Unregister(scope);
    }
    return S_OK;
  });
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
  if (reason == DLL_PROCESS_DETACH) gIsUnloading = true;
  return TRUE;
}
