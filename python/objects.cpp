#include <string>
#include <unordered_map>
#include <vector>

#include <python/calls.h>
#include <python/collections.h>
#include <python/documentation.h>
#include <python/events.h>
#include <python/failures.h>
#include <python/objects.h>
#include <python/representation.h>
#include <python/values.h>
#include <structmember.h>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

using automation::ClassInfo;

/// A Python object passed through the library, which keeps it alive.
struct PythonObject {
  explicit PythonObject(py::handle value) : Value(value.inc_ref().ptr()) {}
  PythonObject(const PythonObject&) = delete;
  PythonObject& operator=(const PythonObject&) = delete;
  ~PythonObject() { Release(Value); }
  PyObject* Value;
};

/// The state of the module. Never destroyed: Python may be shut down before static objects are destroyed.
struct Registry {
  std::unordered_map<const ClassInfo*, PyTypeObject*> Types;
  std::unordered_map<void*, PyObject*> Wrappers;  // the one of each object; not owned
  PyTypeObject* Base = nullptr;                   // of all published types
};

Registry& TheRegistry() {
  static auto& registry = *new Registry;
  return registry;
}

/// The published class of a type or of its base.
const ClassInfo& ClassOfType(PyTypeObject* type) {
  for (; type != nullptr; type = type->tp_base) {
    for (const auto& [info, published] : TheRegistry().Types) {
      if (published == type) return *info;
    }
  }
  throw py::type_error("The type is not derived from a class of lwconfig");
}

bool IsDerived(PyTypeObject* type) {
  return TheRegistry().Types.at(&ClassOfType(type)) != type;
}

PyObject* Wrap(PyTypeObject* type, AnyObject object) {
  PyObject* self = type->tp_alloc(type, 0);
  if (self == nullptr) throw py::error_already_set();
  auto& wrapper = *reinterpret_cast<Wrapper*>(self);
  wrapper.Object = new AnyObject(std::move(object));
  TheRegistry().Wrappers[wrapper.Object->Pointer.get()] = self;
  return self;
}

/// Calls the method of a Python class in place of a published member. Where the member has returned
/// parameters, a tuple holds the result and then these.
bool CallOverride(PyObject* self, const ClassInfo& info, std::string_view member,
                  std::span<Variant> arguments, Variant& result) {
  const py::gil_scoped_acquire lock;
  const std::string name(member);
  const ClassInfo::Member& published = *info.Find(member);
  const automation::MemberInfo& slot = *(published.Method != nullptr ? published.Method : published.Get);
  const auto inherited =
      py::handle(reinterpret_cast<PyObject*>(TheRegistry().Types.at(&info))).attr(name.c_str());
  const py::object own = py::type::handle_of(self).attr(name.c_str());
  if (own.is(inherited)) return false;

  py::object answer;
  if (slot.Kind == automation::kPropertyGet) {
    answer = py::handle(self).attr(name.c_str());
    if (PyCallable_Check(answer.ptr()) != 0) answer = answer();
  } else {
    py::tuple values(arguments.size());
    for (std::size_t at = 0; at < arguments.size(); ++at)
      values[at] = ToPython(arguments[at], slot.ParameterList[at].Type);
    answer = py::handle(self).attr(name.c_str())(*values);
  }
  if (slot.ReturnedCount() == 0 || !PyTuple_Check(answer.ptr())) {
    result = FromPython(answer);
    return true;
  }
  std::size_t next = 1;
  const py::tuple all = answer;
  if (!all.empty()) result = FromPython(all[0]);
  for (std::size_t at = 0; at < arguments.size(); ++at) {
    if (slot.ParameterList[at].IsReturned() && next < all.size()) arguments[at] = FromPython(all[next++]);
  }
  return true;
}

PyObject* NewObject(PyTypeObject* type, PyObject* arguments, PyObject* named) {
  return Guarded<PyObject*>(nullptr, [&]() -> PyObject* {
    const ClassInfo& info = ClassOfType(type);
    if (IsDerived(type) && info.IsImplementable()) {
      // Calls reach Python through the wrapper, which is alive during each call: see ObjectOf.
      const auto self = std::make_shared<PyObject*>(nullptr);
      PyObject* created = Wrap(
          type,
          info.Implement([self, &info](std::string_view member, std::span<Variant> values, Variant& result) {
            return *self != nullptr && CallOverride(*self, info, member, values, result);
          }));
      return *self = created;
    }
    if (!IsDerived(type) &&
        (PyTuple_GET_SIZE(arguments) != 0 || (named != nullptr && PyDict_GET_SIZE(named) != 0)))
      throw py::type_error(std::string(info.Name()) + "() takes no arguments");
    return Wrap(type, info.Create());
  });
}

void DeleteObject(PyObject* self) {
  auto& wrapper = *reinterpret_cast<Wrapper*>(self);
  PyTypeObject* type = Py_TYPE(self);
  if (wrapper.WeakReferences != nullptr) PyObject_ClearWeakRefs(self);
  if (wrapper.Object != nullptr) {
    auto& wrappers = TheRegistry().Wrappers;
    const auto found = wrappers.find(wrapper.Object->Pointer.get());
    if (found != wrappers.end() && found->second == self) wrappers.erase(found);
    delete wrapper.Object;
  }
  type->tp_free(self);
  Py_DECREF(type);
}

bool IsPlainProperty(const ClassInfo::Member& member) {
  return member.Method == nullptr && (member.Get == nullptr || member.Get->ParameterCount == 0) &&
         member.Id != automation::kNewEnumId;
}

PyObject* ShowObject(PyObject* self) {
  return Guarded<PyObject*>(nullptr, [&] {
    return Representation(py::type::handle_of(self), AnyObject(Unwrap(self))).release().ptr();
  });
}

/// An argument of `Clone` for a copy: a new object for a parameter of the class itself, which receives the
/// copy; for any other, the owner, found in the property of its name.
Variant CloneArgument(const AnyObject& object, const automation::ParameterInfo& parameter) {
  if (parameter.IsOptional) return Missing{};
  if (parameter.Type.Class != nullptr && &parameter.Type.Class() == object.Class)
    return object.Class->Create();
  const auto* owner = object.Class->Find(parameter.Name);
  return owner != nullptr && owner->Get != nullptr ? automation::Invoke(object, *owner->Get)
                                                   : Variant(AnyObject{});
}

PyObject* DeepCopy(PyObject* self, PyObject* /*memo*/) {
  return Guarded<PyObject*>(nullptr, [&] {
    const AnyObject object = Unwrap(self);
    const auto* clone = object.Class->Find("Clone");
    if (clone == nullptr)
      throw py::type_error(std::string("Objects of the class ") + object.Class->Name() + " cannot be copied");
    std::vector<Variant> arguments;
    for (const auto& parameter : clone->Method->Parameters())
      arguments.push_back(CloneArgument(object, parameter));
    const Variant target = arguments.empty() ? Variant() : arguments[0];
    const Variant copy = automation::Invoke(object, *clone->Method, {arguments});
    const bool copiesIntoTarget = clone->Method->Result.Kind == automation::ValueKind::None;
    return ToPython(copiesIntoTarget ? target : copy).release().ptr();
  });
}

PyObject* GetMember(PyObject* self, void* member) {
  return GetProperty(self, *static_cast<const ClassInfo::Member*>(member)->Get);
}
int SetMember(PyObject* self, PyObject* value, void* member) {
  return SetProperty(self, *static_cast<const ClassInfo::Member*>(member), value);
}

/// A text that is never freed, as type objects need.
const char* Kept(std::string text) {
  return (new std::string(std::move(text)))->c_str();
}

/// The properties of the class as Python's own accessors; they live as long as the type.
PyGetSetDef* Accessors(const ClassInfo& info) {
  auto* accessors = new std::vector<PyGetSetDef>;
  for (const auto& member : info.Members()) {
    if (!IsPlainProperty(member)) continue;
    accessors->push_back({member.Name, member.Get != nullptr ? GetMember : nullptr, SetMember,
                          Kept(MemberDocumentation(info, member)), const_cast<ClassInfo::Member*>(&member)});
  }
  accessors->push_back({});
  return accessors->data();
}

PyTypeObject* MakeType(const std::string& name, PyTypeObject* base, std::vector<PyType_Slot> slots) {
  slots.push_back({0, nullptr});
  PyType_Spec spec = {name.c_str(), sizeof(Wrapper), 0, Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE,
                      slots.data()};
  const auto bases =
      base != nullptr ? py::make_tuple(py::handle(reinterpret_cast<PyObject*>(base))) : py::tuple();
  PyObject* type = base != nullptr ? PyType_FromSpecWithBases(&spec, bases.ptr()) : PyType_FromSpec(&spec);
  if (type == nullptr) throw py::error_already_set();
  return reinterpret_cast<PyTypeObject*>(type);
}

template <class F>
PyType_Slot SlotFor(int id, F* function) {
  return {id, reinterpret_cast<void*>(function)};
}

void MakeBase() {
  static PyMethodDef methods[] = {{"on", reinterpret_cast<PyCFunction>(ConnectHandler), METH_VARARGS,
                                   "on(event, callback): calls callback() whenever the event is raised, as "
                                   "long as the connection that it "
                                   "returns lives and is not closed."},
                                  {"__deepcopy__", DeepCopy, METH_O, "A copy, made by Clone."},
                                  {}};
  static PyMemberDef members[] = {
      {"__weaklistoffset__", T_PYSSIZET, offsetof(Wrapper, WeakReferences), READONLY, nullptr}, {}};
  TheRegistry().Base = MakeType("lwconfig.Object", nullptr,
                                {SlotFor(Py_tp_dealloc, DeleteObject),
                                 SlotFor(Py_tp_repr, ShowObject),
                                 SlotFor(Py_tp_new, NewObject),
                                 {Py_tp_methods, methods},
                                 {Py_tp_members, members}});
}

}  // namespace

void Release(PyObject* object) noexcept {
  if (Py_IsInitialized() == 0) return;
  const PyGILState_STATE state = PyGILState_Ensure();
  Py_XDECREF(object);
  PyGILState_Release(state);
}

bool IsWrapper(py::handle value) {
  return PyObject_TypeCheck(value.ptr(), TheRegistry().Base) != 0;
}

py::object WrapperOf(const AnyObject& object) {
  if (!object) return py::none();
  if (object.Class == nullptr)
    return py::reinterpret_borrow<py::object>(static_cast<PythonObject*>(object.Pointer.get())->Value);
  if (const auto enumerator = automation::EnumeratorIn(object)) return MakeIterator(enumerator);
  auto& wrappers = TheRegistry().Wrappers;
  if (const auto found = wrappers.find(object.Pointer.get()); found != wrappers.end())
    return py::reinterpret_borrow<py::object>(found->second);
  return py::reinterpret_steal<py::object>(Wrap(TheRegistry().Types.at(object.Class), object));
}

AnyObject ObjectOf(py::handle value) {
  if (!IsWrapper(value)) return {std::make_shared<PythonObject>(value), nullptr};
  const AnyObject& object = Unwrap(value.ptr());
  if (!object.Class->IsImplementable() || !IsDerived(Py_TYPE(value.ptr()))) return object;
  // The library keeps an object implemented in Python alive.
  const auto keeper = std::make_shared<PythonObject>(value);
  return {std::shared_ptr<void>(keeper, object.Pointer.get()), object.Class};
}

void AddTypes(py::module_& module) {
  PrepareMethods();
  MakeBase();
  module.attr("Object") = py::handle(reinterpret_cast<PyObject*>(TheRegistry().Base));
  for (const ClassInfo* info : automation::PublishedClasses()) {
    auto slots = CollectionSlots(*info);
    slots.push_back({Py_tp_getset, Accessors(*info)});
    const std::string contract(automation::Contract(info->Name()));
    slots.push_back({Py_tp_doc, const_cast<char*>(contract.c_str())});
    PyTypeObject* type =
        MakeType(std::string("lwconfig.") + info->Name(), TheRegistry().Base, std::move(slots));
    const py::handle handle(reinterpret_cast<PyObject*>(type));
    for (const auto& member : info->Members()) {
      if (IsPlainProperty(member) || member.Id == automation::kNewEnumId) continue;
      if (PyDict_SetItemString(
              type->tp_dict, member.Name,
              MakeMethod(*info, member.Method != nullptr ? *member.Method : *member.Get).ptr()) != 0)
        throw py::error_already_set();
    }
    PyType_Modified(type);
    TheRegistry().Types.emplace(info, type);
    module.attr(info->Name()) = handle;
  }
}

}  // namespace lwconfig::python
