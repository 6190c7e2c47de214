#include <cstdlib>
#include <filesystem>
#include <optional>
#include <utility>

#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/members/fault.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/platform/files.h>

namespace lwconfig::tool {
namespace {

/// The host's registry with another configuration folder in it.
class FolderRegistry final : public platform::Registry {
 public:
  FolderRegistry(platform::Registry& host, std::string folder) : mHost(host), mFolder(std::move(folder)) {}

  std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) override {
    const bool isFolder = hive == Hive::LocalMachine && EqualIgnoringCase(name, kFolderValue) &&
                          EqualIgnoringCase(key, kProductKey);
    return isFolder ? RegistryValue{1, mFolder} : mHost.Read(hive, key, name);
  }
  std::optional<RegistryKey> List(Hive hive, std::string_view key) override { return mHost.List(hive, key); }
  void Apply(const std::vector<RegistryChange>& changes) override { mHost.Apply(changes); }

 private:
  platform::Registry& mHost;
  const std::string mFolder;
};

bool IsFolder(const std::filesystem::path& path) {
  std::error_code none;
  return std::filesystem::is_directory(path, none);
}

/// Error 76 with this description where the folder, in the product's notation, does not exist.
void CheckFolder(const std::string& folder, const char* problem) {
  if (platform::Host<platform::Files>().Kind(folder) == platform::EntryKind::Folder) return;
  Error error(kPathNotFound, problem);
  error.SetPosition({folder, 0, 0});
  throw error;
}

std::filesystem::path FolderOfProgram() {
  std::error_code none;
  return std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
}

}  // namespace

Configuration::Configuration(const std::string& folder, Reporter& reporter, Unregistered unregistered) {
  if (!folder.empty()) {
    OpenFolder(folder);
  } else if (ConfigPath().empty()) {
    mIsStarter = true;
    if (unregistered == Unregistered::Refuse) RefuseStarter();
    OpenStarter(reporter);
  }
}

void Configuration::RefuseStarter() const {
  if (!mIsStarter) return;
  throw Fault(ExitStatus::Usage,
              "no configuration is registered; name a configuration folder with --config, or begin one "
              "with 'lwconfig init'");
}

void Configuration::OpenStarter(Reporter& reporter) {
  const std::string starter = StarterFolder();
  if (starter.empty()) {
    throw Error(kPathNotFound,
                "no configuration is registered, and there is no starter configuration to show; name a "
                "configuration folder with --config");
  }
  reporter.Note("no configuration is registered; this is the starter configuration in " + starter);
  OpenFolder(starter);
}

void Configuration::OpenFolder(const std::string& hostFolder) {
  const std::string folder = platform::Host<platform::Files>().ProductPath(hostFolder);
  CheckFolder(folder, "there is no such folder");
  mRegistry = std::make_unique<FolderRegistry>(platform::Host<platform::Registry>(), folder);
  mScope = std::make_unique<platform::ScopedHost<platform::Registry>>(*mRegistry);
}

void Configuration::RequireFolder() const {
  CheckFolder(ConfigPath(), "the registered configuration folder does not exist");
}

std::string StarterFolder() {
  if (const char* named = std::getenv("LWCONFIG_STARTER"); named != nullptr && *named != '\0') return named;
  for (const std::filesystem::path& folder :
       {FolderOfProgram() / ".." / "share" / "lwconfig" / "starter",
        std::filesystem::path(LWCONFIG_SOURCE_STARTER), std::filesystem::path(LWCONFIG_INSTALLED_STARTER)}) {
    if (IsFolder(folder)) return folder.lexically_normal().string();
  }
  return {};
}

}  // namespace lwconfig::tool
