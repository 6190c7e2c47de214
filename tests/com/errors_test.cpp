#include <cstddef>
#include <functional>

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

/// While it lives, the server's message boxes are kept here instead of being shown: the server's import of
/// the system's function leads to this one.
class MessageBoxes {
 public:
  explicit MessageBoxes(HMODULE module) : mImport(Find(module)) { Replace(&Keep); }
  ~MessageBoxes() { Replace(System()); }
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;
  static inline std::vector<std::pair<std::wstring, UINT>> gShown;  // texts and styles

 private:
  using Function = decltype(&::MessageBoxW);

  static int WINAPI Keep(HWND, LPCWSTR text, LPCWSTR, UINT style) {
    gShown.emplace_back(text, style);
    return IDOK;
  }
  /// The place in the module's import tables, or null.
  static Function* Find(HMODULE module) {
    auto* const base = reinterpret_cast<std::byte*>(module);
    const auto& headers =
        *reinterpret_cast<IMAGE_NT_HEADERS*>(base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const auto& table = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* imports = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + table.VirtualAddress);
    for (; imports->FirstThunk != 0; ++imports) {
      for (auto* place = reinterpret_cast<Function*>(base + imports->FirstThunk); *place != nullptr;
           ++place) {
        if (*place == System()) return place;
      }
    }
    return nullptr;
  }
  static Function System() {
    const HMODULE user = ::GetModuleHandleW(L"user32.dll");
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(user, "MessageBoxW")));
  }
  void Replace(Function function) {
    DWORD before = 0;
    if (mImport == nullptr) return;
    ::VirtualProtect(mImport, sizeof(*mImport), PAGE_READWRITE, &before);
    *mImport = function;
    ::VirtualProtect(mImport, sizeof(*mImport), before, &before);
  }

  Function* mImport;
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
  const MessageBoxes boxes(::GetModuleHandleW(Server::Path()));
  MessageBoxes::gShown.clear();
  const Object strings = OneString();
  const Outcome outcome = Fail(strings);
  EXPECT_EQ(outcome.Code, S_OK);
  EXPECT_EQ(outcome.Describe(), "null");
  ASSERT_EQ(MessageBoxes::gShown.size(), 1U);
  const auto& [text, style] = MessageBoxes::gShown[0];
  EXPECT_EQ(style & MB_ICONMASK, UINT{MB_ICONHAND});
  EXPECT_EQ(text.find(L"LWConfigObjects has encountered a problem. We are sorry for the inconvenience."), 0U);
  for (const wchar_t* line : {L"Module: Collection", L"Procedure: Add", L"Line Number: ", L"457"})
    EXPECT_NE(text.find(line), std::wstring::npos) << Utf8(text);
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

TEST_F(ServerErrorsTest, AFailureWithoutATextLeavesNoneOfAnEarlierOne) {
  const Object layouts = Create("PageLayouts");
  wchar_t absent[] = L"Absent";
  wchar_t* names[]{absent};
  DISPID id = 0;
  DISPPARAMS none{};
  ComPtr<ITypeInfo> type;
  const std::function<HRESULT()> calls[]{
      [&] { return layouts->Invoke(0, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr); },
      [&] { return layouts->Invoke(0, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr); },
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
