#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <lwconfig/platform/files.h>

namespace lwconfig {

/// The change of one file; old or new content is absent where the file does not exist.
struct FileChange {
  std::string Path;  // in the product's notation
  std::optional<std::string> Old;
  std::optional<std::string> New;
  std::string Model{};   // the source of the permissions, for a file that replaces any entry of its name
  bool IsStale = false;  // the old content differs from the first read
};

/// A file system over another one: changes are kept in memory, where reads see them.
class OverlayFiles final : public platform::Files {
 public:
  explicit OverlayFiles(platform::Files& base) : mBase(base) {}

  /// The files that differ from their old content, in the order of their first write. An unchanged file is
  /// not listed, nor is a copy of one.
  std::vector<FileChange> Changes() const;
  /// The folders that were created, in order.
  std::vector<std::string> Folders() const { return mFolders; }

  platform::EntryKind Kind(std::string_view path) override;
  std::string Read(std::string_view path) override;
  std::vector<platform::FolderEntry> List(std::string_view folder) override;
  std::unique_ptr<platform::FileReplacement> Replace(std::string_view path) override;
  std::unique_ptr<platform::FileReplacement> Supersede(std::string_view path,
                                                       std::string_view model) override;
  void Remove(std::string_view path) override;
  void MakeFolders(std::string_view folder) override;
  std::string NativePath(std::string_view path) override { return mBase.NativePath(path); }
  std::string ProductPath(std::string_view hostPath) override { return mBase.ProductPath(hostPath); }

  /// Sets the content of the file, or removes the file where there is no content.
  void Store(std::string_view path, std::optional<std::string> content, std::string model = {});

 private:
  struct Entry {
    std::string HostPath;
    FileChange Change;
    bool IsOnDisk() const { return Change.Old.has_value(); }
  };
  /// Null for an untouched file. `mMutex` is held.
  FileChange* Find(const std::string& hostPath);
  /// Remembers the content first read below, or its absence. `mMutex` is held.
  void Note(const std::string& hostPath, const std::optional<std::string>& content);
  bool IsMadeFolder(std::string_view folder) const;

  platform::Files& mBase;
  std::mutex mMutex;  // files may be read on a second thread
  std::vector<Entry> mEntries;
  /// By host path, the hash of the content that was first read; none of a missing file.
  std::unordered_map<std::string, std::optional<std::size_t>> mFirstRead;
  std::vector<std::string> mFolders;
};

}  // namespace lwconfig
