#pragma once

#include <optional>
#include <string>

#include <tools/lwconfig/reporter.h>

#include <lwconfig/configuration_scope.h>
#include <lwconfig/root.h>

namespace lwconfig::tool {

/// What to do while no configuration is registered: a command that writes must not write to the starter.
enum class Unregistered { UseStarter, Refuse };

/// The configuration that a command works on: that of a folder, the registered one, or the starter
/// configuration.
class Configuration {
 public:
  /// Opens the configuration in `folder`, a path of the host; where that is empty the registered one, and
  /// where none is registered the starter configuration, with a note, unless that is refused. Error 76 for a
  /// folder that does not exist, and where there is nothing to open.
  Configuration(const std::string& folder, Reporter& reporter,
                Unregistered unregistered = Unregistered::UseStarter);

  lwconfig::Root& Root() { return mRoot; }
  /// Error 76 where the configuration folder does not exist: one that is registered may be gone.
  void RequireFolder() const;
  /// Error 76 where the starter configuration is open because none is registered.
  void RefuseStarter() const;

 private:
  bool mIsStarter = false;
  std::optional<ConfigurationScope> mScope;
  lwconfig::Root mRoot;
};

/// The folder of the configuration that a command works on, a path of the host: `folder` itself; where that
/// is empty nothing for the registered configuration, and where none is registered that of the starter
/// configuration, with a note. Error 76 where there is nothing to open.
std::string ChosenFolder(const std::string& folder, Reporter& reporter);

/// The folder of the starter configuration, a path of the host: the one that `LWCONFIG_STARTER` names, else
/// the one installed beside this program, else the one that it was built with. Empty where there is none.
std::string StarterFolder();

}  // namespace lwconfig::tool
