#pragma once

#include <string>
#include <string_view>

#include <lwconfig/automation/class_info.h>

namespace lwconfig::automation {

/// Published members in readable form.

/// The type of the member's result, or of its new value where it is only set; `None` for a method
/// without a result.
TypeInfo TypeOf(const ClassInfo::Member& member);
/// The parameters of the member, without the new value of a property.
std::span<const ParameterInfo> ParametersOf(const ClassInfo::Member& member);

/// `Add(obj As PageLayout, [Key As Text])`, `Phrase(Name As Text) As Text`, `Name As Text`.
std::string SignatureText(const ClassInfo::Member& member);
/// Whether a parameter or property of that name and type names a file or folder.
bool IsFileName(std::string_view name, const TypeInfo& type);
/// "method", or the accessors of a property: "get", "get, let", "get, let, set".
std::string AccessText(const ClassInfo::Member& member);

}  // namespace lwconfig::automation
