#include <array>
#include <memory>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

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
      {layouts, "__PageLayouts", [&] { AddLayout(layouts); }},
      {pageTemplate, "__PageTemplate", [&] { AddLayout(Get(pageTemplate, L"PageLayouts").ToObject()); }},
      {comments, "__ModelComments", [&] {
         const bool isDirty = Get(comments, L"Dirty").Result.boolVal != VARIANT_FALSE;
         EXPECT_TRUE(Put(comments, L"Dirty", !isDirty).Succeeded());
       }}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.Events);
    int first = 0;
    int second = 0;
    Connected one(row.Source.Get(), [&](DISPID id, const DISPPARAMS&) { first += id; });
    Connected two(row.Source.Get(), [&](DISPID, const DISPPARAMS& arguments) {
      EXPECT_EQ(arguments.cArgs, 0U);
      ++second;
    });
    ASSERT_TRUE(one.IsOpen() && two.IsOpen());
    ComPtr<ITypeInfo> events;
    ASSERT_EQ(TheServer().Types()->GetTypeInfoOfGuid(one.Source(), &events), S_OK);
    EXPECT_EQ(NameOf(*events.Get()), row.Events);
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

TEST_F(ServerEventsTest, ASinkHearsOfItsSourceAlsoAfterItWasReleasedAndObtainedAgain) {
  const Object pageTemplate = Create("PageTemplate");
  int calls = 0;
  {
    const Connected abandoned(Get(pageTemplate, L"PageLayouts").ToObject().Get(),
                              [&](DISPID, const DISPPARAMS&) { ++calls; });
    EXPECT_TRUE(abandoned.IsOpen());
  }
  AddLayout(Get(pageTemplate, L"PageLayouts").ToObject());
  EXPECT_EQ(calls, 1);
}

TEST_F(ServerEventsTest, ASinkMayEndConnectionsWhileItIsCalled) {
  const Object layouts = Create("PageLayouts");
  std::vector<std::unique_ptr<Connected>> connections(3);
  std::array<int, 3> calls{};
  for (std::size_t at = 0; at < connections.size(); ++at) {
    connections[at] = std::make_unique<Connected>(layouts.Get(), [&, at](DISPID, const DISPPARAMS&) {
      ++calls[at];
      if (at != 1) return;
      EXPECT_EQ(connections[1]->Close(), S_OK);
      EXPECT_EQ(connections[2]->Close(), S_OK);
    });
  }
  AddLayout(layouts);
  AddLayout(layouts);
  EXPECT_EQ(calls, (std::array{2, 1, 0}));
  EXPECT_EQ(connections[0]->Close(), S_OK);
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
