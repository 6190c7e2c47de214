#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/base/variant.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

/// Values as automation clients exchange them, and as the library knows them.

/// The caller frees the result.
BSTR ToBstr(std::string_view text);
/// Null is the empty text.
std::string FromBstr(BSTR text);

/// Follows references. An argument that was left out is `Missing`; dates, currency and decimals are numbers.
/// An object of somebody else's is held as long as the result lives. Error 13 for arrays and other types that
/// the library has no use for, 5 for a reference that leads nowhere.
Variant FromVariant(const VARIANT& value);
/// The caller clears the result.
VARIANT ToVariant(const Variant& value);
/// Replaces what a by-reference argument refers to, in the type that it has there: error 13 where the value
/// has no such form.
void StoreReferred(const VARIANT& reference, const Variant& value);

/// Whether a call has left an argument as it was; nothing of any kind is the same as no object.
bool IsUnchanged(const Variant& before, const Variant& after);

/// The object behind a pointer from a client, which may be null.
AnyObject FromPointer(IUnknown* pointer);
/// The caller releases the result; null for none. Error 13 for somebody else's object that is not an
/// automation object.
IDispatch* ToDispatch(const AnyObject& object);

/// Somebody else's object, released in the end unless the server is being unloaded.
std::shared_ptr<IUnknown> HoldForeign(IUnknown* object);

/// A variant that is cleared at the end of its life.
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
