#pragma once

#include <new>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/platform/windows/system.h>

#include "unknown.h"

namespace lwconfig::com {

/// The result code for an error number of Basic clients: 0x800A0000 and the number.
inline HRESULT ResultOf(const Error& failure) {
  constexpr auto kBasicFailure = static_cast<HRESULT>(0x800A0000);
  return kBasicFailure | (failure.Number() & 0xFFFF);
}

/// Stores number, source and text of the failure as the error information of the thread, where clients of the
/// interface look for it, and returns its result.
HRESULT StoreFailure(const Error& failure, REFIID interfaceId);
/// As above, also in the form for late-bound clients. Null is allowed.
HRESULT StoreFailure(const Error& failure, REFIID interfaceId, EXCEPINFO* information);

/// The result of a call without an error text: clears the text of an earlier failure.
HRESULT ForgetFailure(HRESULT result);

/// Runs `body`, which must not throw into a client. A failure is passed to `report`, which returns the result
/// of the call.
template <class Body, class ReportFailure>
HRESULT Guarded(Body body, ReportFailure report) noexcept {
  try {
    const std::scoped_lock lock(gLibrary);
    return body();
  } catch (const std::bad_alloc&) {
    return ForgetFailure(E_OUTOFMEMORY);
  } catch (...) {
    try {
      return report(CurrentFailure());
    } catch (...) {  // no memory for that either
      return ForgetFailure(E_OUTOFMEMORY);
    }
  }
}

/// As above where the result alone describes the failure.
template <class Body>
HRESULT Guarded(Body body) noexcept {
  return Guarded(body, [](const Error& failure) { return ForgetFailure(ResultOf(failure)); });
}

}  // namespace lwconfig::com
