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
  RandomCalls(const RandomCalls&) = delete;
  RandomCalls& operator=(const RandomCalls&) = delete;

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
    const AnyObject object = mObjects[mChoose(Size(mObjects))];
    const auto slots = object.Class->Slots();
    if (slots.empty()) return 0;
    const MemberInfo& slot = slots[mChoose(Size(slots))];
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
    mObjects.insert(mObjects.end(), mHeld.begin(), mHeld.end());
    mHeld.clear();
    while (!mObjects.empty()) {
      const AnyObject object = mObjects.back();
      mObjects.pop_back();
      if (seen.insert(object.Pointer.get()).second) mHeld.push_back(object);
      if (mHeld.empty() || mHeld.back() != object) continue;
      for (const MemberInfo& slot : object.Class->Slots()) {
        if (slot.Kind == kPropertyGet && slot.ParameterCount == 0) Call(object, slot, {}, false);
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
  static std::uint32_t Size(const T& all) {
    return static_cast<std::uint32_t>(all.size());
  }

  Variant Value() {
    const auto& values = Values();
    if (mChoose(3) == 0) return mObjects[mChoose(Size(mObjects))];
    return values[mChoose(Size(values))];
  }

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
        return mObjects[mChoose(Size(mObjects))];
      case ValueKind::Boolean:
        return mChoose(2) == 0;
      case ValueKind::Text:
        return std::string(1, static_cast<char>('a' + mChoose(4)));
      default:
        return static_cast<std::int32_t>(mChoose(4));
    }
  }

  std::int32_t Call(const AnyObject& object, const MemberInfo& slot, std::vector<Variant> arguments,
                    bool isBounded = true) {
    try {
      Keep(Invoke(object, slot.Id, slot.Kind, {arguments}), isBounded);
      for (const Variant& argument : arguments) Keep(argument, isBounded);
      return 0;
    } catch (const Error& failure) {
      return failure.Number();
    }
  }

  /// Keeps objects that calls give, so that later calls meet them in every state, and items of collections.
  void Keep(const Variant& value, bool isBounded) {
    constexpr std::size_t kMostObjects = 400;
    if (const auto items = EnumeratorIn(value)) {
      Variant item;
      for (int at = 0; (at < 100 || !isBounded) && items->Next(item); ++at) Keep(item, isBounded);
      return;
    }
    const auto* object = std::get_if<AnyObject>(&value);
    if (object == nullptr || !*object || object->Class == nullptr) return;
    if (!isBounded || mObjects.size() < kMostObjects) {
      mObjects.push_back(*object);
    } else {
      AnyObject& replaced = mObjects[mChoose(kMostObjects)];
      mHeld.push_back(std::exchange(replaced, *object));
    }
  }

  /// Lets go of what the object holds.
  void Empty(const AnyObject& object) {
    for (const MemberInfo& slot : object.Class->Slots()) {
      const auto kind = slot.ParameterCount == 1 ? slot.ParameterList[0].Type.Kind : ValueKind::None;
      const bool holds =
          kind == ValueKind::Object || kind == ValueKind::AnyObject || kind == ValueKind::Variant;
      if (holds && (slot.Kind == kPropertyLet || slot.Kind == kPropertySet))
        Call(object, slot, {AnyObject{}}, false);
    }
    if (const auto* remove = object.Class->Find("Remove")) {
      for (auto count = std::get<std::int32_t>(Invoke(object, "Count", kPropertyGet)); count > 0; --count)
        Call(object, *remove->Method, {1}, false);
    }
  }

  testing::MemoryHost mHost;
  testing::ErrorComponent mComponent{[this] { mComponent.Reports.clear(); }};
  std::function<std::uint32_t(std::uint32_t)> mChoose;
  std::vector<AnyObject> mObjects;
  std::vector<AnyObject> mHeld;
};

}  // namespace lwconfig::automation
