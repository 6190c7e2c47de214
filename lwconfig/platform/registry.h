#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include <lwconfig/platform/service.h>

namespace lwconfig::platform {

enum class Hive : std::uint32_t { CurrentUser = 0x80000001U, LocalMachine = 0x80000002U };

/// A value of the registry with its type number as the registry-editor format knows it: 1 text, 2 text with
/// environment variables, 3 bytes, 4 a 32-bit number, 7 several texts, and others.
struct RegistryValue {
  std::uint32_t Type = 1;
  /// A string for the types 1 and 2, a number for type 4, the bytes as stored for every other type.
  std::variant<std::string, std::uint32_t, std::vector<std::uint8_t>> Data;
  friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

/// What one key holds, each in name order without regard to letter case.
struct RegistryKey {
  /// The names of the keys in it.
  std::vector<std::string> Keys;
  std::vector<std::pair<std::string, RegistryValue>> Values;
  friend bool operator==(const RegistryKey&, const RegistryKey&) = default;
};

/// One step of a change: that a key or a value shall be there, or not.
struct RegistryChange {
  enum class Kinds { Key, DeletedKey, Value, DeletedValue };
  Kinds Kind = Kinds::Key;
  Hive Root = Hive::CurrentUser;
  std::string Key;
  std::string Name;     // for values
  RegistryValue Value;  // for `Value`
};

/// A registry file that cannot be understood. Nothing was changed.
class RegistryFormatError : public std::runtime_error {
 public:
  RegistryFormatError(std::string file, int line, int column, const std::string& message)
      : std::runtime_error(message), File(std::move(file)), Line(line), Column(column) {}
  std::string File;  // host path
  int Line;
  int Column;
};

/// The registry. Key paths have backslashes between their parts; key and value names are matched without
/// regard to letter case, "" names a key's default value. Every read sees what any process wrote last.
/// Failures are `std::system_error` or `RegistryFormatError`.
/// Where the registry is files, the machine's hive is the system's file and one of the user's own, which
/// outweighs it value by value; the keys of both are listed together.
class Registry {
 public:
  virtual ~Registry() = default;
  static Registry& Native();

  /// The value, or nothing where key or value are absent. The machine's keys are those that a 32-bit program
  /// sees: what "Software" lacks is looked for below "Software\WOW6432Node".
  virtual std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) = 0;
  /// What the key holds, or nothing where there is no such key; "" is the hive itself, which is always there.
  virtual std::optional<RegistryKey> List(Hive hive, std::string_view key) = 0;
  /// Makes the changes, in their order, in one step for each file, the machine's first. Keys that are missing
  /// are created, a key is deleted with everything in it, what is not there need not be deleted. All else,
  /// whoever wrote it, stays as it is. The changes are on disk when the call returns.
  /// A value of the machine is written where it is held, a new one to the system's file; where the user may
  /// not write that, to the user's own. A deletion that the system's file would need fails for such a user.
  virtual void Apply(const std::vector<RegistryChange>& changes) = 0;
  /// The host path of the user's own file where that holds the machine's value; empty where it does not.
  virtual std::string OwnFile(std::string_view /*key*/, std::string_view /*name*/) { return {}; }

  /// Creates the key and its missing parents; an existing key is left alone.
  void CreateKey(Hive hive, std::string_view key) {
    Apply({{RegistryChange::Kinds::Key, hive, std::string(key), {}, {}}});
  }
  /// Writes one value, creating its key when missing.
  void Write(Hive hive, std::string_view key, std::string_view name, const RegistryValue& value) {
    Apply({{RegistryChange::Kinds::Value, hive, std::string(key), std::string(name), value}});
  }
};

}  // namespace lwconfig::platform
