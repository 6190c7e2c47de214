#include <memory>
#include <string>

#include <python/events.h>
#include <python/failures.h>
#include <python/objects.h>
#include <python/values.h>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

/// The connection of a callback, owned by Python; the event's handler refers to it.
struct Subscription {
  Subscription() = default;
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  Connection Link;
  py::object Callback;
  std::string Name;  // "PageLayouts.ContentsChange"

  void Close() {
    Link.Close();
    Callback = py::object();
  }
  ~Subscription() { Release(Callback.release().ptr()); }
};

void CallBack(const std::weak_ptr<Subscription>& connection) {
  const py::gil_scoped_acquire lock;
  const auto subscription = connection.lock();
  const py::object callback = subscription ? subscription->Callback : py::object();
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
    PyObject* event = nullptr;
    PyObject* callback = nullptr;
    if (PyArg_ParseTuple(arguments, "UO:on", &event, &callback) == 0) throw py::error_already_set();
    if (PyCallable_Check(callback) == 0) throw py::type_error("on() needs something to call");
    const AnyObject object = Unwrap(self);
    const std::string name = automation::ToText(FromPython(event));
    auto subscription = std::make_shared<Subscription>();
    subscription->Callback = py::reinterpret_borrow<py::object>(callback);
    const std::weak_ptr<Subscription> connection = subscription;
    subscription->Link = automation::Connect(object, name, [connection] { CallBack(connection); });
    subscription->Name = std::string(object.Class->Name()) + "." + object.Class->FindEvent(name)->Name;
    return py::cast(std::move(subscription)).release().ptr();
  });
}

void AddConnections(py::module_& module) {
  py::class_<Subscription, std::shared_ptr<Subscription>>(
      module, "Connection",
      "The connection of a callback to an event. It lasts until it is closed, by a with block too, or "
      "destroyed.")
      .def("close", &Subscription::Close, "Closes the connection; does nothing if it is closed.")
      .def("__repr__",
           [](const Subscription& self) {
             return "<lwconfig.Connection " + self.Name + (self.Callback ? ">" : " closed>");
           })
      .def("__enter__", [](py::object self) { return self; })
      .def("__exit__", [](Subscription& self, const py::args&) { self.Close(); });
}

}  // namespace lwconfig::python
