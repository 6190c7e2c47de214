#include <array>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

class ServerEventsTest : public ServerTest {
 protected:
  Outcome AddLayout(const Object& layouts) const { return Call(layouts, L"Add", {Create("PageLayout")}); }
  static std::size_t ConnectionsOf(const Connected& connection) {
    ComPtr<IEnumConnections> all;
    EXPECT_EQ(connection.Point()->EnumConnections(&all), S_OK);
    std::size_t count = 0;
    for (CONNECTDATA data{}; all->Next(1, &data, nullptr) == S_OK; data.pUnk->Release()) ++count;
    return count;
  }
};

TEST_F(ServerEventsTest, EachSourceRaisesItsEvent) {
  const Object layouts = Create("PageLayouts");
  const Object pageTemplate = Create("PageTemplate");
  const Object comments = Create("ModelComments");
  bool isDirty = false;
  struct Row {
    Object Source;
    const char* Class;
    std::function<Outcome()> Raise;
  };
  for (const Row& row :
       {Row{layouts, "PageLayouts", [&] { return AddLayout(layouts); }},
        Row{pageTemplate, "PageTemplate",
            [&] { return AddLayout(Get(pageTemplate, L"PageLayouts").ToObject()); }},
        Row{comments, "ModelComments", [&] { return Put(comments, L"Dirty", isDirty = !isDirty); }}}) {
    SCOPED_TRACE(row.Class);
    std::string heard;
    const auto hear = [&](const char* sink) {
      return [&heard, sink](DISPID id, const DISPPARAMS& arguments) {
        heard += sink + std::to_string(id) + std::to_string(arguments.cArgs) + " ";
      };
    };
    Connected one(row.Source.Get(), hear("one"));
    Connected two(row.Source.Get(), hear("two"));
    EXPECT_EQ(one.Source(), Published().at(row.Class).Events);
    for (Connected* connection : {&one, &two}) {
      EXPECT_TRUE(row.Raise().Succeeded());
      EXPECT_EQ(ConnectionsOf(two), connection == &one ? 2U : 1U);
      EXPECT_EQ(connection->Close(), S_OK);
    }
    EXPECT_TRUE(row.Raise().Succeeded());
    EXPECT_EQ(heard, "one10 two10 two10 ");
    EXPECT_EQ(two.Point()->Unadvise(99), CONNECT_E_NOCONNECTION);
  }
}

TEST_F(ServerEventsTest, ASinkHearsOfItsSourceAfterTheClientReleasedIt) {
  const Object pageTemplate = Create("PageTemplate");
  const auto layouts = [&] { return Get(pageTemplate, L"PageLayouts").ToObject(); };
  int calls = 0;
  // This connection is never closed.
  Connected(layouts().Get(), [&](DISPID, const DISPPARAMS&) { ++calls; });
  AddLayout(layouts());
  EXPECT_EQ(calls, 1);
}

TEST_F(ServerEventsTest, ASinkMayCloseConnectionsWhileItIsCalled) {
  const Object layouts = Create("PageLayouts");
  std::vector<Connected> connections;
  std::array<int, 3> calls{};
  for (std::size_t at = 0; at < calls.size(); ++at) {
    connections.emplace_back(layouts.Get(), [&, at](DISPID, const DISPPARAMS&) {
      ++calls[at];
      if (at != 1) return;
      EXPECT_EQ(connections[1].Close(), S_OK);
      EXPECT_EQ(connections[2].Close(), S_OK);
    });
  }
  AddLayout(layouts);
  AddLayout(layouts);
  EXPECT_EQ(calls, (std::array{2, 1, 0}));
  EXPECT_EQ(connections[0].Close(), S_OK);
}

TEST_F(ServerEventsTest, ConnectionPointsAreEnumeratedAndRefuseOtherSinks) {
  ComPtr<IConnectionPointContainer> container;
  ASSERT_EQ(Create("PageLayouts").As(&container), S_OK);
  ComPtr<IEnumConnectionPoints> all;
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(container->EnumConnectionPoints(&all), S_OK);
  ASSERT_EQ(all->Next(1, &point, nullptr), S_OK);
  IConnectionPoint* none = nullptr;
  EXPECT_EQ(all->Next(1, &none, nullptr), S_FALSE);
  ComPtr<IConnectionPointContainer> back;
  EXPECT_EQ(point->GetConnectionPointContainer(&back), S_OK);
  EXPECT_EQ(back.Get(), container.Get());
  IID source{};
  EXPECT_EQ(point->GetConnectionInterface(&source), S_OK);
  EXPECT_EQ(source, Published().at("PageLayouts").Events);
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, &none), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(none, nullptr);
  DWORD cookie = 7;
  EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point->Advise(point.Get(), &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(container->FindConnectionPoint(source, nullptr), E_POINTER);
  EXPECT_EQ(container->EnumConnectionPoints(nullptr), E_POINTER);
  EXPECT_EQ(Create("PageLayout").As(&container), E_NOINTERFACE);
}

}  // namespace
}  // namespace lwconfig::testing
