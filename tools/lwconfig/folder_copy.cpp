#include <system_error>

#include <tools/lwconfig/folder_copy.h>

namespace lwconfig::tool {

namespace fs = std::filesystem;

FolderCopy::FolderCopy(const fs::path& from, const fs::path& to, const IsLeftOut& isLeftOut) {
  try {
    CopyEntries(from, to, isLeftOut);
  } catch (...) {
    RemoveCreated();
    throw;
  }
}

FolderCopy::~FolderCopy() {
  RemoveCreated();
}

void FolderCopy::CopyEntries(const fs::path& from, const fs::path& to, const IsLeftOut& isLeftOut) {
  // Listed before anything is created, which may be below the folder that is copied.
  std::vector<fs::path> entries;
  for (auto at = fs::recursive_directory_iterator(from); at != fs::recursive_directory_iterator(); ++at) {
    const fs::path relative = at->path().lexically_relative(from);
    if (!isLeftOut(relative)) {
      entries.push_back(relative);
    } else if (at->is_directory()) {
      at.disable_recursion_pending();
    }
  }
  MakeFolder(to);
  for (const fs::path& entry : entries) {
    const auto status = fs::symlink_status(from / entry);
    if (fs::is_directory(status)) {
      MakeFolder(to / entry);
      continue;
    }
    // A copy that fails may leave a part of the file.
    mCreated.push_back(to / entry);
    fs::copy(from / entry, to / entry, fs::copy_options::copy_symlinks);
    ++mFileCount;
    // The files of an installation are often protected; a copy is made to be changed.
    if (fs::is_regular_file(status))
      fs::permissions(to / entry, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
  }
}

void FolderCopy::MakeFolder(const fs::path& folder) {
  if (fs::is_directory(folder)) return;
  if (folder.has_parent_path()) MakeFolder(folder.parent_path());
  if (fs::create_directory(folder)) mCreated.push_back(folder);
}

void FolderCopy::RemoveCreated() {
  std::error_code ignored;
  for (; !mCreated.empty(); mCreated.pop_back()) fs::remove(mCreated.back(), ignored);
}

}  // namespace lwconfig::tool
