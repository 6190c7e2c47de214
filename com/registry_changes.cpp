#include "registry_changes.h"

#include <memory>

namespace lwconfig::com {
namespace {

using platform::Narrow;

HKEY Root(RegistrationScope scope) {
  return scope == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::wstring Path(const std::wstring& key) {
  return L"Software\\Classes\\" + key;
}

Error Failure(RegistrationScope scope, const std::wstring& key, const char* what, LSTATUS status) {
  const char* root = scope == RegistrationScope::Machine ? "HKEY_LOCAL_MACHINE\\" : "HKEY_CURRENT_USER\\";
  std::string description = "The registry key " + (root + Narrow(Path(key))) + " cannot be " + what + ": " +
                            std::system_category().message(static_cast<int>(status));
  return {status == ERROR_ACCESS_DENIED ? kPermissionDenied : kPathFileAccess, std::move(description)};
}

using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, LSTATUS(WINAPI*)(HKEY)>;

/// The key, null where it cannot be opened.
Key Open(RegistrationScope scope, const std::wstring& key, REGSAM access) {
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(Root(scope), Path(key).c_str(), 0, access, &opened) != ERROR_SUCCESS) opened = nullptr;
  return {opened, ::RegCloseKey};
}

/// The data of a value, of any type.
struct Content {
  DWORD Type = REG_NONE;
  std::vector<BYTE> Bytes;
};

std::optional<Content> Read(HKEY key, const std::wstring& name) {
  Content content;
  DWORD size = 0;
  if (::RegQueryValueExW(key, name.c_str(), nullptr, &content.Type, nullptr, &size) != ERROR_SUCCESS)
    return std::nullopt;
  content.Bytes.resize(size);
  if (::RegQueryValueExW(key, name.c_str(), nullptr, &content.Type, content.Bytes.data(), &size) !=
      ERROR_SUCCESS)
    return std::nullopt;
  return content;
}

}  // namespace

RegistryChanges::RegistryChanges(RegistrationScope scope) : mScope(scope) {}

RegistryChanges::~RegistryChanges() {
  while (!mUndo.empty()) {
    mUndo.back()();
    mUndo.pop_back();
  }
}

void RegistryChanges::Write(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
  Key opened(nullptr, ::RegCloseKey);
  // Create level by level: each missing one has to be removed again on failure.
  for (std::size_t end = 0; end != std::wstring::npos;) {
    end = key.find(L'\\', end == 0 ? 0 : end + 1);
    const std::wstring level = key.substr(0, end);
    HKEY created = nullptr;
    DWORD disposition = 0;
    const LSTATUS status =
        ::RegCreateKeyExW(Root(mScope), Path(level).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                          KEY_QUERY_VALUE | KEY_SET_VALUE, nullptr, &created, &disposition);
    if (status != ERROR_SUCCESS) throw Failure(mScope, level, "written", status);
    opened.reset(created);
    if (disposition == REG_CREATED_NEW_KEY) {
      mUndo.emplace_back([scope = mScope, level] { ::RegDeleteKeyW(Root(scope), Path(level).c_str()); });
    }
  }

  mUndo.emplace_back([scope = mScope, key, name, before = Read(opened.get(), name)] {
    const Key restored = Open(scope, key, KEY_SET_VALUE);
    if (!restored) return;
    if (before) {
      ::RegSetValueExW(restored.get(), name.c_str(), 0, before->Type, before->Bytes.data(),
                       static_cast<DWORD>(before->Bytes.size()));
    } else {
      ::RegDeleteValueW(restored.get(), name.c_str());
    }
  });
  const LSTATUS status =
      ::RegSetValueExW(opened.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  if (status != ERROR_SUCCESS) throw Failure(mScope, key, "written", status);
}

RegistryRemoval::RegistryRemoval(RegistrationScope scope) : mScope(scope) {}

bool RegistryRemoval::Exists(const std::wstring& key) const {
  return Open(mScope, key, KEY_QUERY_VALUE) != nullptr;
}

void RegistryRemoval::Remove(const std::wstring& key) {
  Note(::RegDeleteTreeW(Root(mScope), Path(key).c_str()), key);
}

void RegistryRemoval::RemoveEmpty(const std::wstring& key) {
  const Key opened = Open(mScope, key, KEY_READ);
  DWORD keys = 0;
  DWORD values = 0;
  if (!opened || ::RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                    nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
    return;
  if (keys == 0 && values == 0) Note(::RegDeleteKeyW(Root(mScope), Path(key).c_str()), key);
}

void RegistryRemoval::End() const {
  if (mFailure) throw Error(*mFailure);
}

void RegistryRemoval::Note(LSTATUS status, const std::wstring& key) {
  if (status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND || mFailure) return;
  mFailure.emplace(Failure(mScope, key, "removed", status));
}

}  // namespace lwconfig::com
