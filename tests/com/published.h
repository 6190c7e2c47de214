#pragma once

#include <map>
#include <string>
#include <vector>

#include <tests/com/automation_client.h>

namespace lwconfig::testing {

/// The published interface as the type library describes it to early-bound clients.

struct Parameter {
  VARTYPE Type;          // of the value: VT_I4 for enumerations, VT_DISPATCH for objects
  int Depth;             // how many pointers lead to the value
  std::string Declared;  // name of the enumeration or class; empty for other types

  bool IsReference() const { return Depth > 0; }
  /// A reference to the value of this type that is in the variant.
  Value ReferenceTo(Value& value) const;
};

struct Slot {
  std::string Class;
  std::string Member;
  IID Interface;
  DISPID Id;
  WORD Kind;
  ULONG_PTR Offset;  // in the table of functions, in bytes
  std::vector<Parameter> Inputs{};
  std::vector<Parameter> Result{};  // none or one, behind the inputs

  std::string Name() const { return Class + "." + Member + " " + std::to_string(Kind); }
  /// Values for the inputs and, where there is one, the result.
  std::size_t ValueCount() const { return Inputs.size() + Result.size(); }
  /// Calls the function in this slot of the object's interface. Pointers whose bit in `nulls` is set are
  /// null, objects and texts too. The result replaces the last of the values.
  HRESULT Call(IUnknown* object, std::vector<Value>& values, unsigned nulls = 0) const;
};

struct PublishedClass {
  bool IsCreatable;
  CLSID Id;
  IID Interface;
  std::vector<Slot> Slots;
  IID Events{};         // null where it has none
  std::string Event{};  // its only one

  /// Null where the class has no such slot.
  const Slot* Find(DISPID id, WORD kind) const;
};

struct Constant {
  std::string Enumeration;
  std::string Name;
  LONG Value;
};

/// The classes, by their names.
struct PublishedInterface : std::map<std::string, PublishedClass> {
  std::vector<Constant> Constants;
};
const PublishedInterface& Published();

}  // namespace lwconfig::testing
