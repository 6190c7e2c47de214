#include <functional>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

using ServerObjectsTest = ServerTest;

TEST_F(ServerObjectsTest, EveryInterfaceOfAnObjectLeadsToEveryOther) {
  for (const auto& [name, info] : Published()) {
    if (!info.IsCreatable) continue;
    SCOPED_TRACE(name);
    const Object object = Create(name);
    ComPtr<ISupportErrorInfo> errors;
    ASSERT_EQ(object.As(&errors), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(info.Interface), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IEnumVARIANT), S_FALSE);
    ComPtr<IProvideClassInfo2> described;
    ComPtr<ITypeInfo> type;
    GUID id{};
    ASSERT_EQ(object.As(&described), S_OK);
    ASSERT_EQ(described->GetClassInfo(&type), S_OK);
    EXPECT_EQ(NameOf(*type.Get()), name);
    EXPECT_EQ(described->GetClassInfo(nullptr), E_POINTER);
    EXPECT_EQ(described->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
    EXPECT_EQ(described->GetGUID(99, &id), E_INVALIDARG);

    std::vector<IID> ids{IID_IUnknown,          IID_IDispatch,         info.Interface,
                         IID_ISupportErrorInfo, IID_IProvideClassInfo, IID_IProvideClassInfo2};
    ComPtr<IConnectionPointContainer> container;
    if (SUCCEEDED(object.As(&container))) ids.push_back(IID_IConnectionPointContainer);
    for (const IID& from : ids) {
      ComPtr<IUnknown> first;
      ComPtr<IUnknown> second;
      ComPtr<IUnknown> identity;
      ASSERT_EQ(object->QueryInterface(from, &first), S_OK);
      for (const IID& to : ids) {
        ASSERT_EQ(first->QueryInterface(to, &second), S_OK);
        ASSERT_EQ(second.As(&identity), S_OK);
        EXPECT_EQ(identity.Get(), object.Get());
      }
      EXPECT_EQ(first->QueryInterface(IID_IStream, &second), E_NOINTERFACE);
      EXPECT_EQ(first->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
    }
  }
}

TEST_F(ServerObjectsTest, EachEnumeratorHasItsOwnPosition) {
  const Object strings = Create("Collection");
  for (const wchar_t* text : {L"a", L"b", L"c"}) EXPECT_TRUE(Call(strings, L"Add", {text}).Succeeded());
  const auto next = [](const ComPtr<IEnumVARIANT>& items) {
    Value item;
    return items->Next(1, &item, nullptr) == S_OK ? item.Describe() : "end";
  };
  const auto first = Enumerate(strings);
  EXPECT_EQ(next(first), "text \"a\"");
  const auto second = Enumerate(strings);
  ComPtr<IEnumVARIANT> copy;
  EXPECT_EQ(first->Clone(&copy), S_OK);
  EXPECT_EQ(next(second), "text \"a\"");
  EXPECT_EQ(first->Skip(1), S_OK);
  EXPECT_EQ(next(copy), "text \"b\"");
  EXPECT_EQ(next(first), "text \"c\"");
  EXPECT_EQ(next(first), "end");
  EXPECT_EQ(first->Reset(), S_OK);
  EXPECT_EQ(next(first), "text \"a\"");
  EXPECT_EQ(first->Skip(3), S_FALSE);
  Value items[4];
  ULONG count = 0;
  EXPECT_EQ(second->Next(4, items, &count), S_FALSE);
  EXPECT_EQ(count, 2U);
  EXPECT_EQ(first->Clone(nullptr), E_POINTER);
  EXPECT_EQ(first->Next(1, nullptr, &count), E_POINTER);
}

TEST_F(ServerObjectsTest, ValuesOfOtherOriginComeBackAsTheyAre) {
  const Object comment = Create("ModelComment");
  const Object foreign = new ForeignObject;
  EXPECT_TRUE(Put(comment, L"Tag", foreign).Succeeded());
  EXPECT_EQ(Get(comment, L"Tag").ToObject().Get(), foreign.Get());
  const auto text = [](std::wstring_view characters) {
    BSTR const made = ::SysAllocStringLen(characters.data(), static_cast<UINT>(characters.size()));
    return Value(VT_BSTR, &VARIANT::bstrVal, made);
  };
  const auto one = [](VARTYPE type) {
    Value value(1);
    EXPECT_EQ(::VariantChangeType(&value, &value, 0, type), S_OK);
    return value;
  };
  const std::pair<Value, std::string> rows[]{
      {text({L"a\0b", 3}), {"text \"a\0b\"", 10}},
      {text(L"\xDC00"), "text \"\xEF\xBF\xBD\""},  // half of a character
      {Value::Zero(VT_BSTR), "text \"\""},
      {one(VT_I2), "integer 1"},
      {one(VT_UI1), "integer 1"},
      {one(VT_R4), "number 1.000000"},
      {one(VT_CY), "number 1.000000"},
      {one(VT_DATE), "number 1.000000"},
      {one(VT_DECIMAL), "number 1.000000"},
      {Value::Zero(VT_NULL), "null"},
      {Value(), "null"}};
  for (const auto& [value, read] : rows) {
    EXPECT_TRUE(Put(comment, L"Tag", value).Succeeded()) << value.vt;
    EXPECT_EQ(Get(comment, L"Tag").Describe(), read) << value.vt;
  }
}

TEST_F(ServerObjectsTest, AnUnchangedArgumentStaysAsTheClientHasIt) {
  const Object provider = Create("INamespaceProvider");
  std::vector<Value> passed{Value::Zero(VT_UNKNOWN)};
  IUnknown*& object = passed[0].punkVal;
  ASSERT_EQ(Create("PageLayout")->QueryInterface(IID_IProvideClassInfo, reinterpret_cast<void**>(&object)),
            S_OK);
  const IUnknown* const before = object;
  const Value reference(VT_UNKNOWN | VT_BYREF, &VARIANT::ppunkVal, &object);
  EXPECT_TRUE(Call(provider, L"Initialise", {reference}).Succeeded());
  EXPECT_EQ(object, before);
  const auto& slots = Published().at("INamespaceProvider").Slots;
  EXPECT_EQ(std::ranges::find(slots, "Initialise", &Slot::Member)->Call(provider.Get(), passed), S_OK);
  EXPECT_EQ(object, before);
  Value empty;
  EXPECT_TRUE(Call(provider, L"Initialise", {Value::Reference(empty)}).Succeeded());
  EXPECT_EQ(empty.vt, VT_EMPTY);
}

TEST_F(ServerObjectsTest, ObjectsOfAnotherCopyOfTheServerAreForeign) {
  const std::wstring copy = Server::Path() + std::wstring(L".copy.dll");
  ASSERT_NE(::CopyFileW(Server::Path(), copy.c_str(), FALSE), 0);
  {
    const Server other(copy.c_str());
    Object layout;
    ASSERT_EQ(other.Create(Published().at("PageLayout").Id, layout), S_OK);
    EXPECT_EQ(Call(Create("PageLayouts"), L"Add", {layout}).Number, 13);
    const Object comment = Create("ModelComment");
    EXPECT_TRUE(Put(comment, L"Tag", layout).Succeeded());
    EXPECT_EQ(Get(comment, L"Tag").ToObject().Get(), layout.Get());
    ::SetErrorInfo(0, nullptr);
  }
  EXPECT_NE(::DeleteFileW(copy.c_str()), 0);
}

TEST_F(ServerObjectsTest, TheLibraryStaysWhileAClientHoldsAnythingOfIt) {
  using Held = ComPtr<IUnknown>;
  const std::pair<const char*, std::function<Held()>> rows[]{
      {"an object", [&] { return Held(Create("PageLayout")); }},
      {"an enumerator", [&] { return Held(Enumerate(Create("PageLayouts"))); }},
      {"a connection point", [&] { return Held(Connected(Create("PageLayouts").Get(), {}).Point()); }},
      {"a collection of a template that is gone",
       [&] { return Held(Get(Create("PageTemplate"), L"PageLayouts").ToObject()); }},
  };
  for (const auto& [what, hold] : rows) {
    EXPECT_EQ(mServer->CanUnloadNow(), S_OK) << what;
    const Held held = hold();
    EXPECT_EQ(mServer->CanUnloadNow(), S_FALSE) << what;
  }
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(mServer->GetClassObject(Published().at("Root").Id, IID_PPV_ARGS(&factory)), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  void* none = &none;
  EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, &none), E_NOINTERFACE);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  factory.Reset();
  EXPECT_EQ(mServer->CanUnloadNow(), S_FALSE) << "a lock";
  ASSERT_EQ(mServer->GetClassObject(Published().at("Root").Id, IID_PPV_ARGS(&factory)), S_OK);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(mServer->GetClassObject(IID_IUnknown, IID_IClassFactory, &none), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(mServer->CallExported("DllInstall", FALSE, L"nobody"), E_INVALIDARG);
}

TEST_F(ServerObjectsTest, WrongCallsFailAndLeaveNoTextOfAnEarlierFailure) {
  const Object layouts = Create("PageLayouts");
  wchar_t absent[] = L"Absent";
  wchar_t* names[]{absent};
  DISPID id = 0;
  DISPPARAMS none{};
  DISPPARAMS lost{nullptr, nullptr, 1, 0};
  ComPtr<ITypeInfo> type;
  const auto invoke = [&](REFIID reserved, DISPPARAMS* parameters) {
    return layouts->Invoke(DISPID_VALUE, reserved, 0, DISPATCH_METHOD, parameters, nullptr, nullptr, nullptr);
  };
  const std::function<HRESULT()> calls[]{
      [&] { return invoke(IID_NULL, nullptr); },
      [&] { return invoke(IID_NULL, &lost); },
      [&] { return invoke(IID_IDispatch, &none); },
      [&] { return layouts->GetIDsOfNames(IID_IDispatch, names, 1, 0, &id); },
      [&] { return layouts->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr); },
      [&] { return layouts->GetTypeInfo(1, 0, &type); },
      [&] { return layouts->GetTypeInfo(0, 0, nullptr); },
      [&] { return layouts->GetTypeInfoCount(nullptr); },
  };
  for (const auto& call : calls) {
    const auto at = &call - calls;
    EXPECT_EQ(layouts->GetIDsOfNames(IID_NULL, names, 1, 0, &id), DISP_E_UNKNOWNNAME);
    EXPECT_TRUE(FAILED(call())) << at;
    ComPtr<IErrorInfo> left;
    EXPECT_EQ(::GetErrorInfo(0, &left), S_FALSE) << at;
  }
}

}  // namespace
}  // namespace lwconfig::testing
