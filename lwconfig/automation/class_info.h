#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/base/event.h>
#include <lwconfig/core/base/keyed_list.h>
#include <lwconfig/core/base/variant.h>

namespace lwconfig {
class OptionSet;
}

namespace lwconfig::automation {

/// The description of every published class, from which each face of the library is derived.

enum class ValueKind : std::uint8_t {
  None,  // the result of a method that returns nothing
  Boolean,
  Integer16,
  Integer32,
  Enumeration,  // a 32-bit integer
  Text,
  Object,     // of one published class, or null
  AnyObject,  // of any class, a foreign one too, or null
  Variant,
  Enumerator,  // the result of `NewEnum`
};

struct EnumMember {
  const char* Name;
  std::int32_t Value;
};

struct EnumInfo {
  const char* Name;
  std::span<const EnumMember> Members;
};

/// A type as callers see it. Class and enumeration are returned by functions, because classes refer
/// to each other.
struct TypeInfo {
  ValueKind Kind = ValueKind::None;
  const ClassInfo& (*Class)() = nullptr;       // of `Object` only
  const EnumInfo& (*Enumeration)() = nullptr;  // of `Enumeration` only: whose names the values have
  const EnumInfo& (*Declared)() = nullptr;     // the one that the interface declares, where it is another
  bool MayBeNull = false;                      // a result: the object or text may be absent
  bool IsItemKey = false;                      // a key or position of an item that must exist
  bool IsColour = false;                       // an integer that people write as `ColourText` has it
};

struct ParameterInfo {
  std::string_view Name{};
  TypeInfo Type{};
  bool IsOptional = false;
  bool IsByReference = false;  // the call may replace the caller's value

  /// Whether languages without by-reference arguments return the argument behind the result. Objects are
  /// changed in place, or are the result themselves.
  constexpr bool IsReturned() const {
    return IsByReference && Type.Kind != ValueKind::Object && Type.Kind != ValueKind::AnyObject;
  }
};

/// The ways to use a member. They are the bits that automation clients pass, who may allow several at once.
enum InvokeKind : std::uint8_t {
  kMethod = 1,
  kPropertyGet = 2,
  kPropertyLet = 4,
  kPropertySet = 8,  // stores a reference to an object
};

inline constexpr std::size_t kMostParameters = 5;
inline constexpr std::int32_t kDefaultMemberId = 0;
inline constexpr std::int32_t kNewEnumId = -4;

/// Whose name a text is. Those in the plural are lists of names with commas between them.
enum class NameOf : std::uint8_t {
  Nothing,
  Profile,
  CodeElements,
  PlugIn,
  Comment,
  Contents,  // a contents definition of the same template
  Template,
  Words,  // nothing in the configuration
};

/// What a property is besides its type.
struct MemberFacts {
  const char* Attribute = nullptr;  // the name in configuration files, where it is another one
  bool IsKey = false;               // of the object in its collection
  NameOf Names{};
  std::span<const std::int32_t> MoreNumbers{};  // those beside the enumeration that files can have
};

/// One slot of an interface: a method, or one accessor of a property.
struct MemberInfo {
  const char* Name = nullptr;
  std::int32_t Id = 0;  // shared by the accessors of one property
  InvokeKind Kind = kMethod;
  MemberFacts Facts{};
  bool IsStored = false;  // whether it reads a data member, which has no effect
  TypeInfo Result{};
  /// The parameters of a let or set include the new value, as the last one.
  std::array<ParameterInfo, kMostParameters> ParameterList{};
  std::uint8_t ParameterCount = 0;
  /// Calls the member with `ParameterCount` arguments, `Missing` for omitted ones. `arguments` receives the
  /// new values of by-reference arguments. Conversion failures are `ArgumentError`.
  Variant (*Call)(const std::shared_ptr<void>& self, Variant* arguments) = nullptr;

  constexpr std::span<const ParameterInfo> Parameters() const {
    return {ParameterList.data(), ParameterCount};
  }
  constexpr std::size_t ReturnedCount() const {
    return static_cast<std::size_t>(std::ranges::count_if(Parameters(), &ParameterInfo::IsReturned));
  }
  /// Whether an argument names an item, so that error 5 concerns an unknown key.
  constexpr bool TakesItemKey() const {
    return std::ranges::any_of(Parameters(), [](const ParameterInfo& p) { return p.Type.IsItemKey; });
  }
};

/// Access to a collection beyond its published members.
struct CollectionInfo {
  /// Whether the key names an item, where `Item` may answer with another.
  bool (*Contains)(const std::shared_ptr<void>& self, const ItemKey& key) = nullptr;
  /// The key at a position from 1 to `Count`; empty where the item has none.
  std::string (*KeyAt)(const std::shared_ptr<void>& self, std::int32_t position) = nullptr;
};

/// The members of a foreign object that replace those of a class that others may implement. Returns false for
/// a member that it does not have; that of the class is then used. By-reference arguments may be replaced.
using Implementation =
    std::function<bool(std::string_view member, std::span<Variant> arguments, Variant& result)>;

struct EventInfo {
  const char* Name;
  Connection (*Connect)(const std::shared_ptr<void>& self, std::function<void()> handler);
};

/// How changes of an object, and of what belongs to it, are saved.
enum class Saving : std::uint8_t {
  WithOwner,    // as the object that it belongs to
  ByItself,     // by its method `Save`
  ByCatalogue,  // by the method `SaveTemplate` of the catalogue
  AtOnce,       // each change by itself, in the registry
  Never,        // the model only reads it
};

/// Optional parts of a class beyond its slots.
struct ClassExtras {
  std::shared_ptr<void> (*Create)() = nullptr;  // null where the objects come from other objects only
  std::span<const EventInfo> Events{};          // they live as long as the process
  CollectionInfo Collection{};
  std::shared_ptr<void> (*Implement)(Implementation) = nullptr;  // of a contract that others implement
  const OptionSet& (*Options)(const void* self) = nullptr;       // of a class of options
  lwconfig::automation::Saving Saving{};
  const char* Element = nullptr;      // in configuration files
  const char* ItemStorage = nullptr;  // what each item of a collection has to itself, which no save removes
};

/// A published class. Its interface has the name of the class after an underscore.
class ClassInfo {
 public:
  /// The accessors of one property, or a method.
  struct Member {
    const char* Name = nullptr;
    std::int32_t Id = 0;
    MemberFacts Facts{};
    const MemberInfo* Method = nullptr;
    const MemberInfo* Get = nullptr;
    const MemberInfo* Let = nullptr;
    const MemberInfo* Set = nullptr;

    /// The name of the property in configuration files.
    const char* Attribute() const { return Facts.Attribute != nullptr ? Facts.Attribute : Name; }
    /// The class of the object that the property holds; null for another value, and where there are
    /// arguments.
    const ClassInfo* HeldClass() const;
  };

  /// The slots live as long as the process.
  ClassInfo(const char* name, std::span<const MemberInfo> slots, ClassExtras extras = {});
  ClassInfo(const ClassInfo&) = delete;
  ClassInfo& operator=(const ClassInfo&) = delete;

  const char* Name() const { return mName; }
  bool IsCreatable() const { return mExtras.Create != nullptr; }
  /// A new object; error 429 where clients cannot create one.
  AnyObject Create() const;
  /// An object of the class with the members of a foreign object; error 429 where the class
  /// cannot be implemented.
  AnyObject Implement(Implementation implementation) const;
  bool IsImplementable() const { return mExtras.Implement != nullptr; }
  /// In interface order.
  std::span<const MemberInfo> Slots() const { return mSlots; }
  std::span<const EventInfo> Events() const { return mExtras.Events; }
  /// In interface order, each property once.
  const std::vector<Member>& Members() const { return mMembers; }
  /// The member of that name, letter case ignored, or null.
  const Member* Find(std::string_view name) const;
  const Member* Find(std::int32_t id) const;
  /// The property that gives an object its key in a collection; null where objects have none.
  const Member* Key() const;
  const EventInfo* FindEvent(std::string_view name) const;
  /// The options in an object of the class; null where it is no class of options.
  const OptionSet* OptionsOf(const AnyObject& object) const;
  bool IsCollection() const { return mNewEnum != nullptr; }
  const CollectionInfo& Collection() const { return mExtras.Collection; }
  /// The class of the items that can be added to the collection; null where they are texts.
  const ClassInfo* ItemClass() const;
  /// The name of the elements of configuration files that describe objects; null where there are none.
  const char* Element() const { return mExtras.Element; }
  automation::Saving Saving() const { return mExtras.Saving; }
  /// "folder" or "file"; null where a save of the collection also removes items.
  const char* ItemStorage() const { return mExtras.ItemStorage; }

 private:
  const char* mName;
  std::span<const MemberInfo> mSlots;
  ClassExtras mExtras;
  std::vector<Member> mMembers;
  KeyIndex mByName;
  std::vector<const Member*> mById;  // those from 0 on
  const Member* mNewEnum = nullptr;
};

/// The descriptions of a published class and enumeration; `published.h` declares which there are.
template <class T>
const ClassInfo& ClassOf();
template <class E>
const EnumInfo& EnumOf();

/// Walks the items of one collection.
class Enumerator {
 public:
  virtual ~Enumerator() = default;
  /// Stores the next item and returns true, or returns false at the end.
  virtual bool Next(Variant& item) = 0;
  virtual void Reset() = 0;
  /// Another one at the same item.
  virtual std::unique_ptr<Enumerator> Clone() const = 0;
};

/// The enumerator in the result of `NewEnum`; null for any other value.
std::shared_ptr<Enumerator> EnumeratorIn(const Variant& value);
/// The value that holds an enumerator.
Variant EnumeratorValue(std::shared_ptr<Enumerator> enumerator);

}  // namespace lwconfig::automation
