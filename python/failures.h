#pragma once

#include <pybind11/pybind11.h>

namespace lwconfig::python {

/// Sets the exception that is being handled as a Python exception: the library's failures as `lwconfig.Error`
/// or the kind of it that fits. `isAboutKey` where a key that names nothing is a KeyError.
void SetPythonFailure(bool isAboutKey = false) noexcept;

/// Runs `body`, a call from Python; a failure is set as a Python exception and the result is `failed`.
template <class Result, class Body>
Result Guarded(Result failed, Body body, bool isAboutKey = false) noexcept {
  try {
    return body();
  } catch (...) {
    SetPythonFailure(isAboutKey);
    return failed;
  }
}

}  // namespace lwconfig::python
