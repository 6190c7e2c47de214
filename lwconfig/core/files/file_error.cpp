#include <cerrno>

#include <lwconfig/core/files/file_error.h>
#include <lwconfig/platform/files.h>

namespace lwconfig {
namespace {

/// Whether the folder part of a path names no folder.
bool IsFolderMissing(std::string_view path) {
  const auto separator = path.find_last_of("\\/", path.size() < 2 ? 0 : path.size() - 2);
  if (separator == std::string_view::npos) return false;
  try {
    return platform::Host<platform::Files>().Kind(path.substr(0, separator + 1)) !=
           platform::EntryKind::Folder;
  } catch (const std::system_error&) {
    return false;
  }
}

}  // namespace

Error FileError(const std::system_error& failure, std::string_view path) {
  std::int32_t number = kPathFileAccess;
  switch (failure.code().value()) {
    case ENOENT:
      number = IsFolderMissing(path) ? kPathNotFound : kFileNotFound;
      break;
    case ENOTDIR:
      number = kPathNotFound;
      break;
    case EACCES:
    case EPERM:
    case EROFS:
    case EBUSY:
    case EAGAIN:
      number = kPermissionDenied;
      break;
    case EINVAL:
    case ENAMETOOLONG:
      number = kBadFileName;
      break;
    default:
      break;
  }
  Error error(number, path.empty() ? failure.what() : failure.code().message());
  error.SetPosition({std::string(path), 0, 0});
  return error;
}

}  // namespace lwconfig
