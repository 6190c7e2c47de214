#include <python/failures.h>
#include <python/values.h>

#include <lwconfig/core/loading/error_reporter.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

void Raise(const Error& failure, bool isAboutKey) {
  const auto& position = failure.Position();
  const bool isKey = isAboutKey && failure.Number() == kInvalidCall;
  const py::object exception =
      py::module_::import("lwconfig._failures")
          .attr("make")(
              failure.Number(), ToPythonText(failure.Description()), ToPythonText(failure.Source()),
              position.File.empty() ? py::object(py::none()) : py::object(ToPythonText(position.File)),
              PlaceOrNone(position.Line), PlaceOrNone(position.Column), isKey);
  PyErr_SetObject(py::type::handle_of(exception).ptr(), exception.ptr());
}

void SetFailure(bool isAboutKey) {
  try {
    throw;
  } catch (py::error_already_set& raised) {
    raised.restore();
  } catch (const py::builtin_exception& raised) {
    raised.set_error();
  } catch (const ReportedError& failure) {
    Raise(failure.Cause(), isAboutKey);
  } catch (const Error& failure) {
    Raise(failure, isAboutKey);
  } catch (const std::exception& failure) {
    PyErr_SetString(PyExc_RuntimeError, failure.what());
  } catch (...) {
    PyErr_SetString(PyExc_RuntimeError, "An unknown failure");
  }
}

}  // namespace

py::object PlaceOrNone(std::int32_t number) {
  return number > 0 ? py::object(py::int_(number)) : py::none();
}

void SetPythonFailure(bool isAboutKey) noexcept {
  try {
    SetFailure(isAboutKey);
  } catch (py::error_already_set& raised) {
    // Creating the exception failed, for example when memory is short.
    raised.restore();
  } catch (...) {
    PyErr_NoMemory();
  }
}

}  // namespace lwconfig::python
