#include "registration.h"

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/idl.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/error.h>

#include "registry_changes.h"

namespace lwconfig::com {
namespace {

using automation::ClassInfo;
using platform::Wide;

/// The marshalers of the system for interfaces that the type library describes.
constexpr const wchar_t* kInterfaceMarshaler = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kEventMarshaler = L"{00020420-0000-0000-C000-000000000046}";

constexpr bool kIs64Bit = sizeof(void*) == 8;
constexpr const wchar_t* kPlatform = kIs64Bit ? L"\\0\\win64" : L"\\0\\win32";
constexpr const wchar_t* kOtherPlatform = kIs64Bit ? L"\\0\\win32" : L"\\0\\win64";

std::wstring Id(const std::string& name) {
  return L"{" + Wide(automation::Identity(name)) + L"}";
}
std::wstring LibraryKey() {
  return L"TypeLib\\" + Id(automation::kLibraryName);
}
std::wstring VersionKey() {
  return LibraryKey() + L"\\" + Wide(automation::kLibraryVersion);
}

/// A key that registers one class, interface or name, with everything in it.
struct Item {
  enum class Owners { This, Both };  // by the servers of both word sizes
  struct Row {
    std::wstring SubKey;
    std::wstring Name;  // empty for the value of the key itself
    std::wstring Value;
  };
  std::wstring Key;
  Owners Owner;
  std::vector<Row> Rows;
};

void AddClass(const ClassInfo& info, const std::wstring& modulePath, std::vector<Item>& items) {
  const std::string className = std::string("class.") + info.Name();
  const std::wstring name = Wide(automation::kLibraryName) + L"." + Wide(info.Name());
  const std::wstring versioned = name + L".1";
  items.push_back({L"CLSID\\" + Id(className),
                   Item::Owners::This,
                   {{L"", L"", name},
                    {L"\\InprocServer32", L"", modulePath},
                    {L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
                    {L"\\ProgID", L"", versioned},
                    {L"\\VersionIndependentProgID", L"", name},
                    {L"\\TypeLib", L"", Id(automation::kLibraryName)},
                    {L"\\Version", L"", Wide(automation::kLibraryVersion)}}});
  items.push_back({versioned, Item::Owners::Both, {{L"", L"", name}, {L"\\CLSID", L"", Id(className)}}});
  items.push_back({name,
                   Item::Owners::Both,
                   {{L"", L"", name}, {L"\\CLSID", L"", Id(className)}, {L"\\CurVer", L"", versioned}}});
}

Item Interface(const std::string& identity, const std::string& name, const wchar_t* marshaler) {
  return {L"Interface\\" + Id(identity + "." + name),
          Item::Owners::This,
          {{L"", L"", Wide(name)},
           {L"\\ProxyStubClsid32", L"", marshaler},
           {L"\\TypeLib", L"", Id(automation::kLibraryName)},
           {L"\\TypeLib", L"Version", Wide(automation::kLibraryVersion)}}};
}

/// Every registered key, in the order of writing.
std::vector<Item> Items(const std::wstring& modulePath) {
  std::vector<Item> items;
  items.push_back({VersionKey(),
                   Item::Owners::Both,
                   {{L"", L"", Wide(automation::kLibraryDescription)},
                    {kPlatform, L"", modulePath},
                    {L"\\FLAGS", L"", L"0"},
                    {L"\\HELPDIR", L"", modulePath.substr(0, modulePath.find_last_of(L'\\'))}}});
  for (const ClassInfo* info : automation::PublishedClasses()) {
    const std::string name = info->Name();
    items.push_back(Interface("interface", "_" + name, kInterfaceMarshaler));
    if (!info->Events().empty()) items.push_back(Interface("events", "__" + name, kEventMarshaler));
    if (info->IsCreatable()) AddClass(*info, modulePath, items);
  }
  return items;
}

}  // namespace

void Register(RegistrationScope scope, const std::wstring& modulePath) {
  RegistryChanges changes(scope);
  for (const Item& item : Items(modulePath)) {
    for (const Item::Row& row : item.Rows) changes.Write(item.Key + row.SubKey, row.Name, row.Value);
  }
  changes.Keep();
}

void Unregister(RegistrationScope scope) {
  RegistryRemoval removal(scope);
  removal.Remove(VersionKey() + kPlatform);
  const bool isOtherThere = removal.Exists(VersionKey() + kOtherPlatform);
  for (const Item& item : Items({})) {
    if (item.Owner == Item::Owners::This || !isOtherThere) removal.Remove(item.Key);
  }
  for (const std::wstring& key :
       {LibraryKey(), std::wstring(L"TypeLib"), std::wstring(L"Interface"), std::wstring(L"CLSID")})
    removal.RemoveEmpty(key);
  removal.End();
}

}  // namespace lwconfig::com
