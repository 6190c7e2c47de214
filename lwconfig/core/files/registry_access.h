#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <lwconfig/platform/registry.h>

namespace lwconfig {

/// A registry value as callers exchange it: nothing, a number or a text.
using RegistryData = std::variant<std::monostate, std::int32_t, std::string>;

/// The registry. Hives are 0x80000001 (current user) and 0x80000002 (local machine); any other is error 5.
/// A registry that cannot be read or written is error 70 or 75, with file, line and column where one is
/// damaged.
class RegistryAccess {
 public:
  static constexpr std::int32_t kTextType = 1;
  static constexpr std::int32_t kNumberType = 4;

  /// The value; nothing where key or value are absent. A value that is neither a text nor a number is given
  /// as the hexadecimal digits of its bytes.
  RegistryData GetValue(std::uint32_t hive, std::string_view keyPath, std::string_view valueName) const;
  /// As above for a text value, "" where it is absent; a number as decimal text.
  std::string GetText(std::uint32_t hive, std::string_view keyPath, std::string_view valueName) const;
  /// Creates the key and any missing parents; an existing key is left alone.
  void CreateKey(std::uint32_t hive, std::string_view keyPath) const;
  /// Writes a text (type 1, or 2 with environment variables) or a number (type 4), creating the key and any
  /// missing parents. Error 5 for other types, 13 for data that the type cannot hold.
  void SetValue(std::uint32_t hive, std::string_view keyPath, std::string_view valueName,
                const RegistryData& value, std::int32_t valueType) const;

  /// A value as it is stored, or nothing where key or value are absent.
  std::optional<RegistryValue> Stored(std::uint32_t hive, std::string_view keyPath,
                                      std::string_view valueName) const;
  /// What the key holds, or nothing where there is no such key.
  std::optional<RegistryKey> List(std::uint32_t hive, std::string_view keyPath) const;
  /// Makes the changes, as `platform::Registry::Apply` does.
  void Apply(const std::vector<RegistryChange>& changes) const;
  /// The host path of the user's own file where that holds the machine's value; empty where it does not.
  std::string OwnFile(std::string_view keyPath, std::string_view valueName) const;
};

inline constexpr std::uint32_t kCurrentUser = static_cast<std::uint32_t>(Hive::CurrentUser);
inline constexpr std::uint32_t kLocalMachine = static_cast<std::uint32_t>(Hive::LocalMachine);

}  // namespace lwconfig
