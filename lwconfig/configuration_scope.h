#pragma once

#include <memory>
#include <string>

#include <lwconfig/platform/registry.h>
#include <lwconfig/platform/service.h>

namespace lwconfig {

/// Opens the configuration in one folder: during its lifetime this process uses that folder, whatever the
/// registry names. All other registry values are unaffected, including the user's options. Scopes nest. The
/// shared objects are dropped at the start and at the end, so that they are loaded anew on their next use.
class ConfigurationScope {
 public:
  /// `folder` is a path of the host. Error 76 where there is no such folder.
  explicit ConfigurationScope(const std::string& folder);
  ~ConfigurationScope();
  ConfigurationScope(const ConfigurationScope&) = delete;
  ConfigurationScope& operator=(const ConfigurationScope&) = delete;

 private:
  std::unique_ptr<platform::Registry> mRegistry;
  platform::ScopedHost<platform::Registry> mScope;
};

}  // namespace lwconfig
