#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <lwconfig/platform/registry.h>

namespace lwconfig {

/// A registry value as exchanged with callers: nothing, a number or a text.
using RegistryData = std::variant<std::monostate, std::int32_t, std::string>;

/// The registry. Hives are 0x80000001 (current user) and 0x80000002 (local machine); any other is error 5. A
/// registry that cannot be read or written is error 70 or 75; the error of a damaged registry file has its
/// file, line and column.
class RegistryAccess {
 public:
  static constexpr std::int32_t kTextType = 1;
  static constexpr std::int32_t kNumberType = 4;

  /// The value; nothing where the key or value is absent. A value that is neither text nor number is returned
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

  /// The stored value; nothing where the key or value is absent.
  std::optional<RegistryValue> Stored(std::uint32_t hive, std::string_view keyPath,
                                      std::string_view valueName) const;
  /// The content of the key; nothing where there is no such key.
  std::optional<RegistryKey> List(std::uint32_t hive, std::string_view keyPath) const;
  /// Makes the changes, as `platform::Registry::Apply`.
  void Apply(const std::vector<RegistryChange>& changes) const;
  /// The host path of the user's own file where it holds the machine's value; empty elsewhere.
  std::string OwnFile(std::string_view keyPath, std::string_view valueName) const;
};

inline constexpr std::uint32_t kCurrentUser = static_cast<std::uint32_t>(Hive::CurrentUser);
inline constexpr std::uint32_t kLocalMachine = static_cast<std::uint32_t>(Hive::LocalMachine);

}  // namespace lwconfig
