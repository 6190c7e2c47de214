#include <map>
#include <string>

#include <python/objects.h>
#include <python/values.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

std::string Utf8(py::handle text) {
  Py_ssize_t size = 0;
  if (const char* utf8 = PyUnicode_AsUTF8AndSize(text.ptr(), &size))
    return {utf8, static_cast<std::size_t>(size)};
  PyErr_Clear();
  const auto bytes =
      py::reinterpret_steal<py::bytes>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape"));
  if (bytes) return bytes;
  if (PyErr_ExceptionMatches(PyExc_UnicodeEncodeError) == 0) throw py::error_already_set();
  PyErr_Clear();
  throw Error(kTypeMismatch, std::string(py::str("the text {!a} cannot be written as UTF-8").format(text)));
}

Variant FromPythonInteger(py::handle number) {
  int overflow = 0;
  const long long value = PyLong_AsLongLongAndOverflow(number.ptr(), &overflow);
  if (overflow == 0 && std::in_range<std::int32_t>(value)) return static_cast<std::int32_t>(value);
  const double large = PyLong_AsDouble(number.ptr());
  if (large == -1.0 && PyErr_Occurred() != nullptr) throw py::error_already_set();
  return large;
}

/// The members of an enumeration by their values.
struct Enumeration {
  py::object Type;
  std::map<std::int32_t, py::object> Members;
};

/// Never destroyed: Python may be shut down before static objects are destroyed.
Enumeration& EnumerationOf(const automation::EnumInfo& info) {
  static auto& all = *new std::map<const automation::EnumInfo*, Enumeration>;
  const auto [place, isNew] = all.try_emplace(&info);
  Enumeration& enumeration = place->second;
  if (isNew) {
    py::list members;
    for (const auto& member : info.Members) members.append(py::make_tuple(member.Name, member.Value));
    enumeration.Type =
        py::module_::import("enum").attr("IntEnum")(info.Name, members, py::arg("module") = "lwconfig");
    for (const auto& member : info.Members)
      enumeration.Members.emplace(member.Value, enumeration.Type(member.Value));
  }
  return enumeration;
}

}  // namespace

py::str ToPythonText(std::string_view text) {
  PyObject* decoded =
      PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
  if (decoded == nullptr) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(decoded);
}

py::object EnumerationType(const automation::EnumInfo& info) {
  return EnumerationOf(info).Type;
}

Variant FromPython(py::handle value) {
  PyObject* object = value.ptr();
  if (object == Py_None) return AnyObject{};
  if (PyBool_Check(object)) return object == Py_True;
  if (PyLong_Check(object)) return FromPythonInteger(value);
  if (PyUnicode_Check(object)) return Utf8(value);
  if (PyFloat_Check(object)) return PyFloat_AS_DOUBLE(object);
  return ObjectOf(value);
}

std::string FromPythonPath(py::handle value) {
  PyObject* text = nullptr;
  if (PyUnicode_FSDecoder(value.ptr(), &text) == 0) throw py::error_already_set();
  return Utf8(py::reinterpret_steal<py::object>(text));
}

py::object ToPython(const Variant& value, const automation::TypeInfo& type) {
  struct Converter {
    const automation::TypeInfo& Type;
    py::object operator()(std::monostate) const { return py::none(); }
    py::object operator()(Null) const { return py::none(); }
    py::object operator()(Missing) const { return py::none(); }
    py::object operator()(bool flag) const { return py::bool_(flag); }
    py::object operator()(std::int16_t number) const { return py::int_(number); }
    py::object operator()(std::int32_t number) const {
      if (Type.Kind == automation::ValueKind::Enumeration) {
        const auto& members = EnumerationOf(Type.Enumeration()).Members;
        if (const auto found = members.find(number); found != members.end()) return found->second;
      }
      return py::int_(number);
    }
    py::object operator()(double number) const { return py::float_(number); }
    py::object operator()(const std::string& text) const { return ToPythonText(text); }
    py::object operator()(const AnyObject& object) const { return WrapperOf(object); }
  };
  return std::visit(Converter{type}, value);
}

}  // namespace lwconfig::python
