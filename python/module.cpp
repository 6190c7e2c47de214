#include <memory>
#include <string>

#include <pybind11/pybind11.h>
#include <python/collections.h>
#include <python/configurations.h>
#include <python/events.h>
#include <python/failures.h>
#include <python/objects.h>
#include <python/values.h>

#include <lwconfig/automation/published.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/platform/components.h>
#include <lwconfig/platform/message_box.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

/// An error component that ignores reports. While one is registered, failures are thrown, and
/// become Python's exceptions.
struct SilentReporter final : platform::Component {
  void Receive(std::string_view) override {}
};

void PrepareReporter() {
  if (platform::CreateComponent(kErrorComponent) == nullptr) {
    platform::RegisterComponent(std::string(kErrorComponent),
                                [] { return std::make_unique<SilentReporter>(); });
  }
}

void SetMessageBoxHandler(const py::object& handler) {
  if (handler.is_none()) {
    platform::SetMessageBoxHandler({});
    return;
  }
  if (PyCallable_Check(handler.ptr()) == 0) throw py::type_error("The handler must be callable, or None");
  const std::shared_ptr<PyObject> held(handler.inc_ref().ptr(), Release);
  platform::SetMessageBoxHandler([held](const platform::Message& message) {
    const py::gil_scoped_acquire lock;
    const auto callback = py::reinterpret_borrow<py::object>(held.get());
    try {
      callback(ToPythonText(message.Title), ToPythonText(message.Text), static_cast<int>(message.Icon));
    } catch (py::error_already_set& raised) {
      raised.discard_as_unraisable(callback);
    }
  });
}

void AddIterators(py::module_& module) {
  py::class_<automation::Enumerator, std::shared_ptr<automation::Enumerator>>(module, "_Iterator")
      .def("__iter__", [](py::object self) { return self; })
      .def("__next__", [](automation::Enumerator& self) {
        Variant item;
        if (!self.Next(item)) throw py::stop_iteration();
        return ToPython(item);
      });
}

void AddEnumerations(py::module_& module) {
  for (const automation::EnumInfo* info : automation::PublishedEnumerations()) {
    const py::object type = EnumerationType(*info);
    module.attr(info->Name) = type;
    for (const auto& member : info->Members) module.attr(member.Name) = type.attr(member.Name);
  }
}

/// Every public name in the module.
py::list PublicNames(const py::module_& module) {
  py::list names;
  for (const auto& [name, value] : py::reinterpret_borrow<py::dict>(module.attr("__dict__"))) {
    if (!py::str(name).attr("startswith")("_").cast<bool>()) names.append(name);
  }
  return names;
}

}  // namespace
}  // namespace lwconfig::python

PYBIND11_MODULE(_lwconfig, module) {
  using namespace lwconfig::python;
  PrepareReporter();
  py::register_local_exception_translator([](std::exception_ptr failure) {
    try {
      std::rethrow_exception(std::move(failure));
    } catch (const lwconfig::Error&) {
      SetPythonFailure();
    }
  });
  AddIterators(module);
  AddConnections(module);
  AddTypes(module);
  AddEnumerations(module);
  AddConfigurations(module);
  module.def(
      "set_message_box_handler", &SetMessageBoxHandler, py::arg("handler").none(true),
      "Calls handler(title, text, icon) for every message box of the library; None restores the default.");
  module.def(
      "NativePath", [](py::handle path) { return ToPythonText(lwconfig::NativePath(FromPythonPath(path))); },
      py::arg("path"), "The system's own path for a path in the product's notation.");
  module.attr("__version__") = LWCONFIG_VERSION;
  module.attr("__all__") = PublicNames(module);
}
