#include <fstream>
#include <map>

#include <com/registration.h>
#include <gmock/gmock.h>
#include <wrl/client.h>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/manifest.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/error.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {
namespace {

using platform::Narrow;
using platform::Wide;
using ::testing::HasSubstr;

/// All values of a key and of the keys in it, "path" for the key itself and "path@name" for its values.
using Snapshot = std::map<std::string, std::string>;

void Add(HKEY parent, const std::wstring& path, Snapshot& snapshot) {
  HKEY key = nullptr;
  ASSERT_EQ(::RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key), ERROR_SUCCESS);
  std::vector<wchar_t> name(1000);
  std::vector<wchar_t> text(40000);
  for (DWORD at = 0;; ++at) {
    auto nameSize = static_cast<DWORD>(name.size());
    auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (::RegEnumValueW(key, at, name.data(), &nameSize, nullptr, nullptr,
                        reinterpret_cast<BYTE*>(text.data()), &size) != ERROR_SUCCESS)
      break;
    snapshot[Narrow(path) + "@" + Narrow(name.data())] = Narrow(text.data());
  }
  for (DWORD at = 0; ::RegEnumKeyW(key, at, name.data(), static_cast<DWORD>(name.size())) == ERROR_SUCCESS;
       ++at) {
    const std::wstring inner = path + L"\\" + name.data();
    snapshot[Narrow(inner)];
    Add(parent, inner, snapshot);
  }
  ::RegCloseKey(key);
}

/// Machine and user are keys of the test's own, so that it needs no rights and leaves nothing behind.
class Registration : public ::testing::TestWithParam<RegistrationScope> {
 protected:
  void SetUp() override {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kPlace);
    ::RegCreateKeyW(HKEY_CURRENT_USER, kPlace, &mPlace);
    ASSERT_EQ(::RegOverridePredefKey(Hive(), mPlace), ERROR_SUCCESS);
    Create(L"Software\\Classes\\.txt");
  }
  void TearDown() override {
    ::RegOverridePredefKey(Hive(), nullptr);
    ::RegCloseKey(mPlace);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kPlace);
  }

  static HKEY Hive() {
    return GetParam() == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
  }
  static void Create(const std::wstring& path, DWORD options = REG_OPTION_NON_VOLATILE) {
    HKEY key = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(Hive(), path.c_str(), 0, nullptr, options, KEY_WRITE, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    ::RegCloseKey(key);
  }
  static Snapshot Classes() {
    Snapshot snapshot;
    Add(Hive(), L"Software\\Classes", snapshot);
    return snapshot;
  }

 private:
  static constexpr const wchar_t* kPlace = L"Software\\LWConfigObjects.RegistrationTest";
  HKEY mPlace = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Scopes, Registration,
                         ::testing::Values(RegistrationScope::Machine, RegistrationScope::User));

std::string Id(const std::string& name) {
  return "{" + std::string(automation::Identity(name)) + "}";
}

const std::string kClasses = "Software\\Classes\\";
const std::string kLibrary = kClasses + "TypeLib\\" + Id("LWConfigObjects");
const std::string kOwnPlatform = sizeof(void*) == 8 ? "win64" : "win32";
const std::string kOtherPlatform = sizeof(void*) == 8 ? "win32" : "win64";

TEST_P(Registration, TellsClientsWhereEverythingIs) {
  const std::string folder = "C:\\Programme\\Größe 日本\\" + std::string(300, 'x');
  const std::string file = folder + "\\LWConfigObjects.dll";
  Register(GetParam(), Wide(file));
  const std::string root = kClasses + "CLSID\\" + Id("class.Root");
  const std::string face = kClasses + "Interface\\" + Id("interface._PageTemplate");
  const std::string events = kClasses + "Interface\\" + Id("events.__PageTemplate");
  const std::pair<std::string, std::string> kRows[] = {
      {root + "@", "LWConfigObjects.Root"},
      {root + "\\InprocServer32@", file},
      {root + "\\InprocServer32@ThreadingModel", "Apartment"},
      {root + "\\ProgID@", "LWConfigObjects.Root.1"},
      {root + "\\VersionIndependentProgID@", "LWConfigObjects.Root"},
      {root + "\\TypeLib@", Id("LWConfigObjects")},
      {root + "\\Version@", "1.0"},
      {kClasses + "LWConfigObjects.Root.1\\CLSID@", Id("class.Root")},
      {kClasses + "LWConfigObjects.Root\\CLSID@", Id("class.Root")},
      {kClasses + "LWConfigObjects.Root\\CurVer@", "LWConfigObjects.Root.1"},
      {kLibrary + "\\1.0@", "The configuration object model of Lexiwend"},
      {kLibrary + "\\1.0\\0\\" + kOwnPlatform + "@", file},
      {kLibrary + "\\1.0\\FLAGS@", "0"},
      {kLibrary + "\\1.0\\HELPDIR@", folder},
      {face + "@", "_PageTemplate"},
      {face + "\\ProxyStubClsid32@", "{00020424-0000-0000-C000-000000000046}"},
      {face + "\\TypeLib@", Id("LWConfigObjects")},
      {face + "\\TypeLib@Version", "1.0"},
      {events + "@", "__PageTemplate"},
      {events + "\\ProxyStubClsid32@", "{00020420-0000-0000-C000-000000000046}"},
  };
  Snapshot found = Classes();
  for (const auto& [place, text] : kRows) EXPECT_EQ(found[place], text) << place;
  for (const automation::ClassInfo* info : automation::PublishedClasses()) {
    EXPECT_EQ(found.contains(kClasses + "LWConfigObjects." + info->Name()), info->IsCreatable())
        << info->Name();
  }
}

TEST_P(Registration, LeavesNothingBehind) {
  const Snapshot before = Classes();
  Unregister(GetParam());
  EXPECT_EQ(Classes(), before);
  Register(GetParam(), L"C:\\old\\LWConfigObjects.dll");
  Register(GetParam(), L"C:\\new\\LWConfigObjects.dll");
  EXPECT_EQ(Classes()[kClasses + "CLSID\\" + Id("class.Root") + "\\InprocServer32@"],
            "C:\\new\\LWConfigObjects.dll");
  Unregister(GetParam());
  EXPECT_EQ(Classes(), before);
}

TEST_P(Registration, KeepsWhatTheServerOfTheOtherWordSizeNeeds) {
  const Snapshot before = Classes();
  Register(GetParam(), L"C:\\LWConfigObjects.dll");
  const std::string other = kLibrary + "\\1.0\\0\\" + kOtherPlatform;
  Create(Wide(other));
  Unregister(GetParam());
  Snapshot kept = Classes();
  EXPECT_EQ(kept[kClasses + "LWConfigObjects.Root\\CLSID@"], Id("class.Root"));
  EXPECT_TRUE(kept.contains(other));
  EXPECT_FALSE(kept.contains(kLibrary + "\\1.0\\0\\" + kOwnPlatform));
  EXPECT_FALSE(kept.contains(kClasses + "CLSID\\" + Id("class.Root")));
  ::RegDeleteKeyW(Hive(), Wide(other).c_str());
  Unregister(GetParam());
  EXPECT_EQ(Classes(), before);
}

TEST_P(Registration, TakesBackWhatItWroteBeforeAFailure) {
  for (const bool isRegistered : {false, true}) {
    if (isRegistered) Register(GetParam(), L"C:\\old\\LWConfigObjects.dll");
    // Nothing that lasts can be written below a key that does not.
    const std::string last = automation::PublishedClasses().back()->Name();
    const std::string key = kClasses + "Interface\\" + Id("interface._" + last);
    ::RegDeleteTreeW(Hive(), Wide(key).c_str());
    Create(Wide(kClasses + "Interface"));
    Create(Wide(key), REG_OPTION_VOLATILE);
    const Snapshot before = Classes();
    try {
      Register(GetParam(), L"C:\\new\\LWConfigObjects.dll");
      ADD_FAILURE() << "was registered";
    } catch (const Error& error) {
      const std::string hive =
          GetParam() == RegistrationScope::Machine ? "HKEY_LOCAL_MACHINE\\" : "HKEY_CURRENT_USER\\";
      EXPECT_THAT(error.what(), HasSubstr(hive + key + "\\ProxyStubClsid32 cannot be written: "));
    }
    EXPECT_EQ(Classes(), before);
    ::RegDeleteKeyW(Hive(), Wide(key).c_str());
  }
}

TEST(SideBySideManifest, CreatesObjectsWithoutRegistration) {
  // The server is in the folder of this program.
  std::wstring path(1000, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  path = path.substr(0, path.find_last_of(L'\\') + 1) + L"LWConfigObjects.X.manifest";
  std::ofstream(Narrow(path)) << (sizeof(void*) == 8 ? automation::Manifest64() : automation::Manifest32());
  ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
  CLSID id;
  ASSERT_NE(::CLSIDFromProgID(L"LWConfigObjects.Root", &id), S_OK) << "it is registered";

  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.lpSource = path.c_str();
  const HANDLE context = ::CreateActCtxW(&description);
  ASSERT_NE(context, INVALID_HANDLE_VALUE) << ::GetLastError();
  ULONG_PTR cookie = 0;
  ASSERT_TRUE(::ActivateActCtx(context, &cookie));
  for (const wchar_t* name : {L"LWConfigObjects.Root", L"LWConfigObjects.Root.1"}) {
    Microsoft::WRL::ComPtr<IDispatch> root;
    EXPECT_EQ(::CLSIDFromProgID(name, &id), S_OK);
    EXPECT_EQ(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&root)), S_OK);
    Microsoft::WRL::ComPtr<ITypeInfo> info;
    EXPECT_TRUE(root && SUCCEEDED(root->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info)));
  }
  ::DeactivateActCtx(0, cookie);
  ::ReleaseActCtx(context);
  ::CoUninitialize();
  ::DeleteFileW(path.c_str());
}

}  // namespace
}  // namespace lwconfig::com
