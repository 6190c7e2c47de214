#pragma once

#include <cstdint>

#include <pybind11/pybind11.h>

namespace lwconfig::python {

/// Sets the current C++ exception as a Python exception: the library's failures as `lwconfig.Error` or the
/// subclass that fits. With `isAboutKey` an unknown key is a KeyError.
void SetPythonFailure(bool isAboutKey = false) noexcept;

/// A line or column, from 1; None for 0, where it is not known.
pybind11::object PlaceOrNone(std::int32_t number);

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
