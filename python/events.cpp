#include <memory>
#include <string>

#include <python/events.h>
#include <python/failures.h>
#include <python/objects.h>

#include <lwconfig/automation/dispatch.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

/// One subscription, shared by the event's handler and Python's connection.
struct Subscription {
  Subscription() = default;
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  Connection Link;
  py::object Callback;

  void Close() {
    Link.Close();
    Callback = py::object();
  }
  ~Subscription() { Release(Callback.release().ptr()); }
};

void CallBack(const std::shared_ptr<Subscription>& subscription) {
  const py::gil_scoped_acquire lock;
  const py::object callback = subscription->Callback;
  if (!callback) return;
  try {
    callback();
  } catch (py::error_already_set& raised) {
    raised.discard_as_unraisable(callback);
  }
}

}  // namespace

PyObject* ConnectHandler(PyObject* self, PyObject* arguments) {
  return Guarded<PyObject*>(nullptr, [&] {
    const char* event = nullptr;
    PyObject* callback = nullptr;
    if (PyArg_ParseTuple(arguments, "sO:on", &event, &callback) == 0) throw py::error_already_set();
    if (PyCallable_Check(callback) == 0) throw py::type_error("on() needs something to call");
    auto subscription = std::make_shared<Subscription>();
    subscription->Callback = py::reinterpret_borrow<py::object>(callback);
    subscription->Link = automation::Connect(Unwrap(self), event, [subscription] { CallBack(subscription); });
    return py::cast(std::move(subscription)).release().ptr();
  });
}

void AddConnections(py::module_& module) {
  py::class_<Subscription, std::shared_ptr<Subscription>>(
      module, "Connection", "The connection of a callback to an event; closes at the end of a with block.")
      .def("close", &Subscription::Close, "Ends the connection; harmless when it has ended.")
      .def("__enter__", [](py::object self) { return self; })
      .def("__exit__", [](Subscription& self, const py::args&) { self.Close(); });
}

}  // namespace lwconfig::python
