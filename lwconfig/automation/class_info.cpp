#include <algorithm>
#include <cstring>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig::automation {
namespace {

/// Names of members are plain words, so the bit that distinguishes capitals from small letters is masked.
/// Reads the first and the last eight bytes, which may overlap.
std::uint32_t Hash(std::string_view name) {
  constexpr std::uint64_t kCaseBits = 0x2020202020202020U;
  constexpr std::uint64_t kMultiplier = 0x9e3779b97f4a7c15U;
  if (name.empty()) return 0;
  const std::size_t count = std::min(name.size(), sizeof(std::uint64_t));
  std::uint64_t first = 0;
  std::uint64_t last = 0;
  std::memcpy(&first, name.data(), count);
  std::memcpy(&last, name.data() + name.size() - count, count);
  const std::uint64_t mixed =
      ((first | kCaseBits) * kMultiplier ^ (last | kCaseBits) ^ name.size()) * kMultiplier;
  return static_cast<std::uint32_t>(mixed >> 32U);
}

/// The class of the values that hold enumerators.
const ClassInfo& EnumeratorClass() {
  static const ClassInfo info("Enumerator", {});
  return info;
}

}  // namespace

ClassInfo::ClassInfo(const char* name, std::span<const MemberInfo> slots, ClassExtras extras)
    : mName(name), mSlots(slots), mExtras(extras) {
  std::int32_t lastId = 0;
  for (const MemberInfo& slot : slots) {
    auto place =
        std::find_if(mMembers.begin(), mMembers.end(), [&](const Member& m) { return m.Id == slot.Id; });
    if (place == mMembers.end()) place = mMembers.insert(place, Member{slot.Name, slot.Id, slot.Facts});
    (slot.Kind == kMethod        ? place->Method
     : slot.Kind == kPropertyGet ? place->Get
     : slot.Kind == kPropertyLet ? place->Let
                                 : place->Set) = &slot;
    lastId = std::max(lastId, slot.Id);
  }
  mById.resize(static_cast<std::size_t>(lastId) + 1);
  std::uint32_t position = 0;
  for (const Member& member : mMembers) {
    mByName.Insert(Hash(member.Name), position++);
    if (member.Id == kNewEnumId) {
      mNewEnum = &member;
    } else {
      mById[static_cast<std::size_t>(member.Id)] = &member;
    }
  }
}

AnyObject ClassInfo::Create() const {
  if (!IsCreatable()) {
    throw Error(kCannotCreateObject, std::string("Objects of the class ") + mName +
                                         " cannot be created; other objects hand them out");
  }
  return {mExtras.Create(), this};
}

AnyObject ClassInfo::Implement(Implementation implementation) const {
  if (!IsImplementable())
    throw Error(kCannotCreateObject, std::string("The class ") + mName + " is not one that others implement");
  return {mExtras.Implement(std::move(implementation)), this};
}

const OptionSet* ClassInfo::OptionsOf(const AnyObject& object) const {
  return mExtras.Options != nullptr ? &mExtras.Options(object.Pointer.get()) : nullptr;
}

const ClassInfo::Member* ClassInfo::Find(std::string_view name) const {
  const auto isNamed = [&](std::uint32_t at) {
    // Most callers spell a name as published.
    const std::string_view own = mMembers[at].Name;
    return own == name || EqualIgnoringCase(own, name);
  };
  const std::uint32_t place = mByName.Find(Hash(name), isNamed);
  return place == KeyIndex::kNone ? nullptr : &mMembers[place];
}

const ClassInfo::Member* ClassInfo::Find(std::int32_t id) const {
  if (id == kNewEnumId) return mNewEnum;
  return id >= 0 && static_cast<std::size_t>(id) < mById.size() ? mById[static_cast<std::size_t>(id)]
                                                                : nullptr;
}

const ClassInfo::Member* ClassInfo::Key() const {
  const auto found =
      std::find_if(mMembers.begin(), mMembers.end(), [](const Member& m) { return m.Facts.IsKey; });
  return found == mMembers.end() ? nullptr : &*found;
}

const ClassInfo* ClassInfo::Member::HeldClass() const {
  if (Get == nullptr || Get->ParameterCount > 0) return nullptr;
  // One object is handed out as a value of any type; its member has the name of its class.
  if (Get->Result.Kind == ValueKind::Variant) return FindClass(Name);
  return Get->Result.Kind == ValueKind::Object ? &Get->Result.Class() : nullptr;
}

const ClassInfo* ClassInfo::ItemClass() const {
  const Member* add = Find("Add");
  if (!IsCollection() || add == nullptr) return nullptr;
  const TypeInfo& type = add->Method->Parameters().front().Type;
  return type.Kind == ValueKind::Object ? &type.Class() : nullptr;
}

const EventInfo* ClassInfo::FindEvent(std::string_view name) const {
  const auto found = std::find_if(mExtras.Events.begin(), mExtras.Events.end(), [&](const EventInfo& event) {
    return EqualIgnoringCase(event.Name, name);
  });
  return found == mExtras.Events.end() ? nullptr : &*found;
}

std::shared_ptr<Enumerator> EnumeratorIn(const Variant& value) {
  const auto* object = std::get_if<AnyObject>(&value);
  if (object == nullptr || object->Class != &EnumeratorClass()) return nullptr;
  return std::static_pointer_cast<Enumerator>(object->Pointer);
}

Variant EnumeratorValue(std::shared_ptr<Enumerator> enumerator) {
  return AnyObject{std::move(enumerator), &EnumeratorClass()};
}

}  // namespace lwconfig::automation
