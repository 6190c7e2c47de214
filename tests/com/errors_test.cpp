#include <array>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

class ServerErrorsTest : public ServerTest {
 protected:
  /// A collection of one string, and a failure of it: the key is there already.
  Object OneString() const {
    Object strings = Create("Collection");
    EXPECT_TRUE(Call(strings, L"Add", {L"a", L"key"}).Succeeded());
    return strings;
  }
  static Outcome Fail(const Object& strings) { return Call(strings, L"Add", {L"b", L"KEY"}); }
};

TEST_F(ServerErrorsTest, TheComponentGetsAReportAndTheCallerNumber65535) {
  ErrorComponent errors;
  const Object strings = OneString();
  const Outcome outcome = Fail(strings);
  EXPECT_EQ(outcome.Code, static_cast<HRESULT>(0x800AFFFF));
  EXPECT_NE(outcome.Description.find(L"KEY"), std::wstring::npos) << outcome.Describe();
  EXPECT_FALSE(outcome.Source.empty());
  ASSERT_EQ(errors.Reports().size(), 1U);
  EXPECT_EQ(errors.Last(L"Module"), L"Collection");
  EXPECT_EQ(errors.Last(L"Procedure"), L"Add");
  EXPECT_EQ(errors.Last(L"Number"), L"457");
  EXPECT_FALSE(errors.Last(L"Line").empty());
  EXPECT_NE(errors.Reports().back().find(L"<Parameter Name=\"Key\">the text \"KEY\"</Parameter>"),
            std::wstring::npos);
  EXPECT_EQ(Get(strings, L"Count").Describe(), "integer 1");
}

TEST_F(ServerErrorsTest, WithoutTheComponentAMessageBoxIsShownAndTheCallReturns) {
  const Object strings = OneString();
  const Outcome outcome = Fail(strings);
  EXPECT_EQ(outcome.Code, S_OK);
  EXPECT_EQ(outcome.Describe(), "null");
  EXPECT_EQ(Get(strings, L"Count").Describe(), "integer 1");
}

TEST_F(ServerErrorsTest, CallsThatAreWrongThemselvesHaveTheirOwnNumbers) {
  ErrorComponent errors;
  const Object strings = OneString();
  const Object layouts = Create("PageLayouts");
  const Object foreign = NewForeign();
  struct Row {
    Outcome Ended;
    int Number;
    const wchar_t* Text;  // part of the description
  };
  const Row rows[]{
      {Get(strings, L"Absent"), 438, L"Absent"},
      {Put(strings, L"Count", 3), 383, L"Count"},
      {Call(strings, L"Add"), 449, L"Add"},
      {Call(strings, L"Add", {L"b", L"c", 1, 2, 3}), 450, L"Add"},
      {Call(layouts, L"Add", {strings}), 13, L"PageLayout"},
      {Call(layouts, L"Add", {foreign}), 13, L"PageLayout"},
      {Call(layouts, L"Add", {1}), 13, L"obj"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.Ended.Number, row.Number) << row.Ended.Describe();
    EXPECT_NE(row.Ended.Description.find(row.Text), std::wstring::npos) << row.Ended.Describe();
  }
  // These are the caller's, not failures to report.
  EXPECT_TRUE(errors.Reports().empty());
}

TEST_F(ServerErrorsTest, AFailingComponentDoesNotHideTheFailure) {
  ErrorComponent errors;
  const Object provider = Create("INamespaceProvider");
  ComPtr<ISupportErrorInfo> supports;
  ASSERT_EQ(provider.As(&supports), S_OK);
  TYPEATTR* attributes = nullptr;
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(provider->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info), S_OK);
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(supports->InterfaceSupportsErrorInfo(attributes->guid), S_OK);
  EXPECT_EQ(supports->InterfaceSupportsErrorInfo(IID_IEnumVARIANT), S_FALSE);
  info->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace lwconfig::testing
