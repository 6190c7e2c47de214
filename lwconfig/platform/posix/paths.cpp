#include "paths.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include <dirent.h>
#include <sys/stat.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/path_parts.h>

#include "descriptor.h"

namespace lwconfig::platform {
namespace {

/// The folder that an environment variable names, without trailing slashes; empty when unset or relative.
std::string FolderFromEnvironment(const char* variable) {
  const char* value = std::getenv(variable);
  std::string folder = value != nullptr && *value == '/' ? value : "";
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

std::string FolderOrBelowHome(const char* variable, const char* belowHome) {
  std::string folder = FolderFromEnvironment(variable);
  if (!folder.empty()) return folder;
  folder = HomeFolder();
  return folder.empty() ? folder : folder + belowHome;
}

std::string Absolute(std::string_view hostPath) {
  if (hostPath.starts_with('/')) return std::string(hostPath);
  return std::filesystem::current_path().string() + "/" + std::string(hostPath);
}

/// The folder of the drives; empty when the environment names no place for them.
std::string DrivesFolder() {
  if (const char* drives = std::getenv("LWCONFIG_DRIVES"); drives != nullptr && *drives != '\0') {
    return Absolute(drives);
  }
  const std::string data = DataHome();
  return data.empty() ? data : data + "/lwconfig/drives";
}

/// `hostPath` without "." and "..".
std::string Resolved(std::string_view hostPath) {
  std::string resolved;
  AppendParts(resolved, 0, hostPath, "/", '/');
  return resolved;
}

bool IsLetter(char c) {
  return AsciiLower(c) >= 'a' && AsciiLower(c) <= 'z';
}

/// The entry of `folder` that `name` denotes: the exact name, else the first in byte order that differs only
/// in letter case, else `name` itself.
std::string NameOnDisk(const std::string& folder, std::string_view name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), ::closedir);
  std::string found;
  while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
    const std::string_view candidate = entry->d_name;
    if (candidate == name) return std::string(name);
    if ((found.empty() || candidate < found) && EqualIgnoringCase(candidate, name)) found = candidate;
  }
  return found.empty() ? std::string(name) : found;
}

}  // namespace

std::string HomeFolder() {
  return FolderFromEnvironment("HOME");
}
std::string ConfigHome() {
  return FolderOrBelowHome("XDG_CONFIG_HOME", "/.config");
}
std::string DataHome() {
  return FolderOrBelowHome("XDG_DATA_HOME", "/.local/share");
}

std::string FolderOf(const std::string& hostPath) {
  const std::size_t slash = hostPath.rfind('/');
  if (slash == std::string::npos) return ".";
  return hostPath.substr(0, std::max<std::size_t>(slash, 1));
}

std::string HostPath(std::string_view path) {
  if (path.empty()) ThrowErrno({}, ENOENT);
  if (path.find('\0') != std::string_view::npos) ThrowErrno(std::string(path), EINVAL);
  std::string root;
  std::size_t least = 0;
  if (path.size() >= 2 && path[1] == ':' && IsLetter(path[0])) {
    root = DrivesFolder();
    if (root.empty()) ThrowErrno(std::string(path) + " (no LWCONFIG_DRIVES, XDG_DATA_HOME or HOME)", ENOENT);
    if (root.back() != '/') root += '/';
    root += AsciiLower(path[0]);
    least = root.size();
    path.remove_prefix(2);
  } else if (path[0] != '\\' && path[0] != '/') {
    root = Resolved(std::filesystem::current_path().string());
  }
  AppendParts(root, least, path, "\\/", '/');
  return root.empty() ? "/" : root;
}

std::string ProductNotation(std::string_view hostPath) {
  std::string path = Resolved(Absolute(hostPath));
  const std::string drives = Resolved(DrivesFolder());
  const std::size_t letter = drives.size() + 1;
  if (!drives.empty() && path.size() > letter && path.starts_with(drives) && path[drives.size()] == '/' &&
      IsLetter(path[letter]) && (path.size() == letter + 1 || path[letter + 1] == '/')) {
    path.erase(0, letter);
    path[0] = static_cast<char>(path[0] & ~0x20);
    path.insert(1, 1, ':');
    if (path.size() == 2) path += '/';
  }
  if (path.empty()) path = '/';
  std::ranges::replace(path, '/', '\\');
  return path;
}

std::string InLetterCaseOnDisk(const std::string& hostPath) {
  struct stat status {};
  if (::lstat(hostPath.c_str(), &status) == 0 || !NamesNothing(errno)) return hostPath;
  const std::size_t slash = hostPath.rfind('/');
  if (slash == std::string::npos || slash + 1 == hostPath.size()) return hostPath;
  // Try the whole parent folder before its parts: most failing look-ups fail in the last part.
  const std::string folder = slash == 0 ? "" : InLetterCaseOnDisk(hostPath.substr(0, slash));
  return folder + "/" +
         NameOnDisk(folder.empty() ? "/" : folder, std::string_view(hostPath).substr(slash + 1));
}

void MakeHostFolders(const std::string& folder) {
  if (::mkdir(folder.c_str(), 0777) == 0) return;
  if (errno == ENOENT && FolderOf(folder) != folder) {
    MakeHostFolders(FolderOf(folder));
    if (::mkdir(folder.c_str(), 0777) == 0) return;
  }
  const int code = errno;
  struct stat status {};
  if (::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) ThrowErrno(folder, code);
}

}  // namespace lwconfig::platform
