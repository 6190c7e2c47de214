#include "slot_call.h"

#include <array>
#include <cstring>
#include <span>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>

#include "enumeration.h"
#include "failures.h"
#include "object.h"
#include "values.h"

namespace lwconfig::com {
namespace {

using automation::MemberInfo;
using automation::ParameterInfo;
using automation::ValueKind;

/// The 64-bit convention passes the address of a variant, the 32-bit one the variant itself.
constexpr bool kVariantsArePointers = sizeof(Word) == 8;

std::size_t WordCount(const ParameterInfo& parameter) {
  const bool isWide =
      parameter.Type.Kind == ValueKind::Variant && !parameter.IsByReference && !kVariantsArePointers;
  return isWide ? sizeof(VARIANT) / sizeof(Word) : 1;
}

template <class T>
T* Pointer(Word word) {
  return reinterpret_cast<T*>(word);
}

/// The bytes of an argument: in its word, whose lowest bytes come first, or where that points to.
template <class T>
T At(const void* place) {
  T value;
  std::memcpy(&value, place, sizeof value);
  return value;
}

/// The value of that kind at a place.
Variant Read(ValueKind kind, const void* place) {
  switch (kind) {
    case ValueKind::Boolean:
      return At<VARIANT_BOOL>(place) != VARIANT_FALSE;
    case ValueKind::Integer16:
      return At<std::int16_t>(place);
    case ValueKind::Integer32:
    case ValueKind::Enumeration:
      return At<std::int32_t>(place);
    case ValueKind::Text:
      return FromBstr(At<BSTR>(place));
    case ValueKind::Variant:
      return FromVariant(At<VARIANT>(place));
    default:
      return FromPointer(At<IUnknown*>(place));
  }
}

/// Stores a value where the word points to. The old value is not freed, and is kept after a failure.
void Store(ValueKind kind, const Variant& value, Word word) {
  switch (kind) {
    case ValueKind::None:
      break;
    case ValueKind::Boolean:
      *Pointer<VARIANT_BOOL>(word) = automation::ToBoolean(value) ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case ValueKind::Integer16:
      *Pointer<std::int16_t>(word) = automation::ToInteger16(value);
      break;
    case ValueKind::Integer32:
    case ValueKind::Enumeration:
      *Pointer<std::int32_t>(word) = automation::ToInteger32(value);
      break;
    case ValueKind::Text:
      *Pointer<BSTR>(word) =
          std::holds_alternative<std::monostate>(value) ? nullptr : ToBstr(automation::ToText(value));
      break;
    case ValueKind::Variant:
      *Pointer<VARIANT>(word) = ToVariant(value);
      break;
    case ValueKind::Object:
    case ValueKind::AnyObject:
      *Pointer<IDispatch*>(word) = ToDispatch(automation::ToObject(value));
      break;
    case ValueKind::Enumerator:
      *Pointer<IUnknown*>(word) = ToEnumeration(value);
      break;
  }
}

/// Replaces the target of a by-reference argument. The new value is complete before the old one is destroyed.
void Replace(ValueKind kind, const Variant& value, Word word) {
  VARIANT old;
  ::VariantInit(&old);
  if (kind == ValueKind::Variant) {
    old = *Pointer<VARIANT>(word);
  } else if (kind == ValueKind::Text) {
    old.vt = VT_BSTR;
    old.bstrVal = *Pointer<BSTR>(word);
  } else if (kind == ValueKind::Object || kind == ValueKind::AnyObject) {
    old.vt = VT_UNKNOWN;
    old.punkVal = *Pointer<IUnknown*>(word);
  }
  Store(kind, value, word);
  ::VariantClear(&old);
}

/// The arguments of one call with their sources.
class SlotArguments {
 public:
  SlotArguments(const MemberInfo& slot, const Word* words) : mSlot(slot) {
    for (std::size_t at = 0; at < slot.ParameterCount; ++at) {
      mPlaces[at] = words;
      words += WordCount(slot.ParameterList[at]);
    }
    mResult = words;
  }

  /// Whether there is a place for every result of the call.
  bool HasPlaces() const {
    for (std::size_t at = 0; at < mSlot.ParameterCount; ++at) {
      const ParameterInfo& parameter = mSlot.ParameterList[at];
      if (parameter.IsByReference && !parameter.IsOptional && *mPlaces[at] == 0) return false;
    }
    return !HasResult() || *mResult != 0;
  }

  void ClearResult() {
    if (HasResult() && *mResult != 0) Store(mSlot.Result.Kind, {}, *mResult);
  }

  std::span<Variant> ReadAll() {
    for (std::size_t at = 0; at < mSlot.ParameterCount; ++at) {
      const ParameterInfo& parameter = mSlot.ParameterList[at];
      const ValueKind kind = parameter.Type.Kind;
      const bool isPointer = parameter.IsByReference || (kind == ValueKind::Variant && kVariantsArePointers);
      const void* place = isPointer ? Pointer<const void>(*mPlaces[at]) : mPlaces[at];
      mValues[at] = place != nullptr ? Read(kind, place) : Variant(Missing{});
    }
    return {mValues.data(), mSlot.ParameterCount};
  }

  void ReturnAll(const Variant& result) {
    for (std::size_t at = 0; at < mSlot.ParameterCount; ++at) {
      const ParameterInfo& parameter = mSlot.ParameterList[at];
      if (!parameter.IsByReference || *mPlaces[at] == 0) continue;
      const ValueKind kind = parameter.Type.Kind;
      // Leave unchanged arguments as the client has them, including the interface through which an
      // object is passed.
      if (IsUnchanged(Read(kind, Pointer<const void>(*mPlaces[at])), mValues[at])) continue;
      Replace(kind, mValues[at], *mPlaces[at]);
    }
    if (HasResult()) Store(mSlot.Result.Kind, result, *mResult);
  }

 private:
  bool HasResult() const { return mSlot.Result.Kind != ValueKind::None; }

  const MemberInfo& mSlot;
  std::array<const Word*, automation::kMostParameters> mPlaces{};
  const Word* mResult = nullptr;
  std::array<Variant, automation::kMostParameters> mValues{};
};

}  // namespace

std::size_t WordCount(const MemberInfo& slot) {
  std::size_t count = slot.Result.Kind != ValueKind::None ? 1 : 0;
  for (const ParameterInfo& parameter : slot.Parameters()) count += WordCount(parameter);
  return count;
}

HRESULT CallSlot(Object& object, std::size_t number, const Word* words) noexcept {
  const ClassBinding& binding = object.Binding();
  const MemberInfo& slot = binding.Class.Slots()[number];
  return Guarded(
      [&] {
        SlotArguments arguments(slot, words);
        arguments.ClearResult();
        if (!arguments.HasPlaces()) return ForgetFailure(E_POINTER);
        // Hold the object: the call may release the client's last reference, and so destroy `object`.
        const AnyObject model = object.Model();
        arguments.ReturnAll(automation::Invoke(model, slot, {arguments.ReadAll()}));
        return S_OK;
      },
      [&](const Error& failure) { return StoreFailure(failure, binding.InterfaceId); });
}

}  // namespace lwconfig::com
