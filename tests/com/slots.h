#pragma once

#include <span>

#include <tests/com/automation_client.h>

namespace lwconfig::testing {

/// The slots of the interfaces as the generated header declares them to early-bound clients.

struct SlotParameter {
  VARTYPE Type;          // VT_BSTR, VT_I2 for Booleans too, VT_I4, VT_VARIANT, VT_UNKNOWN or VT_DISPATCH
  bool IsPointer;        // to such a value
  const IID* Interface;  // of an object
};

struct Slot {
  const char* Class;
  const char* Method;  // of the interface in C++, such as "get_Name"
  const wchar_t* Member;
  WORD Kind;
  bool HasResult;  // behind the last parameter
  const IID* Interface;
  std::span<const SlotParameter> Parameters;
  /// Calls the slot. Each parameter takes its value, or points to it, without regard to the type that is in
  /// it; pointers whose bit in `nulls` is set are null, objects and texts too.
  HRESULT (*Call)(IDispatch* self, Value* values, unsigned nulls);
};

struct SlotClass {
  const char* Name;
  bool IsCreatable;
  const IID* Interface;
  const CLSID* Id;
};

/// In the order of the interface description.
std::span<const Slot> Slots();
std::span<const SlotClass> SlotClasses();

}  // namespace lwconfig::testing
