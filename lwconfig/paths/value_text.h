#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/base/error.h>
#include <lwconfig/core/base/variant.h>
#include <lwconfig/paths/member_path.h>

namespace lwconfig {

/// A value for people: texts as they are, "True" and "False", numbers, the name of an enumeration's value,
/// colours as #rrggbb, "null", the class of an object in brackets.
std::string ValueText(const Variant& value, const automation::TypeInfo& type);

/// Finds the object that a value written as `@PATH` names.
using ObjectAt = std::function<AnyObject(const MemberPath& path)>;

/// The value of this type that a person wrote. Throws a `PathError` of usage for one that the type does not
/// have.
Variant TypedValue(const std::string& text, const automation::TypeInfo& type, const ObjectAt& objectAt);
/// As above for an argument inside the path `text`; where any value will do, a number is a number.
Variant TypedArgument(const PathValue& argument, const automation::TypeInfo& type, std::string_view text);

/// Whether the number stands for something: it is an enumerator, or a colour, where the type has these. True
/// for all other types.
bool HasMeaning(const Variant& value, const automation::TypeInfo& type);
/// The `PathError` of a text that is no value of the type; with the words that are, where they are few.
PathError NoValue(const std::string& text, const automation::TypeInfo& type,
                  std::int32_t number = kTypeMismatch);

/// What can be written for this type, where there is a choice of few.
std::vector<std::string> PossibleValues(const automation::TypeInfo& type);

}  // namespace lwconfig
