#include <random>

#include <gtest/gtest.h>
#include <tests/automation/random_calls.h>

namespace lwconfig::automation {
namespace {

TEST(AutomationFuzzTest, EveryCallGivesAResultOrAnErrorAndNothingLeaks) {
  constexpr int kCalls = 60'000;
  std::mt19937 random{20011};
  RandomCalls calls([&](std::uint32_t below) { return static_cast<std::uint32_t>(random() % below); });
  int succeeded = 0;
  for (int call = 0; call < kCalls; ++call) succeeded += calls.CallAny() == 0 ? 1 : 0;
  EXPECT_GT(succeeded, kCalls / 10);
  EXPECT_LT(succeeded, kCalls - kCalls / 10);
  EXPECT_EQ(calls.Finish(), 0);
}

TEST(AutomationFuzzTest, EveryMemberTakesOrRefusesEveryValue) {
  std::mt19937 random{7};
  RandomCalls calls([&](std::uint32_t below) { return static_cast<std::uint32_t>(random() % below); });
  calls.CallAll();  // meets objects of the classes that others create
  const auto [succeeded, refused] = calls.CallAll();
  EXPECT_GT(succeeded, refused);
  EXPECT_GT(refused, 1000);
  EXPECT_EQ(calls.Finish(), 0);
}

}  // namespace
}  // namespace lwconfig::automation
