#include <algorithm>
#include <memory>
#include <system_error>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/files.h>
#include <lwconfig/platform/temporary_name.h>

#include "descriptor.h"
#include "paths.h"
#include "replacement.h"

namespace lwconfig::platform {
namespace {

EntryKind KindOf(mode_t mode) {
  return S_ISDIR(mode) ? EntryKind::Folder : EntryKind::File;
}

Descriptor Open(std::string_view path, int flags) {
  std::string hostPath = HostPath(path);
  Descriptor file(OnDisk(hostPath, [&](const char* name) {
    return Uninterrupted([&] { return ::open(name, flags | O_CLOEXEC); });
  }));
  if (!file.IsOpen()) ThrowErrno(hostPath);
  return file;
}

EntryKind KindOf(int folder, const dirent& entry) {
  if (entry.d_type == DT_DIR) return EntryKind::Folder;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return EntryKind::File;
  struct stat status {};
  return ::fstatat(folder, entry.d_name, &status, 0) == 0 ? KindOf(status.st_mode) : EntryKind::Missing;
}

/// Sort as the product's own file system does.
bool InNameOrder(const FolderEntry& a, const FolderEntry& b) {
  const auto order = CompareInCapitals(a.Name, b.Name);
  return order != 0 ? order < 0 : a.Name < b.Name;
}

class NativeFiles final : public Files {
 public:
  EntryKind Kind(std::string_view path) override {
    struct stat status {};
    std::string hostPath;
    try {
      hostPath = HostPath(path);
    } catch (const std::system_error&) {
      return EntryKind::Missing;  // not a possible path of the host
    }
    const auto examine = [&](const char* name) { return ::stat(name, &status); };
    if (OnDisk(hostPath, examine) == 0) return KindOf(status.st_mode);
    if (!NamesNothing(errno) && errno != ENAMETOOLONG && errno != ELOOP) ThrowErrno(hostPath);
    return EntryKind::Missing;
  }

  std::string Read(std::string_view path) override {
    const Descriptor file = Open(path, O_RDONLY | O_NONBLOCK);
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0) ThrowErrno(std::string(path));
    if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) ThrowErrno(std::string(path), ENODEV);
    return ReadAll(file, std::string(path));
  }

  std::vector<FolderEntry> List(std::string_view folder) override {
    Descriptor opened = Open(folder, O_RDONLY | O_DIRECTORY);
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(::fdopendir(opened.Number()), ::closedir);
    if (!stream) ThrowErrno(std::string(folder));
    const int number = opened.Release();
    std::vector<FolderEntry> entries;
    errno = 0;
    while (const dirent* entry = ::readdir(stream.get())) {
      const std::string_view name = entry->d_name;
      // Leave out names with a backslash: the product's notation cannot express them.
      const bool isLeftOut = name == "." || name == ".." || name.find('\\') != std::string_view::npos;
      if (!isLeftOut && !IsTemporaryName(name)) {
        const EntryKind kind = KindOf(number, *entry);
        const bool isHidden = kind == EntryKind::File && name.starts_with('.');
        if (kind != EntryKind::Missing) entries.push_back({std::string(name), kind, isHidden});
      }
      errno = 0;
    }
    if (errno != 0) ThrowErrno(std::string(folder));
    std::ranges::sort(entries, InNameOrder);
    return entries;
  }

  std::unique_ptr<FileReplacement> Replace(std::string_view path) override {
    return BeginReplacement(NativePath(path), WhenBusy::Fail);
  }

  std::unique_ptr<FileReplacement> Supersede(std::string_view path, std::string_view model) override {
    return BeginSuperseding(NativePath(path), NativePath(model));
  }

  void Remove(std::string_view path) override {
    std::string hostPath = HostPath(path);
    if (OnDisk(hostPath, ::unlink) != 0) ThrowErrno(hostPath);
  }

  void MakeFolders(std::string_view folder) override { MakeHostFolders(NativePath(folder)); }

  std::string NativePath(std::string_view path) override { return InLetterCaseOnDisk(HostPath(path)); }

  std::string ProductPath(std::string_view hostPath) override { return ProductNotation(hostPath); }
};

}  // namespace

Files& Files::Native() {
  static NativeFiles files;
  return files;
}

}  // namespace lwconfig::platform
