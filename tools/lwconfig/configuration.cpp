#include <cstdlib>
#include <filesystem>
#include <optional>
#include <utility>

#include <tools/lwconfig/configuration.h>

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/paths/path_error.h>
#include <lwconfig/platform/files.h>

namespace lwconfig::tool {
namespace {

bool IsFolder(const std::filesystem::path& path) {
  std::error_code none;
  return std::filesystem::is_directory(path, none);
}

std::filesystem::path FolderOfProgram() {
  std::error_code none;
  return std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
}

}  // namespace

Configuration::Configuration(const std::string& folder, Reporter& reporter, Unregistered unregistered) {
  mIsStarter = folder.empty() && ConfigPath().empty();
  if (unregistered == Unregistered::Refuse) RefuseStarter();
  const std::string chosen = ChosenFolder(folder, reporter);
  if (!chosen.empty()) mScope.emplace(chosen);
}

void Configuration::RefuseStarter() const {
  if (!mIsStarter) return;
  throw PathError(PathErrorKind::Usage,
                  "no configuration is registered; name a configuration folder with --config, or begin one "
                  "with 'lwconfig init'");
}

void Configuration::RequireFolder() const {
  const std::string folder = ConfigPath();
  if (platform::Host<platform::Files>().Kind(folder) == platform::EntryKind::Folder) return;
  Error error(kPathNotFound, "the registered configuration folder does not exist");
  error.SetPosition({folder, 0, 0});
  throw error;
}

std::string ChosenFolder(const std::string& folder, Reporter& reporter) {
  if (!folder.empty() || !ConfigPath().empty()) return folder;
  std::string starter = StarterFolder();
  if (starter.empty()) {
    throw Error(kPathNotFound,
                "no configuration is registered, and there is no starter configuration to show; name a "
                "configuration folder with --config");
  }
  reporter.Note("no configuration is registered; this is the starter configuration in " + starter);
  return starter;
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
