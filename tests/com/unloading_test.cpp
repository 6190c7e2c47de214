#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

class UnloadingTest : public ServerTest {};

TEST_F(UnloadingTest, TheLibraryStaysWhileAnythingOfItIsHeld) {
  struct Row {
    const char* Held;
    std::function<ComPtr<IUnknown>(const Object&)> From;
  };
  const auto as = [](const Object& object, const IID& id) {
    ComPtr<IUnknown> found;
    EXPECT_EQ(object->QueryInterface(id, &found), S_OK);
    return found;
  };
  const Row rows[]{
      {"an object", [](const Object& layouts) { return layouts; }},
      {"another interface", [&](const Object& layouts) { return as(layouts, IID_IProvideClassInfo); }},
      {"an enumerator",
       [](const Object& layouts) {
         return ComPtr<IUnknown>(Invoke(layouts.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET).Result.punkVal);
       }},
      {"a connection point",
       [&](const Object& layouts) {
         ComPtr<IEnumConnectionPoints> all;
         ComPtr<IConnectionPointContainer> container;
         ComPtr<IConnectionPoint> point;
         EXPECT_EQ(layouts.As(&container), S_OK);
         EXPECT_EQ(container->EnumConnectionPoints(&all), S_OK);
         EXPECT_EQ(all->Next(1, &point, nullptr), S_OK);
         return ComPtr<IUnknown>(point);
       }},
      {"a collection of a template that is gone",
       [&](const Object&) { return Get(Create("PageTemplate"), L"PageLayouts").ToObject(); }},
  };
  EXPECT_EQ(TheServer().CanUnloadNow(), S_OK);
  for (const Row& row : rows) {
    ComPtr<IUnknown> held = row.From(Create("PageLayouts"));
    EXPECT_TRUE(held) << row.Held;
    EXPECT_EQ(TheServer().CanUnloadNow(), S_FALSE) << row.Held;
    held.Reset();
    EXPECT_EQ(TheServer().CanUnloadNow(), S_OK) << row.Held;
  }
}

TEST_F(UnloadingTest, ALockedFactoryKeepsTheLibraryToo) {
  TYPEATTR* attributes = nullptr;
  const auto info = TheServer().ClassInfo("Root");
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  const CLSID id = attributes->guid;
  info->ReleaseTypeAttr(attributes);
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(TheServer().GetClassObject(id, IID_PPV_ARGS(&factory)), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(TheServer().CanUnloadNow(), S_FALSE);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  void* none = &none;
  EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &none), E_NOINTERFACE);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(TheServer().GetClassObject(IID_IUnknown, IID_IClassFactory, &none), CLASS_E_CLASSNOTAVAILABLE);
  factory.Reset();
}

TEST_F(UnloadingTest, ALibraryThatIsLoadedAgainBeginsAfresh) {
  for (int time = 0; time < 3; ++time) {
    const Server other;
    const Object root = other.Create("Root");
    EXPECT_EQ(Get(root, L"ReloadFlag").Describe(), time == 0 ? "boolean False" : "boolean True");
    EXPECT_TRUE(Put(root, L"ReloadFlag", true).Succeeded());
  }
  EXPECT_EQ(Get(Create("Root"), L"ReloadFlag").Describe(), "boolean True");
}

/// These find the server as other programs do.
class RegisteredServerTest : public ::testing::Test {};

TEST_F(RegisteredServerTest, TheSystemUnloadsWhatIsNotUsedAnyMore) {
  ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  for (int time = 0; time < 2; ++time) {
    CLSID id{};
    ASSERT_EQ(::CLSIDFromProgID(L"LWConfigObjects.Root", &id), S_OK);
    Object root;
    ASSERT_EQ(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&root)), S_OK);
    EXPECT_EQ(ClassOf(root.Get()), "Root");
    ::CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_NE(::GetModuleHandleW(L"LWConfigObjects.dll"), nullptr);
    root.Reset();
    ::CoFreeUnusedLibrariesEx(0, 0);
    ::CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(::GetModuleHandleW(L"LWConfigObjects.dll"), nullptr);
  }
  ::CoUninitialize();
}

}  // namespace
}  // namespace lwconfig::testing
