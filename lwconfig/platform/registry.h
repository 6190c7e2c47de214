#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/registry_text/registry_data.h>
#include <lwconfig/platform/service.h>

namespace lwconfig::platform {

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
