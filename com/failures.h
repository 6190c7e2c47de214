#pragma once

#include <new>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/platform/windows/system.h>

#include "unknown.h"

namespace lwconfig::com {

/// The result that carries the number of a failure as Basic clients know it: 0x800A0000 and the number.
inline HRESULT ResultOf(const Error& failure) {
  constexpr auto kBasicFailure = static_cast<HRESULT>(0x800A0000);
  return kBasicFailure | (failure.Number() & 0xFFFF);
}

/// Leaves number, source and text of the failure with the thread, where clients of the interface look for
/// them, and returns its result.
HRESULT Tell(const Error& failure, REFIID interfaceId);
/// As above, in the form that late-bound clients get too. Null is allowed.
HRESULT Tell(const Error& failure, REFIID interfaceId, EXCEPINFO* information);

/// The result of a call that has no text to go with it: that of an earlier failure is forgotten.
HRESULT ForgetFailure(HRESULT result);

/// Runs what must not throw into a client. The failure it ends with is passed to `tell`, which returns the
/// result of the call.
template <class Body, class TellFailure>
HRESULT Guarded(Body body, TellFailure tell) noexcept {
  try {
    const std::scoped_lock lock(gLibrary);
    return body();
  } catch (const std::bad_alloc&) {
    return ForgetFailure(E_OUTOFMEMORY);
  } catch (...) {
    try {
      return tell(CurrentFailure());
    } catch (...) {  // no memory for that either
      return ForgetFailure(E_OUTOFMEMORY);
    }
  }
}

/// As above where the result itself says all there is to say.
template <class Body>
HRESULT Guarded(Body body) noexcept {
  return Guarded(body, [](const Error& failure) { return ForgetFailure(ResultOf(failure)); });
}

}  // namespace lwconfig::com
