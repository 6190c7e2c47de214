#include <array>
#include <filesystem>
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
using ::testing::ThrowsMessage;

/// All values of a key and of the keys in it, "path" for the key itself and "path@name" for its values.
using Snapshot = std::map<std::string, std::string>;

void Add(HKEY parent, const std::wstring& path, Snapshot& snapshot) {
  HKEY key = nullptr;
  ASSERT_EQ(::RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key), ERROR_SUCCESS);
  snapshot[Narrow(path)];
  const auto isOne = [](LSTATUS status) { return status == ERROR_SUCCESS; };
  std::array<wchar_t, 1000> name{};
  std::array<wchar_t, 1000> text{};
  DWORD size = 1000;
  DWORD bytes = sizeof text;
  for (DWORD at = 0; isOne(::RegEnumValueW(key, at, name.data(), &size, nullptr, nullptr,
                                           reinterpret_cast<BYTE*>(text.data()), &bytes));
       ++at, size = 1000, bytes = sizeof text)
    snapshot[Narrow(path) + "@" + Narrow(name.data())] = Narrow(text.data());
  for (DWORD at = 0; isOne(::RegEnumKeyW(key, at, name.data(), 1000)); ++at)
    Add(parent, path + L"\\" + name.data(), snapshot);
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

  static bool IsMachine() { return GetParam() == RegistrationScope::Machine; }
  static HKEY Hive() { return IsMachine() ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }
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
const std::string kRoot = kClasses + "CLSID\\" + Id("class.Root");
const std::string kOwnPlatform = sizeof(void*) == 8 ? "win64" : "win32";
const std::string kOtherPlatform = sizeof(void*) == 8 ? "win32" : "win64";

TEST_P(Registration, TellsClientsWhereEverythingIs) {
  const std::string folder = "C:\\Programme\\Größe 日本\\" + std::string(300, 'x');
  const std::string file = folder + "\\LWConfigObjects.dll";
  Register(GetParam(), Wide(file));
  const std::string face = kClasses + "Interface\\" + Id("interface._PageTemplate");
  const std::string events = kClasses + "Interface\\" + Id("events.__PageTemplate");
  const std::pair<std::string, std::string> kRows[] = {
      {kRoot + "@", "LWConfigObjects.Root"},
      {kRoot + "\\InprocServer32@", file},
      {kRoot + "\\InprocServer32@ThreadingModel", "Apartment"},
      {kRoot + "\\ProgID@", "LWConfigObjects.Root.1"},
      {kRoot + "\\VersionIndependentProgID@", "LWConfigObjects.Root"},
      {kRoot + "\\TypeLib@", Id("LWConfigObjects")},
      {kRoot + "\\Version@", "1.0"},
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

TEST_P(Registration, LeavesNothingBehindButWhatTheServerOfTheOtherWordSizeNeeds) {
  const Snapshot before = Classes();
  Unregister(GetParam());
  EXPECT_EQ(Classes(), before);
  for (const wchar_t* file : {L"C:\\old\\LWConfigObjects.dll", L"C:\\new\\LWConfigObjects.dll"}) {
    Register(GetParam(), file);
    EXPECT_EQ(Classes()[kRoot + "\\InprocServer32@"], Narrow(file));
  }
  const std::string other = kLibrary + "\\1.0\\0\\" + kOtherPlatform;
  Create(Wide(other));
  Unregister(GetParam());
  Snapshot kept = Classes();
  EXPECT_EQ(kept[kClasses + "LWConfigObjects.Root\\CLSID@"], Id("class.Root"));
  EXPECT_TRUE(kept.contains(other));
  EXPECT_FALSE(kept.contains(kLibrary + "\\1.0\\0\\" + kOwnPlatform));
  EXPECT_FALSE(kept.contains(kRoot));
  ::RegDeleteKeyW(Hive(), Wide(other).c_str());
  Unregister(GetParam());
  EXPECT_EQ(Classes(), before);
}

TEST_P(Registration, TakesBackWhatItWroteBeforeAFailure) {
  for (const bool isRegistered : {false, true}) {
    if (isRegistered) Register(GetParam(), L"C:\\old\\LWConfigObjects.dll");
    // Nothing that lasts can be written below a key that does not.
    const std::string last = std::string("interface._") + automation::PublishedClasses().back()->Name();
    const std::string key = kClasses + "Interface\\" + Id(last);
    ::RegDeleteTreeW(Hive(), Wide(key).c_str());
    Create(Wide(kClasses + "Interface"));
    Create(Wide(key), REG_OPTION_VOLATILE);
    const Snapshot before = Classes();
    const std::string refused =
        (IsMachine() ? "HKEY_LOCAL_MACHINE\\" : "HKEY_CURRENT_USER\\") + key + "\\ProxyStubClsid32";
    EXPECT_THAT([] { Register(GetParam(), L"C:\\new\\LWConfigObjects.dll"); },
                ThrowsMessage<Error>(HasSubstr(refused + " cannot be written: ")));
    EXPECT_EQ(Classes(), before);
    ::RegDeleteKeyW(Hive(), Wide(key).c_str());
  }
}

TEST(SideBySideManifest, CreatesObjectsWithoutRegistration) {
  // The server is in the folder of this program.
  std::array<wchar_t, 1000> program{};
  ::GetModuleFileNameW(nullptr, program.data(), 1000);
  const auto path = std::filesystem::path(program.data()).replace_filename(L"LWConfigObjects.X.manifest");
  std::ofstream(path) << (sizeof(void*) == 8 ? automation::Manifest64() : automation::Manifest32());
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
  }
  ::DeactivateActCtx(0, cookie);
  ::ReleaseActCtx(context);
  ::CoUninitialize();
  ::DeleteFileW(path.c_str());
}

}  // namespace
}  // namespace lwconfig::com
