#include <array>
#include <type_traits>

#include <tests/com/slots.h>

#include "LWConfigObjects.h"

namespace lwconfig::testing {
namespace {

/// A type of the header as a parameter: a variant's type, and the place of its value in a variant.
template <class T>
constexpr VARTYPE kType = VT_I4;  // of enumerations too
template <>
constexpr VARTYPE kType<short> = VT_I2;
template <>
constexpr VARTYPE kType<BSTR> = VT_BSTR;
template <>
constexpr VARTYPE kType<VARIANT> = VT_VARIANT;
template <>
constexpr VARTYPE kType<IUnknown*> = VT_UNKNOWN;
template <class T>
requires std::is_base_of_v<IDispatch, T>
constexpr VARTYPE kType<T*> = VT_DISPATCH;

template <class T>
T* PlaceIn(Value& value) {
  static_assert(kType<T> != VT_I4 || std::is_enum_v<T> || std::is_same_v<T, long>);
  if constexpr (kType<T> == VT_VARIANT) return &value;
  return reinterpret_cast<T*>(&value.llVal);
}

template <class T>
const IID* InterfaceOf() {
  if constexpr (kType<T> == VT_DISPATCH || kType<T> == VT_UNKNOWN) return &__uuidof(std::remove_pointer_t<T>);
  return nullptr;
}

template <class T>
struct Passed {
  static constexpr bool kIsPointer = false;
  using Type = T;
  static T Pass(Value& value, bool isNull) {
    if constexpr (std::is_pointer_v<T>) {
      if (isNull) return nullptr;
    }
    return *PlaceIn<T>(value);
  }
};
template <class T>
requires(!std::is_base_of_v<IUnknown, T> && !std::is_same_v<T*, BSTR>) struct Passed<T*> {
  static constexpr bool kIsPointer = true;
  using Type = T;
  static T* Pass(Value& value, bool isNull) { return isNull ? nullptr : PlaceIn<T>(value); }
};

template <auto Method>
struct Method_;
template <class I, class... P, HRESULT (STDMETHODCALLTYPE I::*Method)(P...)>
struct Method_<Method> {
  static std::span<const SlotParameter> Parameters() {
    static const std::array<SlotParameter, sizeof...(P)> parameters{SlotParameter{
        kType<typename Passed<P>::Type>, Passed<P>::kIsPointer, InterfaceOf<typename Passed<P>::Type>()}...};
    return parameters;
  }
  static HRESULT Call(IDispatch* self, Value* values, unsigned nulls) {
    return CallWith(self, values, nulls, std::index_sequence_for<P...>());
  }
  template <std::size_t... At>
  static HRESULT CallWith(IDispatch* self, [[maybe_unused]] Value* values, [[maybe_unused]] unsigned nulls,
                          std::index_sequence<At...>) {
    return (static_cast<I*>(self)->*Method)(Passed<P>::Pass(values[At], (nulls >> At & 1U) != 0)...);
  }
};

}  // namespace

std::span<const Slot> Slots() {
#define CLASS(...)
#define SLOT(Class, Method, Member, Kind, HasResult) \
  {#Class,                                           \
   #Method,                                          \
   L## #Member,                                      \
   Kind,                                             \
   HasResult != 0,                                   \
   &__uuidof(_##Class),                              \
   Method_<&_##Class::Method>::Parameters(),         \
   Method_<&_##Class::Method>::Call},
  static const Slot slots[]{
#include "slots.inc"
  };
#undef CLASS
#undef SLOT
  return slots;
}

std::span<const SlotClass> SlotClasses() {
#define CLASS(Class, IsCreatable) {#Class, IsCreatable != 0, &__uuidof(_##Class), &__uuidof(Class)},
#define SLOT(...)
  static const SlotClass classes[]{
#include "slots.inc"
  };
#undef CLASS
#undef SLOT
  return classes;
}

}  // namespace lwconfig::testing
