#include "replacement.h"

#include <array>
#include <climits>
#include <optional>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <lwconfig/platform/temporary_name.h>

#include "descriptor.h"
#include "paths.h"

namespace lwconfig::platform {
namespace {

/// The target of `path` through symbolic links, whether it exists or not.
std::string FinalTarget(std::string path) {
  constexpr int kMostLinks = 40;
  for (int links = 0; links < kMostLinks; ++links) {
    std::array<char, PATH_MAX> buffer;
    const auto length = ::readlink(path.c_str(), buffer.data(), buffer.size());
    if (length < 0) return path;
    const std::string target(buffer.data(), static_cast<std::size_t>(length));
    path = target.starts_with('/') ? target : FolderOf(path) + "/" + target;
  }
  ThrowErrno(path, ELOOP);
}

std::string TemporaryFor(const std::string& target) {
  return FolderOf(target) + "/" + TemporaryName(std::string_view(target).substr(target.rfind('/') + 1));
}

/// Throws where the folder of `target` may not be written: a leftover temporary could be opened there,
/// but not renamed.
void CheckFolderOf(const std::string& target) {
  const std::string folder = FolderOf(target);
  if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) ThrowErrno(folder);
}

/// The status of the file to be replaced; nothing when it is new. Throws where it may not be replaced.
std::optional<struct stat> ExamineTarget(const std::string& target) {
  CheckFolderOf(target);
  struct stat status {};
  if (::stat(target.c_str(), &status) != 0) {
    if (errno != ENOENT) ThrowErrno(target);
    return std::nullopt;
  }
  if (S_ISDIR(status.st_mode)) ThrowErrno(target, EISDIR);
  // Replacing a device or a pipe by a plain file would destroy it.
  if (!S_ISREG(status.st_mode)) ThrowErrno(target, EACCES);
  if (::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) ThrowErrno(target);
  return status;
}

/// Opens, locks and empties the temporary file.
Descriptor TakeTemporary(const std::string& path, WhenBusy whenBusy) {
  for (;;) {
    Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (!file.IsOpen()) ThrowErrno(path);
    const int wait = whenBusy == WhenBusy::Wait ? 0 : LOCK_NB;
    if (Uninterrupted([&] { return ::flock(file.Number(), LOCK_EX | wait); }) != 0) {
      ThrowErrno(path, errno == EWOULDBLOCK ? EBUSY : errno);
    }
    struct stat locked {};
    struct stat named {};
    if (::fstat(file.Number(), &locked) != 0) ThrowErrno(path);
    // Retry: the previous lock holder has put its file in place or removed it.
    if (::lstat(path.c_str(), &named) != 0 || named.st_ino != locked.st_ino ||
        named.st_dev != locked.st_dev) {
      continue;
    }
    // Refuse a foreign file under this name: its content must not be lost.
    if (!S_ISREG(locked.st_mode) || locked.st_nlink != 1) ThrowErrno(path, EEXIST);
    if (::ftruncate(file.Number(), 0) != 0) ThrowErrno(path);
    return file;
  }
}

class Replacement final : public FileReplacement {
 public:
  Replacement(std::string target, WhenBusy whenBusy)
      : mTarget(std::move(target)),
        mTemporary(TemporaryFor(mTarget)),
        mFile(TakeTemporary(mTemporary, whenBusy)) {}

  ~Replacement() override {
    // The name refers to our own file while the lock is held.
    if (mFile.IsOpen()) ::unlink(mTemporary.c_str());
  }

  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// Copies owner and permissions of another file, as far as this process may. Do this before writing any
  /// content, so that the temporary is never more readable than the file itself.
  void TakePermissionsOf(const struct stat& other) {
    if (::fchown(mFile.Number(), other.st_uid, other.st_gid) != 0) {
      [[maybe_unused]] const int ignored = ::fchown(mFile.Number(), static_cast<uid_t>(-1), other.st_gid);
    }
    ::fchmod(mFile.Number(), other.st_mode & 07777);
  }

  void Write(std::string_view bytes) override {
    // Refuse to commit after a failed write: the content would have a gap.
    if (!mWhole) ThrowErrno(mTarget, EIO);
    mWhole = false;
    WriteAll(mFile, bytes, mTarget);
    mWhole = true;
  }

  void Commit() override {
    if (!mWhole) ThrowErrno(mTarget, EIO);
    if (::fsync(mFile.Number()) != 0) ThrowErrno(mTarget);
    if (::rename(mTemporary.c_str(), mTarget.c_str()) != 0) ThrowErrno(mTarget);
    mFile.Close();
    // Ignore a folder that cannot be synced: the new file is in place, so the old one must not be
    // reported as unchanged.
    const Descriptor folder(::open(FolderOf(mTarget).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.IsOpen()) ::fsync(folder.Number());
  }

 private:
  std::string mTarget;
  std::string mTemporary;
  Descriptor mFile;
  bool mWhole = true;
};

}  // namespace

std::unique_ptr<FileReplacement> BeginReplacement(const std::string& hostPath, WhenBusy whenBusy) {
  const std::string target = FinalTarget(hostPath);
  ExamineTarget(target);
  auto replacement = std::make_unique<Replacement>(target, whenBusy);
  // Read it again: the previous lock holder may have changed it.
  if (const auto old = ExamineTarget(target)) replacement->TakePermissionsOf(*old);
  return replacement;
}

std::unique_ptr<FileReplacement> BeginSuperseding(const std::string& hostPath, const std::string& model) {
  CheckFolderOf(hostPath);
  struct stat status {};
  if (::lstat(hostPath.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) ThrowErrno(hostPath, EISDIR);
  auto replacement = std::make_unique<Replacement>(hostPath, WhenBusy::Fail);
  if (::stat(model.c_str(), &status) == 0) replacement->TakePermissionsOf(status);
  return replacement;
}

}  // namespace lwconfig::platform
