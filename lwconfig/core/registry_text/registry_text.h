#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/registry_text/registry_data.h>

namespace lwconfig {

/// The registry as people and the files of registry editors write it.

/// A key by its hive and its path below it.
struct RegistryPath {
  Hive Root = Hive::CurrentUser;
  std::string Key;
};

/// The key that a whole path such as "HKEY_CURRENT_USER\Software" names; nothing where it begins with no
/// hive. A hive's short form does as well (HKCU, HKLM), and so do slashes in a path without backslashes.
std::optional<RegistryPath> ParseRegistryPath(std::string_view path);
/// The hive's own name, such as "HKEY_CURRENT_USER".
std::string_view HiveName(Hive hive);

/// The hive with this name, in its long or its short form.
std::optional<Hive> HiveNamed(std::string_view name);
/// The path of a key without separators at its ends.
std::string_view TrimmedKey(std::string_view key);

/// The changes that a registry-editor file asks for, in its order. `bytes` are its content in any encoding
/// that such files have; `file` is for error reports. Throws `RegistryFormatError`, also for a key of any
/// other hive.
std::vector<RegistryChange> ReadRegistryText(std::string bytes, const std::string& file);

enum class RegistryEncoding {
  Utf8,   // with line feeds
  Utf16,  // little-endian with byte-order mark, carriage returns and line feeds, as Windows has it
};

/// A registry-editor file, of version 5, that asks for the changes.
std::string WriteRegistryText(const std::vector<RegistryChange>& changes, RegistryEncoding encoding);

/// The line of such a file that has the value, without line break at its end; long data goes on in more
/// lines.
std::string RegistryValueLine(std::string_view name, const RegistryValue& value);

/// Several texts as a value of type 7 holds them, and back; an empty text cannot be held and is left out.
std::vector<std::uint8_t> PackTexts(const std::vector<std::string>& texts);
std::vector<std::string> UnpackTexts(const std::vector<std::uint8_t>& bytes);

}  // namespace lwconfig
