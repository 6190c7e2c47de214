#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/registry_text/registry_data.h>

namespace lwconfig {

/// The registry in the notation of people and of registry-editor files.

/// A key by its hive and its path below it.
struct RegistryPath {
  Hive Root = Hive::CurrentUser;
  std::string Key;
};

/// The key named by a whole path such as "HKEY_CURRENT_USER\Software"; nothing where the path begins with no
/// hive. Accepts the short form of a hive (HKCU, HKLM), and slashes in a path without backslashes.
std::optional<RegistryPath> ParseRegistryPath(std::string_view path);
/// The full name of the hive, such as "HKEY_CURRENT_USER".
std::string_view HiveName(Hive hive);

/// The hive with this name, in full or short form.
std::optional<Hive> HiveNamed(std::string_view name);
/// The path of a key without leading and trailing separators.
std::string_view TrimmedKey(std::string_view key);

/// The changes that a registry-editor file asks for, in its order. `bytes` is the file's content in any
/// encoding of the format; `file` names the source in errors. Throws `RegistryFormatError`, also for a key of
/// any other hive.
std::vector<RegistryChange> ReadRegistryText(std::string bytes, const std::string& file);

enum class RegistryEncoding {
  Utf8,   // with line feeds
  Utf16,  // little-endian with byte-order mark, carriage returns and line feeds, as on Windows
};

/// The text of a registry-editor file, version 5, that asks for the changes.
std::string WriteRegistryText(const std::vector<RegistryChange>& changes, RegistryEncoding encoding);

/// The line of such a file for the value, without its final line break; long data continues on further lines.
std::string RegistryValueLine(std::string_view name, const RegistryValue& value);

/// Converts several texts to a value of type 7 and back. Empty texts cannot be stored and are left out.
std::vector<std::uint8_t> PackTexts(const std::vector<std::string>& texts);
std::vector<std::string> UnpackTexts(const std::vector<std::uint8_t>& bytes);

}  // namespace lwconfig
