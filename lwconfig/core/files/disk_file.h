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

/// A path on disk, held as folder, base name and extension, and the file there while it is open. Paths are in
/// the product's notation: backslashes; slashes are accepted, repeated separators count as one, "." and ".."
/// are resolved. A path without drive and leading separator is relative to the current folder.
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
  /// The extension without a leading dot.
  const std::string& Extension() const { return mExtension; }
  /// With or without a leading dot.
  void SetExtension(std::string_view extension);
  /// Base name and extension, without folder.
  std::string FileName() const;
  /// Folder, base name and extension, as one path.
  std::string FullPath() const { return mFolder + FileName(); }
  /// Splits the path; the extension follows the last dot of the file name.
  void SetFullPath(std::string_view path);

  /// Whether a file, not a folder, exists at the full path.
  bool Exists() const { return Kind() == platform::EntryKind::File; }
  /// Whether the full path names an existing folder.
  bool IsFolder() const { return Kind() == platform::EntryKind::Folder; }

  /// Opens the file: (3, 1) an existing file for reading, (4, 2) for writing from its start, replacing any
  /// old content. `share` and `recordLength` are accepted and have no effect. A file that cannot be opened
  /// leaves `IsOpen` false and raises nothing. Error 5 for other modes.
  void Open(std::int32_t mode, std::int32_t access, std::int32_t share = 1,
            std::int32_t recordLength = 32767);
  /// Whether the last `Open` succeeded and no `Close` followed.
  bool IsOpen() const { return mOpen != OpenState::Closed; }
  /// The whole content as text without byte-order mark, also of a file that was never opened; empty for one
  /// that does not exist or has no path. Error 70 or 75 for one that exists and cannot be read.
  std::string ReadAll() const { return ReadAll(nullptr); }
  /// As above; also sets `doubt`, unless that is null, to the result of `EncodingDoubt`.
  std::string ReadAll(std::string* doubt) const;
  /// Appends text (UTF-8) to a file open for writing. Throws the error of a failed `Open`, else error 52 when
  /// the file is not open for writing; 5 for text that is not valid UTF-8, 75 for a failing disk. The file on
  /// disk keeps its old content until `Close`.
  void Write(std::string_view text);
  /// Closes the file. Written text is made durable and put in place in one step; when that fails, the error
  /// of the file layer is raised and the old content stays.
  void Close();
  /// Deletes the file. Error 53 when there is none.
  void Delete();
  /// Creates the folder part, if any, and its missing parents.
  void CreateFolder();
  /// Puts a copy of this file in the place of any file at `target`, in one step. A link there is replaced,
  /// not followed. Error 75 where `target` is a folder.
  void CopyTo(std::string_view target) const;

  /// The entries of the folder that match the pattern, including hidden ones, in the order of the file system
  /// or by their names in capital letters. `mode` is accepted and has no effect. A folder that does not exist
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
  std::optional<platform::EntryKind> mListedKind;  // from the folder listing; valid until the path changes
  OpenState mOpen = OpenState::Closed;
  std::string mContent;  // the bytes of a file open for reading
  std::shared_ptr<platform::FileReplacement> mReplacement;
  std::optional<Error> mOpenFailure;
};

/// The path with backslashes, one between two parts, without "." and "..". Two leading backslashes stay two.
/// A ".." never leads above a drive, or a server's share; it is kept at the start of a relative path.
std::string NormalisePath(std::string_view path);

/// The entries of a folder, as `platform::Files::List`; none where the folder does not exist. Error 70 or 75
/// for one that cannot be listed.
std::vector<platform::FolderEntry> ListFolder(std::string_view folder);

/// The host's own path for a path in the product's notation. The path itself where the host has none for it,
/// such as a path on a drive while the location of the drives is unknown.
std::string NativePath(std::string_view path);

}  // namespace lwconfig
