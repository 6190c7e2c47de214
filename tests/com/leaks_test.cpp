#include <set>

#include <com/class_factory.h>
#include <com/unknown.h>
#include <com/values.h>
#include <gtest/gtest.h>
#include <tests/com/automation_client.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/automation/contracts.h>
#include <lwconfig/core/base/instance_count.h>

namespace lwconfig::testing {
namespace {

/// Holds everything that can be reached from an object, and asks each object for all that it has.
class Visitor {
 public:
  void Visit(const Object& start) {
    mWaiting.push_back(start);
    while (!mWaiting.empty()) {
      const Object object = std::move(mWaiting.back());
      mWaiting.pop_back();
      ComPtr<IUnknown> identity;
      object.As(&identity);
      if (mSeen.insert(identity.Get()).second) Ask(object);
    }
  }
  std::size_t Count() const { return mHeld.size(); }
  const std::set<std::string>& Classes() const { return mClasses; }

 private:
  void Ask(const Object& object) {
    mHeld.push_back(object);
    const AnyObject model = com::FromPointer(object.Get());
    ASSERT_NE(model.Class, nullptr);
    mClasses.insert(model.Class->Name());
    // Where it has events, the connection stays open when the source goes.
    const Connected abandoned(object.Get(), {});
    for (const automation::MemberInfo& slot : model.Class->Slots()) {
      const bool isGet = slot.Kind == automation::kPropertyGet && slot.ParameterCount == 0;
      const bool isClone = std::string_view(slot.Name) == "Clone" && slot.ParameterCount == 0;
      if (!isGet && !isClone) continue;
      const Outcome outcome = Invoke(object.Get(), slot.Id, slot.Kind);
      if (isClone) {
        if (outcome.ToObject()) mHeld.push_back(outcome.ToObject());
      } else if (const Object found = outcome.ToObject()) {
        mWaiting.push_back(found);
      }
    }
    if (!model.Class->IsCollection()) return;
    for (const Value& item : ItemsOf(object)) {
      if (item.ToObject()) mWaiting.push_back(item.ToObject());
    }
    Invoke(object.Get(), L"Remove", DISPATCH_METHOD, {L"no such key"});
  }

  std::vector<Object> mWaiting;
  std::vector<Object> mHeld;
  std::set<IUnknown*> mSeen;
  std::set<std::string> mClasses;
};

Object NewRoot() {
  CLSID id{};
  ComPtr<IClassFactory> factory;
  Object root;
  const std::wstring text = L"{" + Wide(automation::Identity("class.Root")) + L"}";
  EXPECT_EQ(::CLSIDFromString(text.c_str(), &id), S_OK);
  EXPECT_EQ(com::GetFactory(id, IID_IClassFactory, &factory), S_OK);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&root)), S_OK);
  return root;
}

TEST(LeakTest, NothingIsAliveOnceTheClientHasLetGoOfEverything) {
  ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const StarterConfiguration configuration;
  {
    const ErrorComponent errors;
    Visitor visitor;
    visitor.Visit(NewRoot());
    EXPECT_GT(visitor.Count(), 1000U);
    EXPECT_GT(visitor.Classes().size(), 30U);
    EXPECT_GT(com::gUses, 0);
    EXPECT_FALSE(errors.Reports().empty());
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
