#pragma once

#include <string_view>

#include <lwconfig/automation/class_info.h>

namespace lwconfig::automation {

/// Facts of published members that their types do not tell.

/// The property that gives the items of this class their key; null where items have none.
const char* KeyProperty(const ClassInfo& itemClass);

/// Whether a parameter or property of that name and type names a file or folder.
bool IsFileName(std::string_view name, const TypeInfo& type);

}  // namespace lwconfig::automation
