#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <vector>

namespace lwconfig::tool {

/// A copy of a folder on the host. Nothing that exists is overwritten; unless it is kept, everything that was
/// created is removed again.
class FolderCopy {
 public:
  using IsLeftOut = std::function<bool(const std::filesystem::path& relative)>;

  /// Copies what is in `from`, without what is left out, to `to`, which is created where it is missing.
  /// Throws `std::filesystem::filesystem_error`.
  FolderCopy(const std::filesystem::path& from, const std::filesystem::path& to, const IsLeftOut& isLeftOut);
  ~FolderCopy();
  FolderCopy(const FolderCopy&) = delete;
  FolderCopy& operator=(const FolderCopy&) = delete;

  void Keep() { mCreated.clear(); }
  std::size_t FileCount() const { return mFileCount; }

 private:
  void CopyEntries(const std::filesystem::path& from, const std::filesystem::path& to,
                   const IsLeftOut& isLeftOut);
  void MakeFolder(const std::filesystem::path& folder);
  void RemoveCreated();

  std::vector<std::filesystem::path> mCreated;
  std::size_t mFileCount = 0;
};

}  // namespace lwconfig::tool
