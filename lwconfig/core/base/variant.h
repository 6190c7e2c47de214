#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace lwconfig {

namespace automation {
class ClassInfo;
}  // namespace automation

/// A reference to any automation object: one of this library, with its class, or a foreign one, which the
/// library only passes on. Two references are equal when they refer to the same object.
struct AnyObject {
  std::shared_ptr<void> Pointer{};
  const automation::ClassInfo* Class = nullptr;  // null for a foreign object and for none
  explicit operator bool() const { return Pointer != nullptr; }
  friend bool operator==(const AnyObject& a, const AnyObject& b) { return a.Pointer == b.Pointer; }
};

/// The null value of databases.
struct Null {
  friend bool operator==(Null, Null) { return true; }
};

/// An omitted argument.
struct Missing {
  friend bool operator==(Missing, Missing) { return true; }
};

/// Any value that automation clients exchange; empty when default-constructed.
using Variant = std::variant<std::monostate, Null, bool, std::int16_t, std::int32_t, double, std::string,
                             AnyObject, Missing>;

}  // namespace lwconfig
