#include <algorithm>
#include <cstring>
#include <memory>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/registry.h>

#include "system.h"

namespace lwconfig::platform {
namespace {

/// Use the machine's keys of 32-bit programs, whatever the caller is: the product is a 32-bit program.
REGSAM View(Hive hive) {
  return hive == Hive::LocalMachine ? KEY_WOW64_32KEY : 0;
}

HKEY Root(Hive hive) {
  return hive == Hive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::string FullName(Hive hive, std::string_view key) {
  return std::string(hive == Hive::LocalMachine ? "HKEY_LOCAL_MACHINE\\" : "HKEY_CURRENT_USER\\") +
         std::string(key);
}

void Check(LSTATUS status, Hive hive, std::string_view key) {
  if (status != ERROR_SUCCESS) ThrowWindowsError(FullName(hive, key), static_cast<DWORD>(status));
}

using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, LSTATUS(WINAPI*)(HKEY)>;

/// The key, null where there is none.
Key Open(Hive hive, std::string_view key, REGSAM access) {
  HKEY opened = nullptr;
  const LSTATUS status = ::RegOpenKeyExW(Root(hive), Wide(key).c_str(), 0, access | View(hive), &opened);
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND && status != ERROR_PATH_NOT_FOUND)
    Check(status, hive, key);
  return {opened, ::RegCloseKey};
}

Key Create(Hive hive, std::string_view key) {
  HKEY opened = nullptr;
  Check(::RegCreateKeyExW(Root(hive), Wide(key).c_str(), 0, nullptr, 0, KEY_WRITE | View(hive), nullptr,
                          &opened, nullptr),
        hive, key);
  return {opened, ::RegCloseKey};
}

bool IsText(DWORD type) {
  return type == REG_SZ || type == REG_EXPAND_SZ;
}

RegistryValue ToValue(DWORD type, const std::vector<std::uint8_t>& bytes) {
  if (IsText(type)) {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    return {type, Narrow(text.substr(0, text.find(L'\0')))};
  }
  if (type == REG_DWORD && bytes.size() == sizeof(std::uint32_t)) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    return {type, number};
  }
  return {type, bytes};
}

std::vector<std::uint8_t> ToBytes(const RegistryValue& value) {
  std::vector<std::uint8_t> bytes;
  const auto put = [&](const void* data, std::size_t size) {
    const auto* first = static_cast<const std::uint8_t*>(data);
    bytes.assign(first, first + size);
  };
  if (const auto* text = std::get_if<std::string>(&value.Data)) {
    const std::wstring wide = Wide(*text);
    put(wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
  } else if (const auto* number = std::get_if<std::uint32_t>(&value.Data)) {
    put(number, sizeof *number);
  } else {
    bytes = std::get<std::vector<std::uint8_t>>(value.Data);
  }
  return bytes;
}

class NativeRegistry final : public Registry {
 public:
  std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) override {
    const Key opened = Open(hive, key, KEY_READ);
    if (!opened) return std::nullopt;
    const std::wstring wide = Wide(name);
    std::vector<std::uint8_t> bytes(256);
    for (;;) {
      DWORD type = 0;
      auto size = static_cast<DWORD>(bytes.size());
      const LSTATUS status =
          ::RegQueryValueExW(opened.get(), wide.c_str(), nullptr, &type, bytes.data(), &size);
      if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
      bytes.resize(size);
      if (status == ERROR_MORE_DATA) continue;
      Check(status, hive, key);
      return ToValue(type, bytes);
    }
  }

  std::optional<RegistryKey> List(Hive hive, std::string_view key) override {
    const Key opened = Open(hive, key, KEY_READ);
    if (!opened) return std::nullopt;
    RegistryKey listed;
    std::wstring name(1 << 15, L'\0');  // the length limit of names
    for (DWORD at = 0;; ++at) {
      auto length = static_cast<DWORD>(name.size());
      const LSTATUS status =
          ::RegEnumKeyExW(opened.get(), at, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
      if (status == ERROR_NO_MORE_ITEMS) break;
      Check(status, hive, key);
      listed.Keys.push_back(Narrow(name.substr(0, length)));
    }
    for (DWORD at = 0;; ++at) {
      auto length = static_cast<DWORD>(name.size());
      const LSTATUS status =
          ::RegEnumValueW(opened.get(), at, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
      if (status == ERROR_NO_MORE_ITEMS) break;
      Check(status, hive, key);
      std::string found = Narrow(name.substr(0, length));
      if (auto value = Read(hive, key, found))
        listed.Values.emplace_back(std::move(found), std::move(*value));
    }
    const auto before = [](std::string_view a, std::string_view b) { return CompareIgnoringCase(a, b) < 0; };
    std::ranges::sort(listed.Keys, before);
    std::ranges::sort(listed.Values, before,
                      [](const auto& value) -> std::string_view { return value.first; });
    return listed;
  }

  void Apply(const std::vector<RegistryChange>& changes) override {
    for (const Hive hive : {Hive::LocalMachine, Hive::CurrentUser}) {
      for (const RegistryChange& change : changes) {
        if (change.Root == hive) Make(change);
      }
    }
  }

 private:
  static void Make(const RegistryChange& change) {
    using Kinds = RegistryChange::Kinds;
    const Hive hive = change.Root;
    if (change.Kind == Kinds::Key || change.Kind == Kinds::Value) {
      const Key key = Create(hive, change.Key);
      if (change.Kind == Kinds::Key) return;
      const auto bytes = ToBytes(change.Value);
      Check(::RegSetValueExW(key.get(), Wide(change.Name).c_str(), 0, change.Value.Type, bytes.data(),
                             static_cast<DWORD>(bytes.size())),
            hive, change.Key);
      return;
    }
    const Key key = Open(hive, change.Key, KEY_WRITE | KEY_READ | DELETE);
    if (!key) return;
    if (change.Kind == Kinds::DeletedValue) {
      const LSTATUS status = ::RegDeleteValueW(key.get(), Wide(change.Name).c_str());
      if (status != ERROR_FILE_NOT_FOUND) Check(status, hive, change.Key);
      return;
    }
    Check(::RegDeleteTreeW(key.get(), nullptr), hive, change.Key);
    Check(::RegDeleteKeyExW(Root(hive), Wide(change.Key).c_str(), View(hive), 0), hive, change.Key);
  }
};

}  // namespace

Registry& Registry::Native() {
  static NativeRegistry registry;
  return registry;
}

}  // namespace lwconfig::platform
