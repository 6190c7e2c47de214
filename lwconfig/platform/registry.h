#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/registry_text/registry_data.h>
#include <lwconfig/platform/service.h>

namespace lwconfig::platform {

/// The registry. Key paths have backslashes between their parts. Key and value names are matched without
/// regard to letter case; "" names a key's default value. Every read sees the latest write of any process.
/// Failures are `std::system_error` or `RegistryFormatError`. Where the registry is files, the machine's
/// hive is the system's file and the user's own file, which overrides it value by value; the keys of both
/// are listed together.
class Registry {
 public:
  virtual ~Registry() = default;
  static Registry& Native();

  /// The value; nothing where the key or value is absent. The machine's keys are those of a 32-bit program: a
  /// key missing below "Software" is searched below "Software\WOW6432Node".
  virtual std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) = 0;
  /// The content of the key; nothing where there is no such key. "" is the hive itself, which always exists.
  virtual std::optional<RegistryKey> List(Hive hive, std::string_view key) = 0;
  /// Makes the changes, in their order, in one step for each file, the machine's first. Missing keys are
  /// created. A key is deleted with its content; a deletion of an absent key or value does nothing.
  /// Everything else stays as it is, including changes by other processes. The changes are on disk when the
  /// call returns. A value of the machine is written to the file that holds it, a new one to the system's
  /// file; where the user may not write that, to the user's own. A deletion that requires the system's file
  /// fails for such a user.
  virtual void Apply(const std::vector<RegistryChange>& changes) = 0;
  /// The host path of the user's own file where it holds the machine's value; empty elsewhere.
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
