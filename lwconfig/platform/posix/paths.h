#pragma once

#include <cerrno>
#include <string>
#include <string_view>

namespace lwconfig::platform {

/// The user's folders, read from the environment at each call; empty where there is no home folder.
std::string HomeFolder();
std::string ConfigHome();
std::string DataHome();

/// The folder part of a host path.
std::string FolderOf(const std::string& hostPath);

/// The host path of a path in the product's notation, in the letter case given and without a trailing slash.
/// A path without drive and leading separator is relative to the current folder. "." and ".." are resolved in
/// the text, as in the product's own file system, and never lead above the drive. Throws `std::system_error`:
/// EINVAL for a path with a NUL, ENOENT for an empty one, and for a drive where the environment names no
/// place for the drives.
std::string HostPath(std::string_view path);

/// The inverse of `HostPath`; a relative host path is relative to the current folder.
std::string ProductNotation(std::string_view hostPath);

/// `hostPath` in the letter case on disk as far as it exists, the rest as given.
std::string InLetterCaseOnDisk(const std::string& hostPath);

/// Creates a folder of the host with its missing parents; an existing one is left alone.
void MakeHostFolders(const std::string& folder);

/// Whether this errno code means that the name does not exist.
inline bool NamesNothing(int code) {
  return code == ENOENT || code == ENOTDIR;
}

/// Makes a system call for `hostPath`. Where this exact name does not exist, repeats it for the name found
/// without regard to letter case, which `hostPath` then holds. Returns the result of the last call.
template <class Call>
int OnDisk(std::string& hostPath, Call call) {
  int result = call(hostPath.c_str());
  if (result >= 0 || !NamesNothing(errno)) return result;
  const int code = errno;
  std::string found = InLetterCaseOnDisk(hostPath);
  if (found == hostPath) {
    errno = code;
    return result;
  }
  hostPath = std::move(found);
  return call(hostPath.c_str());
}

}  // namespace lwconfig::platform
