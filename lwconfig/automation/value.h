#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/files/registry_access.h>

namespace lwconfig::automation {

/// Conversions between C++ values and the published interface: the type that callers see, the value of a
/// variant, and the variant of a value. A class that is not named here is a published class.
template <class T>
struct Crossing {
  static constexpr TypeInfo kType{ValueKind::Object, &ClassOf<T>};
  static Variant ToVariant(T object) {
    return AnyObject{std::make_shared<T>(std::move(object)), &ClassOf<T>()};
  }
};

template <>
struct Crossing<bool> {
  static constexpr TypeInfo kType{ValueKind::Boolean};
  static bool FromVariant(const Variant& value) { return ToBoolean(value); }
  static Variant ToVariant(bool value) { return value; }
};

template <>
struct Crossing<std::int16_t> {
  static constexpr TypeInfo kType{ValueKind::Integer16};
  static std::int16_t FromVariant(const Variant& value) { return ToInteger16(value); }
  static Variant ToVariant(std::int16_t value) { return value; }
};

template <>
struct Crossing<std::int32_t> {
  static constexpr TypeInfo kType{ValueKind::Integer32};
  static std::int32_t FromVariant(const Variant& value) { return ToInteger32(value); }
  static Variant ToVariant(std::int32_t value) { return value; }
};

/// Numbers above 31 bits, such as those of the registry's hives, are also given as the negative number with
/// the same bits.
template <>
struct Crossing<std::uint32_t> {
  static constexpr TypeInfo kType{ValueKind::Integer32};
  static std::uint32_t FromVariant(const Variant& value) {
    const auto* number = std::get_if<double>(&value);
    if (number != nullptr && *number >= 0 && *number <= UINT32_MAX)
      return static_cast<std::uint32_t>(*number);
    return static_cast<std::uint32_t>(ToInteger32(value));
  }
};

template <class E>
requires std::is_enum_v<E>
struct Crossing<E> {
  static constexpr TypeInfo kType{ValueKind::Enumeration, nullptr, &EnumOf<E>};
  static E FromVariant(const Variant& value) { return static_cast<E>(ToInteger32(value)); }
  static Variant ToVariant(E value) { return static_cast<std::int32_t>(value); }
};

template <>
struct Crossing<std::string> {
  static constexpr TypeInfo kType{ValueKind::Text};
  static std::string FromVariant(const Variant& value) { return ToText(value); }
  static Variant ToVariant(std::string value) { return value; }
};
template <>
struct Crossing<std::string_view> : Crossing<std::string> {};

/// A text that may be absent, such as an item of a collection of texts.
template <>
struct Crossing<const std::string*> {
  static constexpr TypeInfo kType{.Kind = ValueKind::Text, .MayBeNull = true};
  static Variant ToVariant(const std::string* value) {
    return value != nullptr ? Variant(*value) : Variant();
  }
};

template <>
struct Crossing<ItemKey> {
  static constexpr TypeInfo kType{.Kind = ValueKind::Variant, .IsItemKey = true};
  static ItemKey FromVariant(const Variant& value) { return ToItemKey(value); }
};

template <>
struct Crossing<Variant> {
  static constexpr TypeInfo kType{ValueKind::Variant};
  static Variant FromVariant(const Variant& value) { return value; }
  static Variant ToVariant(Variant value) { return value; }
};

template <>
struct Crossing<RegistryData> {
  static constexpr TypeInfo kType{ValueKind::Variant};
  static RegistryData FromVariant(const Variant& value) {
    if (std::holds_alternative<std::monostate>(value)) return {};
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return ToInteger32(value);
  }
  static Variant ToVariant(RegistryData value) {
    if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
    return {};
  }
};

template <>
struct Crossing<AnyObject> {
  static constexpr TypeInfo kType{ValueKind::AnyObject};
  static AnyObject FromVariant(const Variant& value) { return ToObject(value); }
  static Variant ToVariant(AnyObject value) { return value; }
};

template <class T>
struct Crossing<std::shared_ptr<T>> {
  static constexpr TypeInfo kType{ValueKind::Object, &ClassOf<T>};
  static std::shared_ptr<T> FromVariant(const Variant& value) {
    return std::static_pointer_cast<T>(ToObject(value, ClassOf<T>()).Pointer);
  }
  static Variant ToVariant(std::shared_ptr<T> object) {
    const ClassInfo* info = object ? &ClassOf<T>() : nullptr;
    return AnyObject{std::move(object), info};
  }
};
template <class T>
struct Crossing<Owned<T>> : Crossing<std::shared_ptr<T>> {};

template <class T>
concept CrossesByValue = requires(const Variant& value) {
  Crossing<T>::FromVariant(value);
};

/// One argument of a call: made from the caller's variant, passed on as a C++ parameter of type `P`.
template <class P>
class Argument;

/// Values. An omitted one is empty.
template <class P>
requires CrossesByValue<std::remove_cvref_t<P>>
class Argument<P> {
  using Value = std::remove_cvref_t<P>;

 public:
  static constexpr TypeInfo kType = Crossing<Value>::kType;
  static constexpr bool kIsByReference =
      std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;

  explicit Argument(const Variant& value)
      : mValue(std::holds_alternative<Missing>(value) ? Value()
                                                      : Value(Crossing<Value>::FromVariant(value))) {}
  P Pass() {
    if constexpr (std::is_reference_v<P>)
      return mValue;
    else
      return std::move(mValue);
  }
  void Return(Variant& value) {
    if constexpr (kIsByReference) value = Crossing<Value>::ToVariant(std::move(mValue));
  }

 private:
  Value mValue;
};

/// Texts, not copied where the caller's value is a text.
template <>
class Argument<std::string_view> {
 public:
  static constexpr TypeInfo kType{ValueKind::Text};
  static constexpr bool kIsByReference = false;

  explicit Argument(const Variant& value) : mText(std::get_if<std::string>(&value)) {
    if (mText == nullptr && !std::holds_alternative<Missing>(value)) mConverted = ToText(value);
  }
  std::string_view Pass() const { return mText != nullptr ? *mText : mConverted; }
  void Return(Variant&) {}

 private:
  const std::string* mText;
  std::string mConverted;
};

/// Objects that the C++ function takes by reference. A missing object is a failure of the operation, as in a
/// function that follows a pointer.
template <class P>
requires(std::is_lvalue_reference_v<P> && !CrossesByValue<std::remove_cvref_t<P>>) class Argument<P> {
  using Class = std::remove_cvref_t<P>;

 public:
  static constexpr TypeInfo kType{ValueKind::Object, &ClassOf<Class>};
  static constexpr bool kIsByReference = false;

  explicit Argument(const Variant& value) : mObject(Crossing<std::shared_ptr<Class>>::FromVariant(value)) {}
  P Pass() const {
    if (!mObject)
      throw Error(kObjectNotSet, std::string("An object of the class ") + ClassOf<Class>().Name() +
                                     " was expected, none was given");
    return *mObject;
  }
  void Return(Variant&) {}

 private:
  std::shared_ptr<Class> mObject;
};

}  // namespace lwconfig::automation
