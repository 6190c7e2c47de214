#pragma once

#include <memory>
#include <string>

#include <tools/lwconfig/reporter.h>

#include <lwconfig/platform/registry.h>
#include <lwconfig/platform/service.h>
#include <lwconfig/root.h>

namespace lwconfig::tool {

/// The configuration that a command works on: that of a folder, the registered one, or the starter
/// configuration.
class Configuration {
 public:
  /// Opens the configuration in `folder`, a path of the host; where that is empty the registered one, and
  /// where none is registered the starter configuration, with a note. Error 76 for a folder that does not
  /// exist.
  Configuration(const std::string& folder, Reporter& reporter);

  lwconfig::Root& Root() { return mRoot; }

 private:
  void OpenStarter(Reporter& reporter);
  void OpenFolder(const std::string& hostFolder);

  std::unique_ptr<platform::Registry> mRegistry;
  std::unique_ptr<platform::ScopedHost<platform::Registry>> mScope;
  lwconfig::Root mRoot;
};

/// The folder of the starter configuration, a path of the host: the one that `LWCONFIG_STARTER` names, else
/// the one installed beside this program, else the one that it was built with. Empty where there is none.
std::string StarterFolder();

}  // namespace lwconfig::tool
