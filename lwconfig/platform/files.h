#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/platform/service.h>

namespace lwconfig::platform {

enum class EntryKind { Missing, File, Folder };

/// Whether names that differ in letter case only are two entries of a folder.
#ifdef _WIN32
inline constexpr bool kNamesAreExact = false;
#else
inline constexpr bool kNamesAreExact = true;
#endif

/// One entry of a folder: its name without path, in the letter case it has on disk.
struct FolderEntry {
  std::string Name;
  EntryKind Kind;
  bool IsHidden = false;  // as marked by the file system, else a file whose name begins with a dot
};

/// New content for one file, collected beside it until `Commit` puts it in place.
/// Destroyed without a commit, it leaves the old file as it was.
class FileReplacement {
 public:
  virtual ~FileReplacement() = default;
  /// Appends bytes. Throws `std::system_error`.
  virtual void Write(std::string_view bytes) = 0;
  /// Makes the content durable and puts it in place in one step. Throws `std::system_error`; the old file
  /// is then unchanged.
  virtual void Commit() = 0;
};

/// The file system. All paths are UTF-8 in the product's notation: backslashes (slashes are accepted too),
/// `C:\x` for a drive, `\x` for the system's own absolute path, `x` for a path in the current folder. Names
/// are found in the letter case given, else without regard to letter case. Files may be read on a second
/// thread while another calls anything else. Failures are `std::system_error` with an errno code (generic
/// category) unless stated otherwise.
class Files {
 public:
  virtual ~Files() = default;
  static Files& Native();

  /// The kind of the entry at `path`, symbolic links followed. Throws where it cannot be determined, such as
  /// in a folder that may not be searched.
  virtual EntryKind Kind(std::string_view path) = 0;
  /// The bytes of the file at `path`. Only plain files can be read: a pipe would block, a device
  /// may never end.
  virtual std::string Read(std::string_view path) = 0;
  /// The entries of a folder, including hidden ones, without ".", ".." and the files of replacements under
  /// way. On Windows they are in the order of the file system, elsewhere by their names in capital letters,
  /// which is mostly the same (names equal but for case: in byte order). An entry that is neither a folder
  /// nor a link to one is a `File`; broken links are left out.
  virtual std::vector<FolderEntry> List(std::string_view folder) = 0;
  /// Begins to rewrite (or create) the file at `path`, or the target of a link there; the file keeps its
  /// permissions. Fails where the file or its folder may not be written, or while another replacement of the
  /// same file is under way, in this process or another.
  virtual std::unique_ptr<FileReplacement> Replace(std::string_view path) = 0;
  /// Begins a new file that replaces any entry of this name, be it a link or a file that may not be written.
  /// It gets the permissions of the file at `model`, as far as this process may set them. Fails for a folder
  /// of that name, and where the parent folder may not be written.
  virtual std::unique_ptr<FileReplacement> Supersede(std::string_view path, std::string_view model) = 0;
  /// Deletes the file at `path`.
  virtual void Remove(std::string_view path) = 0;
  /// Creates the folder and its missing parents; an existing folder is left alone.
  virtual void MakeFolders(std::string_view folder) = 0;
  /// The host's own path for `path`: that of the existing entry, else the one that would be created.
  virtual std::string NativePath(std::string_view path) = 0;
  /// The product's notation for a host path: the inverse of `NativePath`. Relative paths are relative to
  /// the current folder.
  virtual std::string ProductPath(std::string_view hostPath) = 0;
};

}  // namespace lwconfig::platform
