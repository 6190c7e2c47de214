#include <tests/com/fixture.h>
#include <tests/com/slots.h>

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
  Value text;
  text.vt = VT_BSTR;
  text.bstrVal = ::SysAllocStringLen(L"a\0b", 3);
  EXPECT_TRUE(Put(comment, L"Tag", text).Succeeded());
  EXPECT_EQ(::SysStringLen(Get(comment, L"Tag").Result.bstrVal), 3U);
  text.bstrVal[1] = 0xDC00;  // half of a character
  EXPECT_TRUE(Put(comment, L"Tag", text).Succeeded());
  EXPECT_EQ(Get(comment, L"Tag").Result.vt, VT_BSTR);
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

}  // namespace
}  // namespace lwconfig::testing
