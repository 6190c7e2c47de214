#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/platform/files.h>

namespace lwconfig {

/// One path on disk, held as folder, base name and extension, and the file there while it is open. Paths are
/// in the product's notation: backslashes, slashes accepted, repeated separators taken as one, "." and ".."
/// resolved. One without drive and leading separator is taken from the current folder.
class DiskFile : public Counted<DiskFile> {
 public:
  static constexpr const char* kClassName = "DiskFile";
  enum Mode : std::int32_t { kOpenExisting = 3, kCreateOrTruncate = 4 };
  enum Access : std::int32_t { kRead = 1, kWrite = 2 };

  DiskFile() = default;
  DiskFile(std::string_view folder, std::string_view baseName, std::string_view extension);
  explicit DiskFile(std::string_view fullPath) { SetFullPath(fullPath); }

  /// The folder part of the path, with or without a backslash at its end.
  void SetFolder(std::string_view folder);
  /// The folder part, ending with a backslash; empty when there is none.
  const std::string& FolderPath() const { return mFolder; }
  /// The file name without its extension.
  const std::string& BaseName() const { return mBaseName; }
  void SetBaseName(std::string_view baseName);
  /// The extension without a dot in front.
  const std::string& Extension() const { return mExtension; }
  /// With or without a dot in front.
  void SetExtension(std::string_view extension);
  /// Base name and extension, without folder.
  std::string FileName() const;
  /// Folder, base name and extension, as one path.
  std::string FullPath() const { return mFolder + FileName(); }
  /// Splits the path; the extension is what follows the last dot of the file name.
  void SetFullPath(std::string_view path);

  /// Whether a file, not a folder, exists at the full path.
  bool Exists() const { return Kind() == platform::EntryKind::File; }
  /// Whether the full path names an existing folder.
  bool IsFolder() const { return Kind() == platform::EntryKind::Folder; }

  /// Opens the file: (3, 1) an existing file for reading, (4, 2) for writing from its start, whatever stood
  /// in it. `share` and `recordLength` are accepted and have no effect. A file that cannot be opened leaves
  /// `IsOpen` false and raises nothing. Error 5 for other modes.
  void Open(std::int32_t mode, std::int32_t access, std::int32_t share = 1,
            std::int32_t recordLength = 32767);
  /// Whether the last `Open` succeeded and no `Close` followed.
  bool IsOpen() const { return mOpen != OpenState::Closed; }
  /// The whole content as text without byte-order mark, also of a file that was never opened; empty for one
  /// that does not exist or has no path. Error 70 or 75 for one that exists and cannot be read.
  std::string ReadAll() const { return ReadAll(nullptr); }
  /// As above; says in `doubt`, unless that is null, what `EncodingDoubt` does.
  std::string ReadAll(std::string* doubt) const;
  /// Appends text (UTF-8) to a file open for writing. The error of the failed `Open` where there was one,
  /// else error 52 when the file is not open for writing; 5 for text that is not valid UTF-8, 75 for a
  /// failing disk. The file on disk keeps its old content until `Close`.
  void Write(std::string_view text);
  /// Closes the file. What was written is made durable and put in place in one step; when that fails, the
  /// error of the file layer is raised and the old content stays.
  void Close();
  /// Deletes the file. Error 53 when there is none.
  void Delete();
  /// Creates the folder part, where there is one, and its missing parents.
  void CreateFolder();
  /// Puts a copy of this file in the place of whatever is at `target`, in one step: a link there is replaced,
  /// not followed. Error 75 where it is a folder.
  void CopyTo(std::string_view target) const;

  /// The entries of the folder that match the pattern, also hidden ones, in the order of the file system or
  /// by their names in capital letters. `mode` is accepted and has no effect. A folder that does not exist
  /// has none; error 70 or 75 for one that cannot be listed.
  std::vector<DiskFile> Files(std::string_view pattern, std::int32_t mode = 1) const;

 private:
  enum class OpenState { Closed, Reading, Writing };

  platform::EntryKind Kind() const;
  void SetFileName(std::string_view name);
  void PathChanged() { mListedKind.reset(); }

  std::string mFolder;
  std::string mBaseName;
  std::string mExtension;
  std::optional<platform::EntryKind> mListedKind;  // as the folder listing told it, until the path changes
  OpenState mOpen = OpenState::Closed;
  std::string mContent;  // the bytes of a file open for reading
  std::shared_ptr<platform::FileReplacement> mReplacement;
  std::optional<Error> mOpenFailure;
};

/// The path with backslashes, one between two parts, without "." and "..". Two leading backslashes stay two.
/// A ".." never leads above a drive, or a server's share; at the start of a relative path it stays.
std::string NormalisePath(std::string_view path);

/// The entries of a folder as of `platform::Files::List`; none where there is no such folder. Error 70 or 75
/// for one that cannot be listed.
std::vector<platform::FolderEntry> ListFolder(std::string_view folder);

/// The host's own path for a path in the product's notation; the path itself where the host has none for it,
/// such as one on a drive while nothing tells where the drives are.
std::string NativePath(std::string_view path);

}  // namespace lwconfig
