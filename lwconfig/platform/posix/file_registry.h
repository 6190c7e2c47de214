#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/platform/registry.h>

#include "hive_file.h"

namespace lwconfig::platform {

/// The registry of a system without one: registry files. The machine's hive is two of them, the user's own
/// and the system's, unless `LWCONFIG_REGISTRY` names the folder of all files. The user's own overrides the
/// system's, value by value.
class FileRegistry final : public Registry {
 public:
  /// `systemFolder` is a host path.
  explicit FileRegistry(const std::string& systemFolder);

  std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) override;
  std::optional<RegistryKey> List(Hive hive, std::string_view key) override;
  void Apply(const std::vector<RegistryChange>& changes) override;
  std::string OwnFile(std::string_view key, std::string_view name) override;

 private:
  /// The files of the hive, the overriding one first.
  std::vector<HiveFile*> FilesOf(Hive hive);
  void ChangeMachine(const std::vector<RegistryChange>& changes);

  HiveFile mUser;
  HiveFile mOwn;  // the machine's values of this user
  HiveFile mSystem;
};

}  // namespace lwconfig::platform
