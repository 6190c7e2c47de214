#pragma once

#include <string>
#include <string_view>

#include <lwconfig/core/registry_text/registry_data.h>

namespace lwconfig {

/// The line that begins a key.
std::string RegistryKeyLine(Hive hive, std::string_view key);
/// A name as written in a registry file.
std::string RegistryNameText(std::string_view name);
/// A value as written in a registry file, of the older version or not.
std::string RegistryValueText(const RegistryValue& value, bool old, std::string_view lineBreak);

}  // namespace lwconfig
