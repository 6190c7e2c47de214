#include "values.h"

#include <new>
#include <utility>

#include <lwconfig/core/base/error.h>

#include "enumeration.h"
#include "object.h"
#include "unknown.h"

namespace lwconfig::com {
namespace {

/// A foreign object: its identity is that of its `IUnknown`.
AnyObject Foreign(IUnknown* pointer) {
  ComPtr<IUnknown> identity;
  pointer->QueryInterface(IID_PPV_ARGS(identity.GetAddressOf()));
  if (!identity) throw Error(kTypeMismatch, "An object of another library that has no identity was found");
  return {HoldForeign(identity.Get())};
}

/// The automation interface of a foreign object, for the caller to release; null where it has none.
IDispatch* DispatchOf(const AnyObject& foreign) {
  IDispatch* dispatch = nullptr;
  static_cast<IUnknown*>(foreign.Pointer.get())->QueryInterface(IID_PPV_ARGS(&dispatch));
  return dispatch;
}

VARIANT Made(VARTYPE type) {
  VARIANT value;
  ::VariantInit(&value);
  value.vt = type;
  return value;
}

struct VariantMaker {
  VARIANT operator()(std::monostate) const { return Made(VT_EMPTY); }
  VARIANT operator()(Null) const { return Made(VT_NULL); }
  VARIANT operator()(Missing) const {
    VARIANT value = Made(VT_ERROR);
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
  }
  VARIANT operator()(bool flag) const {
    VARIANT value = Made(VT_BOOL);
    value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
  }
  VARIANT operator()(std::int16_t number) const {
    VARIANT value = Made(VT_I2);
    value.iVal = number;
    return value;
  }
  VARIANT operator()(std::int32_t number) const {
    VARIANT value = Made(VT_I4);
    value.lVal = number;
    return value;
  }
  VARIANT operator()(double number) const {
    VARIANT value = Made(VT_R8);
    value.dblVal = number;
    return value;
  }
  VARIANT operator()(const std::string& text) const {
    VARIANT value = Made(VT_BSTR);
    value.bstrVal = ToBstr(text);
    return value;
  }
  VARIANT operator()(const AnyObject& object) const {
    VARIANT value = Made(VT_DISPATCH);
    value.pdispVal = nullptr;
    if (!object || object.Class != nullptr) {
      value.pdispVal = ToDispatch(object);
    } else if (value.pdispVal = DispatchOf(object); value.pdispVal == nullptr) {
      value.vt = VT_UNKNOWN;
      value.punkVal = static_cast<IUnknown*>(object.Pointer.get());
      value.punkVal->AddRef();
    }
    return value;
  }
};

/// Resolves references, and converts numbers of types that the library does not have.
Variant FromOtherType(VARIANT value) {
  OwnedVariant plain;
  if ((value.vt & VT_BYREF) == 0) {
    if (SUCCEEDED(::VariantChangeType(plain.Get(), &value, 0, VT_R8))) return plain.Get()->dblVal;
  } else if (value.byref == nullptr) {
    throw Error(kInvalidCall, "A reference to no value was found");
  } else if (SUCCEEDED(::VariantCopyInd(plain.Get(), &value)) && (plain.Get()->vt & VT_BYREF) == 0) {
    return FromVariant(*plain.Get());
  }
  throw Error(kTypeMismatch, "A value of the automation type " + std::to_string(value.vt) +
                                 " was found, which is none that is taken here");
}

}  // namespace

BSTR ToBstr(std::string_view text) {
  const std::wstring wide = platform::Wide(text);
  BSTR made = ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

std::string FromBstr(BSTR text) {
  return text != nullptr ? platform::Narrow({text, ::SysStringLen(text)}) : std::string();
}

Variant FromVariant(const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Null{};
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_UI1:
      return std::int16_t{value.bVal};
    case VT_I2:
      return std::int16_t{value.iVal};
    case VT_I4:
    case VT_INT:
      return std::int32_t{value.lVal};
    case VT_R8:
    case VT_DATE:
      return value.dblVal;
    case VT_BSTR:
      return FromBstr(value.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return FromPointer(value.punkVal);
    case VT_ERROR:
      if (value.scode == DISP_E_PARAMNOTFOUND) return Missing{};
      throw Error(kTypeMismatch, "An error value was found, which is none that is taken here");
    default:
      if ((value.vt & VT_ARRAY) != 0)
        throw Error(kTypeMismatch, "An array was found, which is not taken here");
      return FromOtherType(value);
  }
}

VARIANT ToVariant(const Variant& value) {
  if (IEnumVARIANT* items = ToEnumeration(value); items != nullptr) {
    VARIANT made = Made(VT_UNKNOWN);
    made.punkVal = items;
    return made;
  }
  return std::visit(VariantMaker{}, value);
}

void StoreReferred(const VARIANT& reference, const Variant& value) {
  if (reference.vt == (VT_BYREF | VT_VARIANT)) {
    if ((reference.pvarVal->vt & VT_BYREF) != 0) return StoreReferred(*reference.pvarVal, value);
    // Release the old value last: the client may read its variable meanwhile.
    OwnedVariant made(value);
    std::swap(*made.Get(), *reference.pvarVal);
    return;
  }
  OwnedVariant made(value);
  const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
  if (FAILED(::VariantChangeType(made.Get(), made.Get(), 0, type)))
    throw Error(kTypeMismatch, "The variable that an argument refers to cannot take the result");
  switch (type) {
    case VT_BSTR:
      std::swap(*reference.pbstrVal, made.Get()->bstrVal);
      break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      std::swap(*reference.ppunkVal, made.Get()->punkVal);
      break;
    case VT_BOOL:
    case VT_I2:
      *reference.piVal = made.Get()->iVal;
      break;
    case VT_I4:
    case VT_INT:
      *reference.plVal = made.Get()->lVal;
      break;
    case VT_R8:
      *reference.pdblVal = made.Get()->dblVal;
      break;
    default:
      throw Error(kTypeMismatch, "The variable that an argument refers to is of a type that no result has");
  }
}

bool IsUnchanged(const Variant& before, const Variant& after) {
  const auto* now = std::get_if<AnyObject>(&after);
  if (now == nullptr) return before == after;
  const auto* was = std::get_if<AnyObject>(&before);
  if (was == nullptr) return !*now;
  return *was == *now && was->Class == now->Class;  // one object may begin with another
}

AnyObject FromPointer(IUnknown* pointer) {
  if (pointer == nullptr) return {};
  ComPtr<IOwnObject> own;
  const bool isOurs =
      SUCCEEDED(pointer->QueryInterface(IID_PPV_ARGS(own.GetAddressOf()))) && own->Home() == &gUses;
  if (isOurs) return own->Model();
  return Foreign(pointer);
}

IDispatch* ToDispatch(const AnyObject& object) {
  if (!object) return nullptr;
  if (object.Class != nullptr) return Object::Publish(object);
  IDispatch* dispatch = DispatchOf(object);
  if (dispatch == nullptr)
    throw Error(kTypeMismatch, "An automation object was expected, another kind of object was found");
  return dispatch;
}

std::shared_ptr<IUnknown> HoldForeign(IUnknown* object) {
  object->AddRef();
  return {object, [](IUnknown* held) {
            if (!gIsUnloading) held->Release();
          }};
}

}  // namespace lwconfig::com
