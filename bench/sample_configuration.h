#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/platform/registry.h>
#include <lwconfig/platform/service.h>

#include "sample_files.h"

namespace lwconfig::bench {

/// A registry of one value: the configuration folder.
class ConfigPathRegistry : public platform::Registry {
 public:
  explicit ConfigPathRegistry(std::string configPath) : mConfigPath(std::move(configPath)) {}
  std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) override;
  std::optional<RegistryKey> List(Hive hive, std::string_view key) override;
  void Apply(const std::vector<RegistryChange>& changes) override;

 private:
  std::string mConfigPath;
};

/// A configuration made up for measuring: templates of 60 layouts with their files, 5 contents definitions of
/// 60 nodes and 20 variables each, and one namespace profile. Its folder is removed with it.
class SampleConfiguration {
 public:
  explicit SampleConfiguration(int templates);

  /// The host paths of the `config.xml` files, in the order in which they are loaded.
  const std::vector<std::filesystem::path>& ConfigFiles() const { return mConfigFiles; }
  /// The folder in the product's notation.
  std::string ConfigPath() const { return mFolder.Product(""); }

 private:
  TemporaryFolder mFolder;
  std::vector<std::filesystem::path> mConfigFiles;
};

/// Registers the sample as the configuration as long as this object lives.
class ConfigPathScope {
 public:
  explicit ConfigPathScope(const SampleConfiguration& sample)
      : mRegistry(sample.ConfigPath()), mScope(mRegistry) {}

 private:
  ConfigPathRegistry mRegistry;
  platform::ScopedHost<platform::Registry> mScope;
};

}  // namespace lwconfig::bench
