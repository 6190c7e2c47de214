#pragma once

#include <string>

#include <tools/lwconfig/view/json_value.h>
#include <tools/lwconfig/view/tree_text.h>

#include <lwconfig/paths/object_model.h>

namespace lwconfig::tool {

/// "property", "read-only", "write-only" or "method".
const char* KindOf(const automation::ClassInfo::Member& member);
/// The slot that tells the member's type and parameters.
const automation::MemberInfo& MainSlot(const automation::ClassInfo::Member& member);
/// "Item(Key)", "Add(obj, [Key], [Before], [After])", "Name".
std::string SignatureOf(const automation::ClassInfo::Member& member);

/// A value as 'get' prints it: a line; for a collection a line for each item; else the members of the object.
std::string GotText(ObjectModel& model, const PathTarget& place, const TextStyle& style);
/// The members of the object with their values, then the items of a collection.
std::string ListedText(ObjectModel& model, const AnyObject& object, const TextStyle& style);

/// A value; of an object its properties, where objects have a class only; of a collection its items.
Json GotJson(ObjectModel& model, const Variant& value);
/// The properties of an object, and its items where it has any, with those of the objects below it, as many
/// levels deep.
Json NestedJson(ObjectModel& model, const Variant& value, int levels);
Json ListedJson(ObjectModel& model, const AnyObject& object);
Json ValueJson(const Variant& value);

}  // namespace lwconfig::tool
