#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/registry_text/registry_data.h>

namespace lwconfig {

/// The name of a value's type, such as "sz"; the number of a type without a name.
std::string RegistryTypeName(std::uint32_t type);
/// The number of the type with this name, letter case ignored, "reg_" before it allowed.
std::optional<std::uint32_t> RegistryTypeOf(std::string_view name);
/// The names of the types that `RegistryValueOf` makes.
std::vector<std::string> RegistryTypeNames();

/// Whether the type is "multi".
bool IsTextList(std::uint32_t type);
/// The value of that type with the texts for its data; nothing where they are no such data. A "multi" takes
/// any number of texts that are not empty, every other type one: a number is decimal or begins with 0x,
/// "binary" is pairs of hexadecimal digits.
std::optional<RegistryValue> RegistryValueOf(std::uint32_t type, const std::vector<std::string>& texts);

/// The data in the form that `RegistryValueOf` takes; the texts of a "multi" in one line each.
std::string RegistryDataText(const RegistryValue& value);
/// The number of a "dword" or a "qword"; nothing for other data.
std::optional<std::uint64_t> RegistryNumber(const RegistryValue& value);

}  // namespace lwconfig
