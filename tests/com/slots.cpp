#include <array>
#include <type_traits>

#include <tests/com/slots.h>

#include "LWConfigObjects.h"

namespace lwconfig::testing {
namespace {

/// A type of the header as a parameter, and its value in a variant.
template <class T>
struct Parameter {  // of enumerations
  static_assert(std::is_enum_v<T> || std::is_same_v<T, long>);
  static constexpr VARTYPE kType = VT_I4;
  static const IID* Interface() { return nullptr; }
  static T* In(Value& value) { return reinterpret_cast<T*>(&value.lVal); }
};
template <>
struct Parameter<short> {
  static constexpr VARTYPE kType = VT_I2;
  static const IID* Interface() { return nullptr; }
  static short* In(Value& value) { return &value.iVal; }
};
template <>
struct Parameter<BSTR> {
  static constexpr VARTYPE kType = VT_BSTR;
  static const IID* Interface() { return nullptr; }
  static BSTR* In(Value& value) { return &value.bstrVal; }
};
template <>
struct Parameter<VARIANT> {
  static constexpr VARTYPE kType = VT_VARIANT;
  static const IID* Interface() { return nullptr; }
  static VARIANT* In(Value& value) { return &value; }
};
template <class T>
requires std::is_base_of_v<IUnknown, T>
struct Parameter<T*> {
  static constexpr VARTYPE kType = std::is_same_v<T, IUnknown> ? VT_UNKNOWN : VT_DISPATCH;
  static const IID* Interface() { return &__uuidof(T); }
  static T** In(Value& value) { return reinterpret_cast<T**>(&value.pdispVal); }
};

template <class T>
struct Passed {
  static constexpr bool kIsPointer = false;
  using Type = T;
  static T Pass(Value& value, bool isNull) {
    if constexpr (std::is_pointer_v<T>) {
      if (isNull) return nullptr;
    }
    return *Parameter<T>::In(value);
  }
};
template <class T>
requires(!std::is_base_of_v<IUnknown, T> && !std::is_same_v<T*, BSTR>) struct Passed<T*> {
  static constexpr bool kIsPointer = true;
  using Type = T;
  static T* Pass(Value& value, bool isNull) { return isNull ? nullptr : Parameter<T>::In(value); }
};

template <class... P>
std::span<const SlotParameter> ParametersOf() {
  static const std::array<SlotParameter, sizeof...(P)> parameters{
      SlotParameter{Parameter<typename Passed<P>::Type>::kType, Passed<P>::kIsPointer,
                    Parameter<typename Passed<P>::Type>::Interface()}...};
  return parameters;
}

template <auto Method>
struct Method_;
template <class I, class... P, HRESULT (STDMETHODCALLTYPE I::*Method)(P...)>
struct Method_<Method> {
  static std::span<const SlotParameter> Parameters() { return ParametersOf<P...>(); }
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
#define CLASS(Class, IsCreatable) {#Class, IsCreatable != 0, &__uuidof(_##Class)},
#define SLOT(...)
  static const SlotClass classes[]{
#include "slots.inc"
  };
#undef CLASS
#undef SLOT
  return classes;
}

}  // namespace lwconfig::testing
