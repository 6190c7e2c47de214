#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/core/base/event.h>
#include <lwconfig/core/base/variant.h>

namespace lwconfig::automation {

/// Late binding: members of published objects by name, with values of any type.

struct NamedArgument {
  std::string_view Name;
  Variant* Value;
};

/// The arguments of one call, in order and then by name. The last of those in order is the new value of a let
/// or set. By-reference arguments receive their new values.
struct Arguments {
  std::span<Variant> Ordered{};
  std::span<const NamedArgument> Named{};
};

/// Uses the member of that name, letter case ignored, or number. `kinds` are the uses that suit the caller
/// (see `InvokeKind`); a let of an object also finds a set. Arguments beyond those of a property that holds
/// an object are passed to the default member of that object.
///
/// Errors of the call itself: 91 for a null object, 438 for a missing member or one without this use, 383
/// for the change of a read-only property, 450, 449 and 448 for too many, missing and unknown arguments, 13,
/// 6 or 94 for an argument of the wrong type. A failure inside the operation, such as that of an argument
/// that is no object where it needs one, is reported once, and is then error 65535, or the empty value of the
/// result's type: 0, False, an empty text, no object.
Variant Invoke(const AnyObject& object, std::string_view member, unsigned kinds,
               const Arguments& arguments = {});
Variant Invoke(const AnyObject& object, std::int32_t id, unsigned kinds, const Arguments& arguments = {});

/// As above for one slot of the object's class.
Variant Invoke(const AnyObject& object, const MemberInfo& slot, const Arguments& arguments = {});

/// The error of an argument that does not convert, prefixed with the names of member and parameter.
Error NamedArgumentError(const ClassInfo& info, const MemberInfo& slot, const ArgumentError& problem);

/// Connects a handler to the object's event of that name, letter case ignored, as long as the result is
/// alive. Error 459 where there is none.
[[nodiscard]] Connection Connect(const AnyObject& object, std::string_view event,
                                 std::function<void()> handler);

/// The items of a collection, from first to last. Error 438 for another object.
std::shared_ptr<Enumerator> Enumerate(const AnyObject& object);

}  // namespace lwconfig::automation
