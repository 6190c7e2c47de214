#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <lwconfig/core/base/event.h>

namespace lwconfig {
namespace {

using ::testing::ElementsAre;

struct Events : ::testing::Test {
  Event<> Raised;
  std::vector<std::string> Calls;
  auto Note(std::string name) {
    return [this, name] { Calls.push_back(name); };
  }
};

TEST_F(Events, HandlersMayChangeTheSubscriptions) {
  std::optional<Connection> itself;
  std::optional<Connection> later;
  std::optional<Connection> added;
  itself = Raised.Connect([&] {
    Note("itself")();
    itself.reset();
    later.reset();
    added = Raised.Connect(Note("added"));
  });
  later = Raised.Connect(Note("later"));
  const auto last = Raised.Connect(Note("last"));
  Raised.Raise();
  EXPECT_THAT(Calls, ElementsAre("itself", "last"));
  Raised.Raise();
  EXPECT_THAT(Calls, ElementsAre("itself", "last", "last", "added"));
}

TEST_F(Events, TheEndOfAHandlerMayChangeTheSubscriptions) {
  std::vector<Connection> kept;
  auto ending = Raised.Connect(
      [held = std::shared_ptr<void>(this, [&](void*) { kept.push_back(Raised.Connect(Note("last"))); })] {});
  const auto first = Raised.Connect(Note("first"));
  ending.Close();
  const auto second = Raised.Connect(Note("second"));
  Raised.Raise();
  EXPECT_THAT(Calls, ElementsAre("first", "second", "last"));
}

TEST_F(Events, HandlersMayRaiseTheEventAndEndIt) {
  auto event = std::make_unique<Event<int>>();
  std::vector<int> seen;
  const auto first = event->Connect([&](int depth) {
    seen.push_back(depth);
    if (depth > 0) event->Raise(depth - 1);
  });
  const auto second = event->Connect([&](int) { event.reset(); });
  const auto third = event->Connect([&](int depth) { seen.push_back(10 + depth); });
  event->Raise(0);
  EXPECT_THAT(seen, ElementsAre(0, 10));
}

TEST_F(Events, ThrowOnTheFirstFailureAfterAllHandlers) {
  const auto a = Raised.Connect([] { throw std::runtime_error("first"); });
  const auto b = Raised.Connect([] { throw std::runtime_error("second"); });
  const auto c = Raised.Connect(Note("reached"));
  try {
    Raised.Raise();
    FAIL();
  } catch (const std::runtime_error& failure) {
    EXPECT_STREQ(failure.what(), "first");
  }
  EXPECT_THAT(Calls, ElementsAre("reached"));
}

}  // namespace
}  // namespace lwconfig
