#include <set>

#include <com/unknown.h>
#include <com/values.h>
#include <gtest/gtest.h>
#include <tests/com/automation_client.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/instance_count.h>

namespace lwconfig::testing {
namespace {

/// The values of all properties without arguments, and the items.
std::vector<Value> Reachable(const Object& object, const automation::ClassInfo& info) {
  std::vector<Value> found;
  for (const automation::MemberInfo& slot : info.Slots()) {
    if (slot.Kind == automation::kPropertyGet && slot.ParameterCount == 0)
      found.push_back(Invoke(object.Get(), slot.Id, slot.Kind).Result);
  }
  if (info.IsCollection()) std::ranges::move(ItemsOf(object), std::back_inserter(found));
  return found;
}

TEST(LeakTest, NothingIsAliveOnceTheClientHasLetGoOfEverything) {
  ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const StarterConfiguration configuration;
  {
    const ErrorComponent errors;
    std::vector<Object> held(1);
    *held[0].GetAddressOf() = com::ToDispatch(automation::FindClass("Root")->Create());
    std::vector<Object> copies;
    std::set<IUnknown*> seen{held[0].Get()};
    std::set<std::string> classes;
    for (std::size_t at = 0; at < held.size(); ++at) {
      const Object object = held[at];
      const automation::ClassInfo* info = com::FromPointer(object.Get()).Class;
      ASSERT_NE(info, nullptr);
      classes.insert(info->Name());
      // This connection is never closed.
      Connected(object.Get(), {});
      copies.push_back(Call(object, L"Clone").ToObject());
      if (info->IsCollection()) Call(object, L"Remove", {L"no such key"});
      for (const Value& value : Reachable(object, *info)) {
        const Object found = value.ToObject();
        if (found && seen.insert(found.Get()).second) held.push_back(found);
      }
    }
    EXPECT_GT(held.size(), 1000U);
    EXPECT_GT(classes.size(), 30U);
    EXPECT_FALSE(errors.Reports.empty());
  }
  ::SetErrorInfo(0, nullptr);
  EXPECT_EQ(com::gUses, 0);
  EXPECT_EQ(ForeignObject::Live(), 0);
  EXPECT_GT(InstanceCounts().size(), 30U);
  for (const InstanceCount& count : InstanceCounts()) EXPECT_EQ(count.Live, 0) << count.ClassName;
  ::CoUninitialize();
}

}  // namespace
}  // namespace lwconfig::testing
