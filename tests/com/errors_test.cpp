#include <functional>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

class ServerErrorsTest : public ServerTest {};

TEST_F(ServerErrorsTest, TheComponentGetsAReportAndTheCallerNumber65535) {
  const ErrorComponent errors;
  const Object strings = Create("Collection");
  EXPECT_TRUE(Call(strings, L"Add", {L"a", L"key"}).Succeeded());
  const Outcome outcome = Call(strings, L"Add", {L"b", L"KEY"});
  EXPECT_EQ(outcome.Code, static_cast<HRESULT>(0x800AFFFF));
  EXPECT_NE(outcome.Description.find(L"KEY"), std::wstring::npos) << outcome.Describe();
  EXPECT_FALSE(outcome.Source.empty());
  ASSERT_EQ(errors.Reports.size(), 1U);
  EXPECT_EQ(errors.Last(L"Module") + L"." + errors.Last(L"Procedure"), L"Collection.Add");
  EXPECT_EQ(errors.Last(L"Number"), L"457");
  EXPECT_FALSE(errors.Last(L"Line").empty());
  EXPECT_NE(errors.Reports[0].find(L"<Parameter Name=\"Key\">the text \"KEY\"</Parameter>"),
            std::wstring::npos);
}

TEST_F(ServerErrorsTest, WrongCallsFailAndLeaveNoTextOfAnEarlierFailure) {
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
