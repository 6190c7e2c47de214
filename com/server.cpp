#include "class_factory.h"
#include "failures.h"
#include "registration.h"
#include "type_library.h"
#include "unknown.h"
#include "values.h"

using namespace lwconfig::com;

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
  return GetFactory(classId, id, result);
}

STDAPI DllCanUnloadNow() {
  return gUses == 0 ? S_OK : S_FALSE;
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

/// With "user" as the command line, for the current user only.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  return Guarded([&] {
    const bool isForUser = commandLine != nullptr && ::lstrcmpiW(commandLine, L"user") == 0;
    const auto scope = isForUser ? RegistrationScope::User : RegistrationScope::Machine;
    if (install != FALSE) {
      Register(scope, ModulePath());
    } else {
      Unregister(scope);
    }
    return S_OK;
  });
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* reserved) {
  const bool processEnds = reason == DLL_PROCESS_DETACH && reserved != nullptr;
  if (processEnds) AbandonForeignObjects();
  return TRUE;
}
