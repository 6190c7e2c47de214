#pragma once

#include <cstdint>
#include <string>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/base/keyed_list.h>
#include <lwconfig/core/base/variant.h>

namespace lwconfig::automation {

/// Conversions of values as automation clients expect them. Empty is 0, "" and false; true is -1; numbers are
/// rounded to the nearest integer, halves to the even neighbour; texts are read as whole numbers or booleans.
/// Errors: 6 for a number out of range, 13 for what has no such value, 94 for Null.

bool ToBoolean(const Variant& value);
std::int16_t ToInteger16(const Variant& value);
std::int32_t ToInteger32(const Variant& value);
std::string ToText(const Variant& value);
/// The object, null for Null, empty and missing; error 13 for other values.
AnyObject ToObject(const Variant& value);
/// As above, of this class: error 13 for an object of another one.
AnyObject ToObject(const Variant& value, const ClassInfo& expected);
/// A text is a key, a number a position; empty, Null and missing name nothing, and so do values that can be
/// neither, which find no item. Refers to the text in `value`.
ItemKey ToItemKey(const Variant& value);

/// The empty value of a result of the type: 0, false, "", no object; empty for a variant.
Variant EmptyValue(const TypeInfo& type);

/// The description of the value in messages: `the text "x"`, `a PageLayout object`.
std::string DescribeValue(const Variant& value);
/// The display name of the type: "Text", "Integer32", "PageLayout", "PageTypeEnum".
const char* TypeName(const TypeInfo& type);

}  // namespace lwconfig::automation
