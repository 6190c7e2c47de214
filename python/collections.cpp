#include <algorithm>
#include <string>

#include <python/calls.h>
#include <python/collections.h>
#include <python/failures.h>
#include <python/objects.h>
#include <python/values.h>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>

namespace py = pybind11;

namespace lwconfig::python {
namespace {

using automation::ClassInfo;

const automation::MemberInfo& DefaultSlot(const ClassInfo& info) {
  return *info.Find(automation::kDefaultMemberId)->Get;
}

/// The argument of the default member.
Variant KeyOf(const AnyObject& collection, py::handle key) {
  return ToArgument(*collection.Class, DefaultSlot(*collection.Class), 0, key);
}

py::object ItemOf(const AnyObject& collection, Variant key) {
  const auto& slot = DefaultSlot(*collection.Class);
  return ToPython(automation::Invoke(collection, slot, {std::span(&key, 1)}), slot.Result);
}

[[noreturn]] void FailSubscript(const AnyObject& collection, ErrorNumber number, py::handle index) {
  throw Error(number, std::string(py::str("{} has no item [{!r}]").format(collection.Class->Name(), index)));
}

/// The position from 1 of a Python index from 0, or from -1 at the end; 0 where it is out of
/// range, however large.
std::int32_t PositionOf(const AnyObject& collection, py::handle index) {
  const Py_ssize_t at = PyNumber_AsSsize_t(index.ptr(), nullptr);
  if (at == -1 && PyErr_Occurred() != nullptr) throw py::error_already_set();
  const Py_ssize_t count = CountOf(collection);
  const Py_ssize_t place = at < 0 ? at + count : at;
  return place >= 0 && place < count ? static_cast<std::int32_t>(place + 1) : 0;
}

py::list SliceOf(const AnyObject& collection, py::handle slice) {
  Py_ssize_t start = 0;
  Py_ssize_t stop = 0;
  Py_ssize_t step = 0;
  if (PySlice_Unpack(slice.ptr(), &start, &stop, &step) != 0) throw py::error_already_set();
  const Py_ssize_t length = PySlice_AdjustIndices(CountOf(collection), &start, &stop, step);
  py::list items;
  for (Py_ssize_t at = 0; at < length; ++at)
    items.append(ItemOf(collection, static_cast<std::int32_t>(start + at * step + 1)));
  return items;
}

bool HasKey(const AnyObject& collection, const Variant& key) {
  const auto& access = collection.Class->Collection();
  return access.Contains == nullptr || access.Contains(collection.Pointer, automation::ToItemKey(key));
}

py::object Subscript(const AnyObject& collection, py::handle index) {
  if (PySlice_Check(index.ptr()) && collection.Class->IsCollection()) return SliceOf(collection, index);
  if (PyUnicode_Check(index.ptr())) {
    const Variant key = KeyOf(collection, index);
    py::object item = HasKey(collection, key) ? ItemOf(collection, key) : py::none();
    if (!item.is_none()) return item;
    FailSubscript(collection, kInvalidCall, index);
  }
  if (PyIndex_Check(index.ptr()) == 0 || !collection.Class->IsCollection())
    throw py::type_error(std::string(collection.Class->Name()) +
                         " takes keys, positions and slices in brackets");
  const std::int32_t position = PositionOf(collection, index);
  if (position == 0) FailSubscript(collection, kSubscriptOutOfRange, index);
  return ItemOf(collection, position);
}

PyObject* GetItem(PyObject* self, PyObject* index) {
  return Guarded<PyObject*>(
      nullptr, [&] { return Subscript(AnyObject(Unwrap(self)), index).release().ptr(); }, true);
}

int DeleteItem(PyObject* self, PyObject* index, PyObject* value) {
  return Guarded(
      -1,
      [&] {
        const AnyObject collection = Unwrap(self);
        const auto* remove = collection.Class->Find("Remove");
        if (value != nullptr || remove == nullptr)
          throw py::type_error(std::string("Items of ") + collection.Class->Name() +
                               " cannot be assigned; see Add and Remove");
        Variant key = ToArgument(*collection.Class, *remove->Method, 0, index);
        if (PyUnicode_Check(index) == 0) {
          const std::int32_t position = PositionOf(collection, index);
          if (position == 0) FailSubscript(collection, kSubscriptOutOfRange, index);
          key = position;
        }
        automation::Invoke(collection, *remove->Method, {std::span(&key, 1)});
        return 0;
      },
      true);
}

Py_ssize_t Length(PyObject* self) {
  return Guarded<Py_ssize_t>(-1, [&] { return CountOf(Unwrap(self)); });
}

/// Look up a text as a key; search the items for anything else.
int Contains(PyObject* self, PyObject* value) {
  return Guarded(-1, [&] {
    const AnyObject collection = Unwrap(self);
    const Variant wanted = KeyOf(collection, value);
    if (std::holds_alternative<std::string>(wanted) && HasKey(collection, wanted) &&
        collection.Class->Collection().Contains != nullptr)
      return 1;
    const auto items = automation::Enumerate(collection);
    for (Variant item; items->Next(item);) {
      if (item == wanted) return 1;
    }
    return 0;
  });
}

PyObject* Iterate(PyObject* self) {
  return Guarded<PyObject*>(
      nullptr, [&] { return MakeIterator(automation::Enumerate(Unwrap(self))).release().ptr(); });
}

PyObject* Reversed(PyObject* self, PyObject*) {
  return Guarded<PyObject*>(nullptr, [&] {
    const AnyObject collection = Unwrap(self);
    py::list items;
    for (std::int32_t position = CountOf(collection); position > 0; --position)
      items.append(ItemOf(collection, position));
    return PyObject_GetIter(items.ptr());
  });
}

PyObject* CallDefault(PyObject* self, PyObject* arguments, PyObject* named) {
  return Guarded<PyObject*>(nullptr, [&] {
    const AnyObject object = Unwrap(self);
    std::vector<PyObject*> values;
    for (const auto& value : py::reinterpret_borrow<py::tuple>(arguments)) values.push_back(value.ptr());
    const std::size_t count = values.size();
    py::list names;
    if (named != nullptr) {
      for (const auto& [name, value] : py::reinterpret_borrow<py::dict>(named)) {
        names.append(name);
        values.push_back(value.ptr());
      }
    }
    const py::tuple nameTuple(names);
    return CallSlot(self, DefaultSlot(*object.Class), values.data(), count, nameTuple.ptr());
  });
}

}  // namespace

std::int32_t CountOf(const AnyObject& collection) {
  return automation::ToInteger32(automation::Invoke(collection, "Count", automation::kPropertyGet));
}

py::object MakeIterator(const std::shared_ptr<automation::Enumerator>& enumerator) {
  return py::cast(enumerator);
}

std::vector<PyType_Slot> CollectionSlots(const ClassInfo& info) {
  static PyMethodDef methods[] = {{"__reversed__", Reversed, METH_NOARGS, "The items from last to first."},
                                  {}};
  std::vector<PyType_Slot> slots;
  const auto add = [&](int id, auto* function) { slots.push_back({id, reinterpret_cast<void*>(function)}); };
  if (info.Find(automation::kDefaultMemberId) != nullptr) {
    add(Py_tp_call, CallDefault);
    add(Py_mp_subscript, GetItem);
  }
  if (info.IsCollection()) {
    add(Py_mp_ass_subscript, DeleteItem);
    add(Py_mp_length, Length);
    add(Py_sq_contains, Contains);
    add(Py_tp_iter, Iterate);
    slots.push_back({Py_tp_methods, methods});
  }
  return slots;
}

}  // namespace lwconfig::python
