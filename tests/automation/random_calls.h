#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <tests/automation/memory_host.h>
#include <tests/error_component.h>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/loading/shared_slots.h>

namespace lwconfig::automation {

/// Calls of every member with arguments of every type, on objects in every state. Nothing outside this
/// process is reached.
class RandomCalls {
 public:
  /// `choose(n)` is a number below `n`; where calls come from is up to it.
  explicit RandomCalls(std::function<std::uint32_t(std::uint32_t)> choose) : mChoose(std::move(choose)) {
    for (const ClassInfo* info : PublishedClasses()) {
      if (info->IsCreatable()) mObjects.push_back(info->Create());
    }
  }
  ~RandomCalls() {
    // These two outlive every root.
    Root root;
    root.SetDefaultToolbarStyle(ToolbarStyleOfficeXP);
    root.SetReloadFlag(false);
  }

  /// Values of every type, the odd ones among them.
  static const std::vector<Variant>& Values() {
    static const std::vector<Variant> values = [] {
      using Limits = std::numeric_limits<std::int32_t>;
      std::vector<Variant> all{Variant(), Null{},          Missing{},           true,
                               false,     std::int16_t{1}, std::int16_t{-32768}};
      for (const auto number : {0, 1, -1, Limits::max(), Limits::min()}) all.emplace_back(number);
      for (const double number : {0.5, 1e300, -1.0, std::nan("")}) all.emplace_back(number);
      for (const char* text :
           {"", "1", "True", "LW:Method", "%%x%%", "C:\\Config", "<a b='1'><c/></a>", "\xff"})
        all.emplace_back(std::string(text));
      all.insert(all.end(),
                 {std::string("a\0b", 3), AnyObject{}, AnyObject{std::make_shared<int>(), nullptr}});
      return all;
    }();
    return values;
  }

  /// Uses a random member of a random object. Returns the error's number, or 0.
  std::int32_t CallAny() {
    const AnyObject object = AnyOf(mObjects);
    const auto slots = object.Class->Slots();
    if (slots.empty()) return 0;
    const MemberInfo& slot = AnyOf(slots);
    std::vector<Variant> arguments(mChoose(4) == 0 ? mChoose(kMostParameters + 1) : slot.ParameterCount);
    for (std::size_t at = 0; at < arguments.size(); ++at) {
      const bool isSuitable = at < slot.ParameterCount && mChoose(2) == 0;
      arguments[at] = isSuitable ? Suitable(slot.ParameterList[at].Type) : Value();
    }
    return Call(object, slot, std::move(arguments));
  }

  /// Uses every member with every value as each of its arguments, the others being suitable. Returns how many
  /// of the calls succeeded and how many did not.
  std::pair<int, int> CallAll() {
    int succeeded = 0;
    int refused = 0;
    for (const ClassInfo* info : PublishedClasses()) {
      for (const MemberInfo& slot : info->Slots()) {
        for (std::size_t place = 0; place < std::max<std::size_t>(slot.ParameterCount, 1); ++place) {
          for (const Variant& value : Values()) {
            const AnyObject object = OfClass(*info);
            if (!object) continue;
            std::vector<Variant> arguments;
            for (const ParameterInfo& parameter : slot.Parameters())
              arguments.push_back(Suitable(parameter.Type));
            if (slot.ParameterCount != 0) arguments[place] = value;
            ++(Call(object, slot, std::move(arguments)) == 0 ? succeeded : refused);
          }
        }
      }
    }
    return {succeeded, refused};
  }

  /// Gives up every object, after taking apart those that hold each other. Returns how many are still alive.
  std::int32_t Finish() {
    std::set<void*> seen;
    mMost = std::numeric_limits<std::size_t>::max();
    mObjects.insert(mObjects.end(), mHeld.begin(), mHeld.end());
    mHeld.clear();
    while (!mObjects.empty()) {
      const AnyObject object = mObjects.back();
      mObjects.pop_back();
      if (!seen.insert(object.Pointer.get()).second) continue;
      mHeld.push_back(object);
      for (const MemberInfo& slot : object.Class->Slots()) {
        if (slot.Kind == kPropertyGet && slot.ParameterCount == 0) Call(object, slot, {});
      }
      Empty(object);
    }
    mHeld.clear();
    ResetSharedSlots();
    std::int32_t live = 0;
    for (const auto& count : InstanceCounts()) live += count.Live;
    return live;
  }

 private:
  template <class T>
  auto AnyOf(T& all) -> decltype(all[0]) {
    return all[mChoose(static_cast<std::uint32_t>(all.size()))];
  }

  Variant Value() { return mChoose(3) == 0 ? Variant(AnyOf(mObjects)) : AnyOf(Values()); }

  /// The object of this class that was met last; none where there was none yet.
  AnyObject OfClass(const ClassInfo& info) const {
    const auto found = std::find_if(mObjects.rbegin(), mObjects.rend(),
                                    [&](const AnyObject& object) { return object.Class == &info; });
    return found == mObjects.rend() ? AnyObject{} : *found;
  }

  Variant Suitable(const TypeInfo& type) {
    switch (type.Kind) {
      case ValueKind::Object:
        return OfClass(type.Class());
      case ValueKind::AnyObject:
        return AnyOf(mObjects);
      case ValueKind::Text:
        return std::string(1, static_cast<char>('a' + mChoose(4)));
      default:
        return static_cast<std::int32_t>(mChoose(4));
    }
  }

  std::int32_t Call(const AnyObject& object, const MemberInfo& slot, std::vector<Variant> arguments) {
    try {
      Keep(Invoke(object, slot.Id, slot.Kind, {arguments}));
      for (const Variant& argument : arguments) Keep(argument);
      return 0;
    } catch (const Error& failure) {
      return failure.Number();
    }
  }

  /// Keeps objects that calls give, so that later calls meet them in every state, and items of collections.
  void Keep(const Variant& value) {
    if (const auto items = EnumeratorIn(value)) {
      Variant item;
      for (std::size_t at = 0; at < mMost && items->Next(item); ++at) Keep(item);
      return;
    }
    const auto* object = std::get_if<AnyObject>(&value);
    if (object == nullptr || !*object || object->Class == nullptr) return;
    if (mObjects.size() < mMost)
      mObjects.push_back(*object);
    else
      mHeld.push_back(std::exchange(AnyOf(mObjects), *object));
  }

  /// Takes from the object all that it holds.
  void Empty(const AnyObject& object) {
    for (const MemberInfo& slot : object.Class->Slots()) {
      const auto kind = slot.ParameterCount == 1 ? slot.ParameterList[0].Type.Kind : ValueKind::None;
      const bool holds =
          kind == ValueKind::Object || kind == ValueKind::AnyObject || kind == ValueKind::Variant;
      if (holds && (slot.Kind == kPropertyLet || slot.Kind == kPropertySet))
        Call(object, slot, {AnyObject{}});
    }
    if (const auto* remove = object.Class->Find("Remove")) {
      for (auto count = std::get<std::int32_t>(Invoke(object, "Count", kPropertyGet)); count > 0; --count)
        Call(object, *remove->Method, {1});
    }
  }

  testing::MemoryHost mHost;
  testing::ErrorComponent mComponent{[this] { mComponent.Reports.clear(); }};
  std::function<std::uint32_t(std::uint32_t)> mChoose;
  std::vector<AnyObject> mObjects;
  std::vector<AnyObject> mHeld;
  std::size_t mMost = 400;  // objects that random calls choose from
};

}  // namespace lwconfig::automation
