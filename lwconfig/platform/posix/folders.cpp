#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

#include <fcntl.h>

#include <lwconfig/platform/folders.h>

#include "descriptor.h"
#include "paths.h"

namespace lwconfig::platform {
namespace {

constexpr std::string_view kWindowsFolder = "C:\\Windows";

/// A folder that the user can choose in the desktop settings.
struct UserFolder {
  std::int32_t Id;
  std::string_view Setting;  // the name in user-dirs.dirs
  std::string_view BelowHome;
};

constexpr std::array kUserFolders{
    UserFolder{0x00, "XDG_DESKTOP_DIR", "Desktop"},   UserFolder{0x05, "XDG_DOCUMENTS_DIR", "Documents"},
    UserFolder{0x0d, "XDG_MUSIC_DIR", "Music"},       UserFolder{0x0e, "XDG_VIDEOS_DIR", "Videos"},
    UserFolder{0x10, "XDG_DESKTOP_DIR", "Desktop"},   UserFolder{0x15, "XDG_TEMPLATES_DIR", "Templates"},
    UserFolder{0x27, "XDG_PICTURES_DIR", "Pictures"}, UserFolder{0x2e, "XDG_PUBLICSHARE_DIR", "Public"},
};

/// A folder whose place derives from the others.
struct FixedFolder {
  std::int32_t Id;
  std::string (*Base)();
  std::string_view Below;
};

constexpr std::array kFixedFolders{
    FixedFolder{0x14, DataHome, "/fonts"},
    FixedFolder{0x1a, ConfigHome, ""},
    FixedFolder{0x1c, DataHome, ""},
    FixedFolder{0x23, [] { return std::string("/usr/share"); }, ""},
    FixedFolder{0x24, [] { return HostPath(kWindowsFolder); }, ""},
    FixedFolder{0x28, HomeFolder, ""},
};

/// The text of `user-dirs.dirs`; empty when the user has none.
std::string UserSettings() {
  const std::string path = ConfigHome() + "/user-dirs.dirs";
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  return file.IsOpen() ? ReadAll(file, path) : std::string();
}

/// The value of the last line `setting="value"`, where the value is absolute or begins with `$HOME/`; empty
/// when there is none.
std::string ChosenFolder(std::string_view settings, std::string_view setting, const std::string& home) {
  std::string chosen;
  while (!settings.empty()) {
    const std::size_t end = std::min(settings.find('\n'), settings.size());
    std::string_view line = settings.substr(0, end);
    settings.remove_prefix(std::min(end + 1, settings.size()));
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(setting)) continue;
    line.remove_prefix(setting.size());
    if (!line.starts_with("=\"")) continue;
    line.remove_prefix(2);
    std::string folder;
    if (constexpr std::string_view kHome = "$HOME"; line.starts_with("$HOME/")) {
      line.remove_prefix(kHome.size());
      folder = home;
    }
    if (!line.starts_with('/')) continue;
    for (; !line.empty() && line.front() != '"'; line.remove_prefix(1)) {
      if (line.front() == '\\' && line.size() > 1) line.remove_prefix(1);
      folder += line.front();
    }
    if (!line.empty()) chosen = std::move(folder);
  }
  return chosen;
}

/// The host path of a shell folder, empty when there is none.
std::string FindShellFolder(std::int32_t id) {
  for (const FixedFolder& folder : kFixedFolders) {
    if (folder.Id != id) continue;
    std::string path = folder.Base();
    if (!path.empty()) path += folder.Below;
    return path;
  }
  const std::string home = HomeFolder();
  if (home.empty()) return {};
  for (const UserFolder& folder : kUserFolders) {
    if (folder.Id != id) continue;
    const std::string chosen = ChosenFolder(UserSettings(), folder.Setting, home);
    return chosen.empty() ? home + "/" + std::string(folder.BelowHome) : chosen;
  }
  return {};
}

class NativeFolders final : public Folders {
 public:
  std::string ShellFolder(std::int32_t csidl) override {
    // Mask the flags: callers combine the identifier with flags such as "create".
    constexpr std::int32_t kFlags = 0xff00;
    try {
      const std::string folder = FindShellFolder(csidl & ~kFlags);
      if (folder.empty()) return {};
      MakeHostFolders(folder);
      return ProductNotation(folder);
    } catch (const std::system_error&) {
      return {};
    }
  }

  std::string WindowsFolder() override { return std::string(kWindowsFolder); }
};

}  // namespace

Folders& Folders::Native() {
  static NativeFolders folders;
  return folders;
}

}  // namespace lwconfig::platform
