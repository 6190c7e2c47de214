#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/base/variant.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

/// Conversion of values between automation clients and the library.

/// The caller frees the result.
BSTR ToBstr(std::string_view text);
/// Null is the empty text.
std::string FromBstr(BSTR text);

/// Follows references. An omitted argument is `Missing`; dates, currency and decimals are numbers. A foreign
/// object is held as long as the result is alive. Error 13 for arrays and other types without an equivalent
/// in the library, 5 for a null reference.
Variant FromVariant(const VARIANT& value);
/// The caller clears the result.
VARIANT ToVariant(const Variant& value);
/// Replaces the target of a by-reference argument, in its present type: error 13 where the value does not
/// convert to it.
void StoreReferred(const VARIANT& reference, const Variant& value);

/// Whether a call has not changed an argument; an empty value of any kind equals no object.
bool IsUnchanged(const Variant& before, const Variant& after);

/// The object behind a pointer from a client, which may be null.
AnyObject FromPointer(IUnknown* pointer);
/// The caller releases the result; null for none. Error 13 for a foreign object that is not
/// an automation object.
IDispatch* ToDispatch(const AnyObject& object);

/// A foreign object, released on destruction unless the server is being unloaded.
std::shared_ptr<IUnknown> HoldForeign(IUnknown* object);

/// A variant that is cleared on destruction.
class OwnedVariant {
 public:
  OwnedVariant() { ::VariantInit(&mValue); }
  explicit OwnedVariant(const Variant& value) : mValue(com::ToVariant(value)) {}
  ~OwnedVariant() { ::VariantClear(&mValue); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
  VARIANT* Get() { return &mValue; }

 private:
  VARIANT mValue;
};

}  // namespace lwconfig::com
