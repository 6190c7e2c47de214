#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace lwconfig {

enum class Hive : std::uint32_t { CurrentUser = 0x80000001U, LocalMachine = 0x80000002U };

/// A registry value with the type number of the registry-editor format: 1 text, 2 text with environment
/// variables, 3 bytes, 4 a 32-bit number, 7 several texts, and others.
struct RegistryValue {
  std::uint32_t Type = 1;
  /// A string for types 1 and 2, a number for type 4, the stored bytes for every other type.
  std::variant<std::string, std::uint32_t, std::vector<std::uint8_t>> Data;
  friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

/// The content of one key. Both lists are in name order without regard to letter case.
struct RegistryKey {
  /// The names of its subkeys.
  std::vector<std::string> Keys;
  std::vector<std::pair<std::string, RegistryValue>> Values;
  friend bool operator==(const RegistryKey&, const RegistryKey&) = default;
};

/// One step of a change: sets or deletes a key or a value.
struct RegistryChange {
  enum class Kinds { Key, DeletedKey, Value, DeletedValue };
  Kinds Kind = Kinds::Key;
  Hive Root = Hive::CurrentUser;
  std::string Key;
  std::string Name;     // for values
  RegistryValue Value;  // for `Value`
};

/// A malformed registry file. Nothing was changed.
class RegistryFormatError : public std::runtime_error {
 public:
  RegistryFormatError(std::string file, int line, int column, const std::string& message)
      : std::runtime_error(message), File(std::move(file)), Line(line), Column(column) {}
  std::string File;  // host path
  int Line;
  int Column;
};

}  // namespace lwconfig
