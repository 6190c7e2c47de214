#include <array>
#include <cstring>
#include <string>
#include <vector>

#include <python/calls.h>
#include <python/documentation.h>
#include <python/failures.h>
#include <python/objects.h>
#include <python/values.h>
#include <structmember.h>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/automation/signature.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

using automation::MemberInfo;
using automation::ParameterInfo;

std::string FullName(PyObject* self, const char* member) {
  return std::string(Unwrap(self).Class->Name()) + "." + member;
}

const ParameterInfo* FindParameter(const MemberInfo& slot, std::string_view name, std::size_t& place) {
  const auto parameters = slot.Parameters();
  for (place = 0; place < parameters.size(); ++place) {
    if (parameters[place].Name == name) return &parameters[place];
  }
  return nullptr;
}

/// The call's arguments in the order of the parameters, with `Missing` for omitted ones.
class PlacedArguments {
 public:
  PlacedArguments(PyObject* self, const MemberInfo& slot, PyObject* const* arguments, std::size_t count,
                  PyObject* names)
      : mCount(slot.ParameterCount) {
    const automation::ClassInfo& info = *Unwrap(self).Class;
    if (count > mCount) {
      throw Error(automation::kWrongArgumentCount, FullName(self, slot.Name) + " takes at most " +
                                                       std::to_string(mCount) + " arguments, " +
                                                       std::to_string(count) + " were given");
    }
    for (std::size_t at = 0; at < mCount; ++at)
      mValues[at] = at < count ? ToArgument(info, slot, at, arguments[at]) : Variant(Missing{});
    const auto named = names != nullptr ? PyTuple_GET_SIZE(names) : 0;
    for (Py_ssize_t at = 0; at < named; ++at) {
      const std::string name = py::str(PyTuple_GET_ITEM(names, at));
      std::size_t place = 0;
      const ParameterInfo* parameter = FindParameter(slot, name, place);
      if (parameter == nullptr || place < count) {
        throw Error(automation::kNamedArgumentNotFound,
                    FullName(self, slot.Name) + (parameter == nullptr
                                                     ? " has no parameter \"" + name + "\""
                                                     : ": the argument \"" + name + "\" is given twice"));
      }
      mValues[place] = ToArgument(info, slot, place, arguments[count + static_cast<std::size_t>(at)]);
    }
  }
  automation::Arguments Values() { return {std::span(mValues.data(), mCount)}; }
  const Variant& operator[](std::size_t place) const { return mValues[place]; }

 private:
  std::size_t mCount;
  std::array<Variant, automation::kMostParameters> mValues;
};

py::object ResultOf(const MemberInfo& slot, const Variant& result, const PlacedArguments& arguments) {
  py::object value = ToPython(result, slot.Result);
  if (slot.ReturnedCount() == 0) return value;
  py::tuple all(slot.ReturnedCount() + 1);
  all[0] = value;
  std::size_t place = 1;
  for (std::size_t at = 0; at < slot.ParameterCount; ++at) {
    const ParameterInfo& parameter = slot.ParameterList[at];
    if (parameter.IsReturned()) all[place++] = ToPython(arguments[at], parameter.Type);
  }
  return all;
}

/// A callable that Python binds to the object on which it is looked up, like a function.
struct Method {
  PyObject_HEAD vectorcallfunc Call;
  const automation::ClassInfo* Owner;
  const MemberInfo* Slot;
};

PyTypeObject* gMethodType = nullptr;

PyObject* CallMethod(PyObject* callable, PyObject* const* arguments, std::size_t flaggedCount,
                     PyObject* names) {
  const auto count = static_cast<std::size_t>(PyVectorcall_NARGS(flaggedCount));
  const MemberInfo& slot = *reinterpret_cast<Method*>(callable)->Slot;
  if (count == 0 || !IsWrapper(arguments[0])) {
    PyErr_Format(PyExc_TypeError, "%s() needs the object that it belongs to", slot.Name);
    return nullptr;
  }
  // A method belongs to one class, but may be called as Class.Method(object).
  const auto slots = Unwrap(arguments[0]).Class->Slots();
  if (&slot < slots.data() || &slot >= slots.data() + slots.size()) {
    PyErr_Format(PyExc_TypeError, "%s() is not a member of %s", slot.Name, Py_TYPE(arguments[0])->tp_name);
    return nullptr;
  }
  return CallSlot(arguments[0], slot, arguments + 1, count - 1, names);
}

PyObject* BindMethod(PyObject* callable, PyObject* object, PyObject*) {
  if (object == nullptr) {
    Py_INCREF(callable);
    return callable;
  }
  return PyMethod_New(callable, object);
}

PyObject* MethodName(PyObject* callable, void*) {
  return PyUnicode_FromString(reinterpret_cast<Method*>(callable)->Slot->Name);
}

PyObject* MethodOwner(PyObject* callable, void*) {
  const auto& method = *reinterpret_cast<Method*>(callable);
  return PyUnicode_FromFormat("%s.%s", method.Owner->Name(), method.Slot->Name);
}

PyObject* MethodDocumentation(PyObject* callable, void*) {
  return Guarded<PyObject*>(nullptr, [&] {
    const auto& method = *reinterpret_cast<Method*>(callable);
    return ToPythonText(MemberDocumentation(*method.Owner, *method.Owner->Find(method.Slot->Name)))
        .release()
        .ptr();
  });
}

PyObject* MethodSignature(PyObject* callable, void*) {
  return Guarded<PyObject*>(nullptr, [&] {
    return ToPythonText(TextSignature(*reinterpret_cast<Method*>(callable)->Slot)).release().ptr();
  });
}

PyObject* ShowMethod(PyObject* callable) {
  return PyUnicode_FromFormat("<method %s>", reinterpret_cast<Method*>(callable)->Slot->Name);
}

void DeleteMethod(PyObject* callable) {
  PyTypeObject* type = Py_TYPE(callable);
  type->tp_free(callable);
  Py_DECREF(type);
}

}  // namespace

Variant ToArgument(const automation::ClassInfo& info, const MemberInfo& slot, std::size_t place,
                   py::handle value) {
  const ParameterInfo& parameter = slot.ParameterList[place];
  if (value.is_none() && parameter.IsOptional) return Missing{};
  const bool isChange = slot.Kind == automation::kPropertyLet || slot.Kind == automation::kPropertySet;
  const bool isFile = automation::IsFileName(isChange ? slot.Name : parameter.Name, parameter.Type);
  try {
    return isFile && py::hasattr(value, "__fspath__") ? FromPythonPath(value) : FromPython(value);
  } catch (const Error& problem) {
    throw automation::NamedArgumentError(info, slot, {place + 1, problem});
  }
}

PyObject* CallSlot(PyObject* self, const MemberInfo& slot, PyObject* const* arguments, std::size_t count,
                   PyObject* names) {
  return Guarded<PyObject*>(
      nullptr,
      [&] {
        PlacedArguments placed(self, slot, arguments, count, names);
        // Hold the wrapper: Python may release it during the call.
        const AnyObject object = Unwrap(self);
        const Variant result = automation::Invoke(object, slot, placed.Values());
        return ResultOf(slot, result, placed).release().ptr();
      },
      slot.TakesItemKey());
}

PyObject* GetProperty(PyObject* self, const MemberInfo& getter) {
  return Guarded<PyObject*>(nullptr, [&] {
    const AnyObject object = Unwrap(self);
    return ToPython(automation::Invoke(object, getter), getter.Result).release().ptr();
  });
}

int SetProperty(PyObject* self, const automation::ClassInfo::Member& member, PyObject* value) {
  return Guarded(-1, [&] {
    if (value == nullptr)
      throw Error(automation::kReadOnlyProperty, FullName(self, member.Name) + " cannot be deleted");
    const AnyObject object = Unwrap(self);
    const MemberInfo* slot = member.Let != nullptr ? member.Let : member.Set;
    Variant converted = slot != nullptr ? ToArgument(*object.Class, *slot, 0, value) : Variant();
    automation::Invoke(object, member.Id, automation::kPropertyLet, {std::span(&converted, 1)});
    return 0;
  });
}

void PrepareMethods() {
  static PyMemberDef members[] = {
      {"__vectorcalloffset__", T_PYSSIZET, offsetof(Method, Call), READONLY, nullptr}, {}};
  static PyGetSetDef properties[] = {{"__name__", MethodName, nullptr, nullptr, nullptr},
                                     {"__qualname__", MethodOwner, nullptr, nullptr, nullptr},
                                     {"__doc__", MethodDocumentation, nullptr, nullptr, nullptr},
                                     {"__text_signature__", MethodSignature, nullptr, nullptr, nullptr},
                                     {}};
  static PyType_Slot slots[] = {{Py_tp_call, reinterpret_cast<void*>(PyVectorcall_Call)},
                                {Py_tp_descr_get, reinterpret_cast<void*>(BindMethod)},
                                {Py_tp_repr, reinterpret_cast<void*>(ShowMethod)},
                                {Py_tp_dealloc, reinterpret_cast<void*>(DeleteMethod)},
                                {Py_tp_members, members},
                                {Py_tp_getset, properties},
                                {0, nullptr}};
  static PyType_Spec spec = {"lwconfig.Method", sizeof(Method), 0,
                             Py_TPFLAGS_DEFAULT | Py_TPFLAGS_HAVE_VECTORCALL | Py_TPFLAGS_METHOD_DESCRIPTOR |
                                 Py_TPFLAGS_DISALLOW_INSTANTIATION,
                             slots};
  gMethodType = reinterpret_cast<PyTypeObject*>(PyType_FromSpec(&spec));
  if (gMethodType == nullptr) throw py::error_already_set();
}

py::object MakeMethod(const automation::ClassInfo& info, const MemberInfo& slot) {
  auto* method = PyObject_New(Method, gMethodType);
  if (method == nullptr) throw py::error_already_set();
  method->Call = CallMethod;
  method->Owner = &info;
  method->Slot = &slot;
  return py::reinterpret_steal<py::object>(reinterpret_cast<PyObject*>(method));
}

}  // namespace lwconfig::python
