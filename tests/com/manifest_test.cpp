#include <fstream>

#include <gtest/gtest.h>

#include <lwconfig/automation/manifest.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {
namespace {

/// The folder of this program, where the server is too.
std::wstring Folder() {
  std::wstring path(1000, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.find_last_of(L'\\') + 1);
}

TEST(SideBySideManifest, CreatesObjectsWithoutRegistration) {
  const std::wstring path = Folder() + L"LWConfigObjects.X.manifest";
  std::ofstream(platform::Narrow(path))
      << (sizeof(void*) == 8 ? automation::Manifest64() : automation::Manifest32());
  ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
  CLSID classId;
  ASSERT_NE(::CLSIDFromProgID(L"LWConfigObjects.Root", &classId), S_OK) << "it is registered";

  ACTCTXW description{};
  description.cbSize = sizeof description;
  description.lpSource = path.c_str();
  const HANDLE context = ::CreateActCtxW(&description);
  ASSERT_NE(context, INVALID_HANDLE_VALUE) << ::GetLastError();
  ULONG_PTR cookie = 0;
  ASSERT_TRUE(::ActivateActCtx(context, &cookie));
  for (const wchar_t* name : {L"LWConfigObjects.Root", L"LWConfigObjects.Root.1"}) {
    IDispatch* root = nullptr;
    EXPECT_EQ(::CLSIDFromProgID(name, &classId), S_OK);
    EXPECT_EQ(::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                 reinterpret_cast<void**>(&root)),
              S_OK);
    if (root == nullptr) continue;
    wchar_t member[] = L"ConfigPath";
    wchar_t* memberName = member;
    DISPID id = 0;
    EXPECT_EQ(root->GetIDsOfNames(IID_NULL, &memberName, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    root->Release();
  }
  ::DeactivateActCtx(0, cookie);
  ::ReleaseActCtx(context);
  ::CoUninitialize();
  ::DeleteFileW(path.c_str());
}

}  // namespace
}  // namespace lwconfig::com
