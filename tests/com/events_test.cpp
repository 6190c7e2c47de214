#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

/// A sink's connection to the one source of events that an object has.
class Connected {
 public:
  Connected(const Object& object, std::function<void()> handler) {
    ComPtr<IProvideClassInfo2> described;
    ComPtr<IConnectionPointContainer> container;
    if (FAILED(object.As(&described)) || FAILED(object.As(&container)) ||
        FAILED(described->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &mSource)) ||
        FAILED(container->FindConnectionPoint(mSource, &mPoint)))
      return;
    mPoint->Advise(NewForeign(
                       [handler](DISPID id, const DISPPARAMS& arguments) {
                         EXPECT_EQ(id, 1);
                         EXPECT_EQ(arguments.cArgs, 0U);
                         handler();
                       },
                       mSource)
                       .Get(),
                   &mCookie);
  }
  bool IsOpen() const { return mCookie != 0; }
  HRESULT Close() { return mPoint->Unadvise(std::exchange(mCookie, 0)); }
  const ComPtr<IConnectionPoint>& Point() const { return mPoint; }
  const IID& Source() const { return mSource; }

 private:
  IID mSource{};
  ComPtr<IConnectionPoint> mPoint;
  DWORD mCookie = 0;
};

class ServerEventsTest : public ServerTest {
 protected:
  void AddLayout(const Object& layouts) const {
    EXPECT_TRUE(Call(layouts, L"Add", {Create("PageLayout")}).Succeeded());
  }
  static std::size_t ConnectionsOf(const ComPtr<IConnectionPoint>& point) {
    ComPtr<IEnumConnections> all;
    EXPECT_EQ(point->EnumConnections(&all), S_OK);
    std::size_t count = 0;
    for (CONNECTDATA data{}; all->Next(1, &data, nullptr) == S_OK; data.pUnk->Release()) ++count;
    return count;
  }
};

TEST_F(ServerEventsTest, EachSourceRaisesItsEvent) {
  const Object layouts = Create("PageLayouts");
  const Object pageTemplate = Create("PageTemplate");
  const Object comments = Create("ModelComments");
  struct Row {
    Object Source;
    const char* Events;
    std::function<void()> Raise;
  };
  const Row rows[]{
      {layouts, "_PageLayouts", [&] { AddLayout(layouts); }},
      {pageTemplate, "_PageTemplate", [&] { AddLayout(Get(pageTemplate, L"PageLayouts").ToObject()); }},
      {comments, "_ModelComments", [&] {
         const bool isDirty = Get(comments, L"Dirty").Result.boolVal != VARIANT_FALSE;
         EXPECT_TRUE(Put(comments, L"Dirty", !isDirty).Succeeded());
       }}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.Events);
    int first = 0;
    int second = 0;
    Connected one(row.Source, [&] { ++first; });
    Connected two(row.Source, [&] { ++second; });
    ASSERT_TRUE(one.IsOpen() && two.IsOpen());
    ComPtr<ITypeInfo> events;
    ASSERT_EQ(TheServer().Types()->GetTypeInfoOfGuid(one.Source(), &events), S_OK);
    Value name(L"");
    events->GetDocumentation(MEMBERID_NIL, &name.bstrVal, nullptr, nullptr, nullptr);
    EXPECT_EQ(Utf8(name.bstrVal), "_" + std::string(row.Events));
    row.Raise();
    EXPECT_EQ(ConnectionsOf(one.Point()), 2U);
    EXPECT_EQ(one.Close(), S_OK);
    row.Raise();
    EXPECT_EQ(ConnectionsOf(two.Point()), 1U);
    EXPECT_EQ(two.Close(), S_OK);
    row.Raise();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(two.Point()->Unadvise(99), CONNECT_E_NOCONNECTION);
  }
}

TEST_F(ServerEventsTest, ASinkMayUnadviseInsideItsCallback) {
  const Object layouts = Create("PageLayouts");
  int calls = 0;
  int others = 0;
  std::unique_ptr<Connected> once;
  once = std::make_unique<Connected>(layouts, [&] {
    ++calls;
    EXPECT_EQ(once->Close(), S_OK);
  });
  Connected other(layouts, [&] { ++others; });
  AddLayout(layouts);
  AddLayout(layouts);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(others, 2);
  EXPECT_EQ(other.Close(), S_OK);
}

TEST_F(ServerEventsTest, ASinkHearsOfItsSourceAlsoAfterItWasReleasedAndObtainedAgain) {
  const Object pageTemplate = Create("PageTemplate");
  int calls = 0;
  {
    const Connected abandoned(Get(pageTemplate, L"PageLayouts").ToObject(), [&] { ++calls; });
    EXPECT_TRUE(abandoned.IsOpen());
  }
  AddLayout(Get(pageTemplate, L"PageLayouts").ToObject());
  EXPECT_EQ(calls, 1);
}

TEST_F(ServerEventsTest, ConnectionPointsAreEnumeratedAndRefuseWhatIsNoSink) {
  const Object layouts = Create("PageLayouts");
  ComPtr<IConnectionPointContainer> container;
  ComPtr<IConnectionPointContainer> back;
  ComPtr<IEnumConnectionPoints> all;
  ComPtr<IConnectionPoint> point;
  ULONG count = 0;
  ASSERT_EQ(layouts.As(&container), S_OK);
  ASSERT_EQ(container->EnumConnectionPoints(&all), S_OK);
  ASSERT_EQ(all->Next(1, &point, &count), S_OK);
  EXPECT_EQ(point->GetConnectionPointContainer(&back), S_OK);
  EXPECT_EQ(back.Get(), container.Get());
  IID source{};
  EXPECT_EQ(point->GetConnectionInterface(&source), S_OK);
  ComPtr<IConnectionPoint> same;
  EXPECT_EQ(container->FindConnectionPoint(source, &same), S_OK);
  IConnectionPoint* none = nullptr;
  EXPECT_EQ(all->Next(1, &none, &count), S_FALSE);
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, &none), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(none, nullptr);
  DWORD cookie = 7;
  EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point->Advise(TheServer().Types().Get(), &cookie), CONNECT_E_CANNOTCONNECT);
  // Objects without events say so.
  ComPtr<IConnectionPointContainer> silent;
  const Object layout = Create("PageLayout");
  if (SUCCEEDED(layout.As(&silent))) {
    EXPECT_EQ(silent->FindConnectionPoint(source, &none), CONNECT_E_NOCONNECTION);
  }
}

}  // namespace
}  // namespace lwconfig::testing
