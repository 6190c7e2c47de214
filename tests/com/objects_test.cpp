#include <algorithm>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

class ServerObjectsTest : public ServerTest {
 protected:
  static ComPtr<IEnumVARIANT> Enumerate(const Object& collection) {
    const Outcome all = Invoke(collection.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET);
    ComPtr<IEnumVARIANT> items;
    EXPECT_EQ(all.Result.vt, VT_UNKNOWN);
    EXPECT_EQ(all.Result.punkVal->QueryInterface(IID_PPV_ARGS(&items)), S_OK);
    return items;
  }
  static std::string Next(const ComPtr<IEnumVARIANT>& items) {
    Value item;
    const HRESULT code = items->Next(1, &item, nullptr);
    return code == S_OK ? item.Describe() : "end";
  }
};

TEST_F(ServerObjectsTest, EveryInterfaceOfAnObjectLeadsToEveryOther) {
  for (const SlotClass& info : SlotClasses()) {
    if (!info.IsCreatable) continue;
    const Object object = Create(info.Name);
    std::vector<IID> ids{IID_IUnknown,          IID_IDispatch,         *info.Interface,
                         IID_ISupportErrorInfo, IID_IProvideClassInfo, IID_IProvideClassInfo2};
    ComPtr<ISupportErrorInfo> errors;
    ASSERT_EQ(object.As(&errors), S_OK) << info.Name;
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(*info.Interface), S_OK) << info.Name;
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IEnumVARIANT), S_FALSE) << info.Name;
    ComPtr<IProvideClassInfo> described;
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(object.As(&described), S_OK) << info.Name;
    ASSERT_EQ(described->GetClassInfo(&type), S_OK) << info.Name;
    EXPECT_EQ(NameOf(*type.Get()), info.Name);
    ComPtr<IConnectionPointContainer> container;
    if (SUCCEEDED(object.As(&container))) ids.push_back(IID_IConnectionPointContainer);
    for (const IID& from : ids) {
      ComPtr<IUnknown> first;
      ASSERT_EQ(object->QueryInterface(from, &first), S_OK) << info.Name;
      for (const IID& to : ids) {
        ComPtr<IUnknown> second;
        ASSERT_EQ(first->QueryInterface(to, &second), S_OK) << info.Name;
        EXPECT_TRUE(AreSame(second.Get(), object.Get())) << info.Name;
      }
    }
  }
}

TEST_F(ServerObjectsTest, AnObjectIsTheSameHoweverItIsReached) {
  const Object pageTemplate = Create("PageTemplate");
  Object layouts = Get(pageTemplate, L"PageLayouts").ToObject();
  EXPECT_TRUE(AreSame(Get(pageTemplate, L"PageLayouts").ToObject().Get(), layouts.Get()));
  const Object layout = Create("PageLayout");
  EXPECT_TRUE(Call(layouts, L"Add", {layout, L"key"}).Succeeded());
  // Scripts set objects as they let other values.
  const Object node = Create("NodeDef");
  const Object parent = Create("NodeDef");
  EXPECT_TRUE(Put(node, L"ParentNodeDef", parent).Succeeded());
  EXPECT_TRUE(AreSame(Get(node, L"ParentNodeDef").ToObject().Get(), parent.Get()));
  EXPECT_TRUE(Put(node, L"ParentNodeDef", Object()).Succeeded());
  layouts.Reset();
  layouts = Get(pageTemplate, L"PageLayouts").ToObject();
  EXPECT_TRUE(AreSame(Get(layouts, L"Item", {L"KEY"}).ToObject().Get(), layout.Get()));
  EXPECT_TRUE(AreSame(ItemsOf(layouts).at(0).pdispVal, layout.Get()));
}

TEST_F(ServerObjectsTest, EachEnumeratorStandsOnItsOwn) {
  const Object strings = Create("Collection");
  for (const wchar_t* text : {L"a", L"b", L"c"}) EXPECT_TRUE(Call(strings, L"Add", {text}).Succeeded());
  const auto first = Enumerate(strings);
  EXPECT_EQ(Next(first), "text \"a\"");
  const auto second = Enumerate(strings);
  ComPtr<IEnumVARIANT> copy;
  EXPECT_EQ(first->Clone(&copy), S_OK);
  EXPECT_EQ(Next(second), "text \"a\"");
  EXPECT_EQ(first->Skip(1), S_OK);
  EXPECT_EQ(Next(copy), "text \"b\"");
  EXPECT_EQ(Next(first), "text \"c\"");
  EXPECT_EQ(Next(first), "end");
  EXPECT_EQ(first->Reset(), S_OK);
  EXPECT_EQ(Next(first), "text \"a\"");
  EXPECT_EQ(first->Skip(3), S_FALSE);
  Value items[4];
  ULONG count = 0;
  EXPECT_EQ(second->Next(4, items, &count), S_FALSE);
  EXPECT_EQ(count, 2U);
}

TEST_F(ServerObjectsTest, ValuesOfOtherOriginComeBackAsTheyAre) {
  const Object comment = Create("ModelComment");
  const Object foreign = NewForeign();
  EXPECT_TRUE(Put(comment, L"Tag", foreign).Succeeded());
  EXPECT_TRUE(AreSame(Get(comment, L"Tag").ToObject().Get(), foreign.Get()));
  Value text = Value::Zero(VT_BSTR);
  text.bstrVal = ::SysAllocStringLen(L"a\0b", 3);
  EXPECT_TRUE(Put(comment, L"Tag", text).Succeeded());
  EXPECT_EQ(::SysStringLen(Get(comment, L"Tag").Result.bstrVal), 3U);
  text.bstrVal[1] = 0xDC00;  // half of a character
  EXPECT_TRUE(Put(comment, L"Tag", text).Succeeded());
  EXPECT_EQ(Get(comment, L"Tag").Result.vt, VT_BSTR);
  const Object layout = Create("PageLayout");
  EXPECT_TRUE(Put(layout, L"Name", L"name").Succeeded());
  EXPECT_TRUE(Put(layout, L"Name", Value::Zero(VT_BSTR)).Succeeded());
  EXPECT_EQ(Get(layout, L"Name").Describe(), "text \"\"");
  struct Row {
    VARTYPE Type;
    const char* Read;
  };
  for (const Row& row : {Row{VT_I2, "integer 1"}, Row{VT_UI1, "integer 1"}, Row{VT_R4, "number 1.000000"},
                         Row{VT_CY, "number 1.000000"}, Row{VT_DATE, "number 1.000000"},
                         Row{VT_DECIMAL, "number 1.000000"}, Row{VT_NULL, "null"}, Row{VT_EMPTY, "null"}}) {
    Value value(1);
    if (row.Type == VT_NULL || row.Type == VT_EMPTY) {
      value.vt = row.Type;
    } else {
      EXPECT_EQ(::VariantChangeType(&value, &value, 0, row.Type), S_OK);
    }
    EXPECT_TRUE(Put(comment, L"Tag", value).Succeeded()) << row.Type;
    EXPECT_EQ(Get(comment, L"Tag").Describe(), row.Read) << row.Type;
  }
}

TEST_F(ServerObjectsTest, WhatACallLeavesAloneStaysAsTheClientHasIt) {
  const Object provider = Create("INamespaceProvider");
  const Object project = Create("PageLayout");
  Value passed = Value::Zero(VT_UNKNOWN);
  ASSERT_EQ(project->QueryInterface(IID_IProvideClassInfo, reinterpret_cast<void**>(&passed.punkVal)), S_OK);
  Value reference = Value::Zero(VT_UNKNOWN | VT_BYREF);
  reference.ppunkVal = &passed.punkVal;
  const IUnknown* const before = passed.punkVal;
  EXPECT_TRUE(Call(provider, L"Initialise", {reference}).Succeeded());
  EXPECT_EQ(passed.punkVal, before);
  const auto slot = std::ranges::find_if(Slots(), [](const Slot& each) {
    return each.Class == std::string("INamespaceProvider") && each.Method == std::string("Initialise");
  });
  ASSERT_NE(slot, Slots().end());
  EXPECT_EQ(slot->Call(provider.Get(), &passed, 0), S_OK);
  EXPECT_EQ(passed.punkVal, before);
  Value empty;
  EXPECT_TRUE(Call(provider, L"Initialise", {Value::Reference(empty)}).Succeeded());
  EXPECT_EQ(empty.vt, VT_EMPTY);
}

TEST_F(ServerObjectsTest, ObjectsOfAnotherCopyOfTheServerAreSomebodyElses) {
  const std::wstring copy = Server::Path() + std::wstring(L".copy.dll");
  ASSERT_NE(::CopyFileW(Server::Path(), copy.c_str(), FALSE), 0);
  {
    const Server other(copy.c_str());
    const auto info = std::ranges::find(SlotClasses(), std::string_view("PageLayout"), &SlotClass::Name);
    ASSERT_NE(info, SlotClasses().end());
    Object layout;
    ASSERT_EQ(other.Create(*info->Id, layout), S_OK);
    EXPECT_EQ(Call(Create("PageLayouts"), L"Add", {layout}).Number, 13);
    const Object comment = Create("ModelComment");
    EXPECT_TRUE(Put(comment, L"Tag", layout).Succeeded());
    EXPECT_TRUE(AreSame(Get(comment, L"Tag").ToObject().Get(), layout.Get()));
    ::SetErrorInfo(0, nullptr);
  }
  EXPECT_NE(::DeleteFileW(copy.c_str()), 0);
}

TEST_F(ServerObjectsTest, TheLibraryStaysWhileAnythingOfItIsHeld) {
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

TEST_F(ServerObjectsTest, ALockedFactoryKeepsTheLibraryToo) {
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(TheServer().GetClassObject(*SlotClasses().front().Id, IID_PPV_ARGS(&factory)), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(TheServer().CanUnloadNow(), S_FALSE);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  void* none = &none;
  EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &none), E_NOINTERFACE);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(TheServer().GetClassObject(IID_IUnknown, IID_IClassFactory, &none), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(TheServer().Install(FALSE, L"nobody"), E_INVALIDARG);
  factory.Reset();
}

/// This one finds the server as other programs do.
TEST(RegisteredServerTest, TheSystemUnloadsWhatIsNotUsedAnyMore) {
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
