#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tests/configuration.h>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/error.h>

namespace lwconfig::automation {
namespace {

/// Random calls of every member with arguments of every type.
class AutomationFuzzTest : public testing::ConfigurationTest {
 protected:
  Variant RandomValue() {
    switch (mRandom() % 12) {
      case 0:
        return {};
      case 1:
        return Null{};
      case 2:
        return Missing{};
      case 3:
        return mRandom() % 2 == 0;
      case 4:
        return static_cast<std::int16_t>(mRandom());
      case 5:
        return static_cast<std::int32_t>(mRandom() % 4);
      case 6:
        return static_cast<std::int32_t>(mRandom());
      case 7:
        return std::vector{0.5, 1e300, -1.0, std::numeric_limits<double>::quiet_NaN()}[mRandom() % 4];
      case 8:
        return std::vector<std::string>{
            "", "1", "True", "LW:Method", "%%x%%", std::string("a\0b", 3), "\xff"}[mRandom() % 7];
      case 9:
        return AnyObject{std::make_shared<int>(), nullptr};
      default:
        return mObjects[mRandom() % mObjects.size()];
    }
  }
  const MemberInfo& RandomSlot(const ClassInfo& info) {
    return info.Slots()[mRandom() % info.Slots().size()];
  }

  /// Keeps objects that calls give, so that later calls meet them in every state.
  void Keep(const Variant& value) {
    constexpr std::size_t kMostObjects = 400;
    const auto* object = std::get_if<AnyObject>(&value);
    if (object == nullptr || object->Class == nullptr) return;
    if (mObjects.size() < kMostObjects) {
      mObjects.push_back(*object);
    } else {
      mObjects[mRandom() % kMostObjects] = *object;
    }
  }

  std::mt19937 mRandom{20011};
  std::vector<AnyObject> mObjects;
};

TEST_F(AutomationFuzzTest, EveryCallGivesAResultOrAnError) {
  constexpr int kCalls = 60'000;
  for (const ClassInfo* info : PublishedClasses()) {
    if (info->IsCreatable()) mObjects.push_back(info->Create());
  }
  int succeeded = 0;
  int refused = 0;
  for (int call = 0; call < kCalls; ++call) {
    const AnyObject object = mObjects[mRandom() % mObjects.size()];
    if (object.Class->Slots().empty()) continue;
    const MemberInfo& slot = RandomSlot(*object.Class);
    const std::string_view name = slot.Name;
    // A file of any name could be written or deleted.
    const bool reachesFiles =
        object.Class == &ClassOf<DiskFile>() || object.Class == &ClassOf<PageTemplates>();
    if (reachesFiles && slot.Kind == kMethod) continue;
    if (name.starts_with("SaveTo")) continue;
    std::vector<Variant> arguments(mRandom() % 4 == 0 ? mRandom() % 6 : slot.ParameterCount);
    for (Variant& argument : arguments) argument = RandomValue();
    try {
      Keep(Invoke(object, slot.Id, slot.Kind, {arguments}));
      ++succeeded;
    } catch (const Error& failure) {
      EXPECT_NE(failure.Number(), 0);
      ++refused;
    }
  }
  EXPECT_GT(succeeded, kCalls / 10);
  EXPECT_GT(refused, kCalls / 10);
}

}  // namespace
}  // namespace lwconfig::automation
