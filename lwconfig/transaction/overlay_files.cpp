#include <algorithm>
#include <functional>
#include <system_error>
#include <utility>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/transaction/overlay_files.h>

namespace lwconfig {
namespace {

using platform::EntryKind;
using platform::FolderEntry;

[[noreturn]] void FailMissing(std::string_view path) {
  throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory), std::string(path));
}

/// Keep the separator of the root.
std::string_view WithoutSeparator(std::string_view path) {
  while (path.size() > 1 && (path.ends_with('\\') || path.ends_with('/'))) path.remove_suffix(1);
  return path;
}

std::string_view NameOf(std::string_view path) {
  return path.substr(path.find_last_of("\\/") + 1);
}
std::string_view FolderOf(std::string_view path) {
  const std::string_view folder = path.substr(0, path.find_last_of("\\/") + 1);
  return folder.empty() ? "." : WithoutSeparator(folder);
}

std::optional<std::size_t> HashOf(const std::optional<std::string>& content) {
  if (!content) return std::nullopt;
  return std::hash<std::string>()(*content);
}

/// Whether two host names are one. The name of an entry on the disk is the one that it has there; any other
/// is found in every letter case.
bool IsSame(std::string_view a, std::string_view b, bool isOnDisk) {
  return isOnDisk && platform::kNamesAreExact ? a == b : EqualIgnoringCase(a, b);
}

class OverlayReplacement final : public platform::FileReplacement {
 public:
  OverlayReplacement(OverlayFiles& files, std::string_view path, std::string_view model)
      : mFiles(files), mPath(path), mModel(model) {}
  void Write(std::string_view bytes) override { mContent += bytes; }
  void Commit() override { mFiles.Store(mPath, std::move(mContent), std::move(mModel)); }

 private:
  OverlayFiles& mFiles;
  const std::string mPath;
  std::string mContent;
  std::string mModel;
};

}  // namespace

std::vector<FileChange> OverlayFiles::Changes() const {
  const auto isChanged = [](const Entry& entry) { return entry.Change.Old != entry.Change.New; };
  std::vector<FileChange> changes;
  for (const Entry& entry : mEntries) {
    const std::string& model = entry.Change.Model;
    const bool isIdle = !model.empty() && std::ranges::none_of(mEntries, [&](const Entry& other) {
      return EqualIgnoringCase(other.Change.Path, model) && isChanged(other);
    });
    if (isChanged(entry) && !isIdle) changes.push_back(entry.Change);
  }
  return changes;
}

FileChange* OverlayFiles::Find(const std::string& hostPath) {
  const auto found = std::ranges::find_if(
      mEntries, [&](const Entry& entry) { return IsSame(entry.HostPath, hostPath, entry.IsOnDisk()); });
  return found == mEntries.end() ? nullptr : &found->Change;
}

bool OverlayFiles::IsMadeFolder(std::string_view folder) const {
  const std::string_view wanted = WithoutSeparator(folder);
  return std::ranges::any_of(mFolders, [&](std::string_view made) {
    made = WithoutSeparator(made);
    const bool isBelow =
        made.size() == wanted.size() || (made.size() > wanted.size() && made[wanted.size()] == '\\');
    return isBelow && EqualIgnoringCase(made.substr(0, wanted.size()), wanted);
  });
}

EntryKind OverlayFiles::Kind(std::string_view path) {
  const std::string hostPath = NativePath(path);
  const std::lock_guard lock(mMutex);
  if (const FileChange* change = Find(hostPath)) return change->New ? EntryKind::File : EntryKind::Missing;
  if (IsMadeFolder(path)) return EntryKind::Folder;
  const EntryKind kind = mBase.Kind(path);
  if (kind == EntryKind::Missing) Note(hostPath, std::nullopt);
  return kind;
}

std::string OverlayFiles::Read(std::string_view path) {
  const std::string hostPath = NativePath(path);
  {
    const std::lock_guard lock(mMutex);
    if (const FileChange* change = Find(hostPath)) {
      if (!change->New) FailMissing(path);
      return *change->New;
    }
  }
  std::string content = mBase.Read(path);
  const std::lock_guard lock(mMutex);
  Note(hostPath, content);
  return content;
}

void OverlayFiles::Note(const std::string& hostPath, const std::optional<std::string>& content) {
  mFirstRead.try_emplace(hostPath, HashOf(content));
}

std::vector<FolderEntry> OverlayFiles::List(std::string_view folder) {
  const std::lock_guard lock(mMutex);
  std::vector<FolderEntry> entries;
  if (mBase.Kind(folder) != EntryKind::Missing || !IsMadeFolder(folder)) entries = mBase.List(folder);
  const std::string hostFolder = NativePath(WithoutSeparator(folder));
  const auto put = [&](std::string_view hostPath, EntryKind kind, bool isOnDisk) {
    if (!IsSame(FolderOf(hostPath), hostFolder, isOnDisk)) return;
    const auto isSame = [&](const FolderEntry& entry) {
      return IsSame(entry.Name, NameOf(hostPath), isOnDisk);
    };
    if (kind == EntryKind::Missing) {
      std::erase_if(entries, isSame);
    } else if (std::ranges::none_of(entries, isSame)) {
      entries.push_back({std::string(NameOf(hostPath)), kind});
    }
  };
  for (const std::string& made : mFolders) put(NativePath(WithoutSeparator(made)), EntryKind::Folder, false);
  for (const Entry& entry : mEntries)
    put(entry.HostPath, entry.Change.New ? EntryKind::File : EntryKind::Missing, entry.IsOnDisk());
  std::ranges::stable_sort(entries, [](const FolderEntry& a, const FolderEntry& b) {
    return CompareInCapitals(a.Name, b.Name) < 0;
  });
  return entries;
}

std::unique_ptr<platform::FileReplacement> OverlayFiles::Replace(std::string_view path) {
  return Supersede(path, {});
}

std::unique_ptr<platform::FileReplacement> OverlayFiles::Supersede(std::string_view path,
                                                                   std::string_view model) {
  if (Kind(FolderOf(path)) != EntryKind::Folder) FailMissing(path);
  if (Kind(path) == EntryKind::Folder)
    throw std::system_error(std::make_error_code(std::errc::is_a_directory), std::string(path));
  return std::make_unique<OverlayReplacement>(*this, path, model);
}

void OverlayFiles::Remove(std::string_view path) {
  if (Kind(path) != EntryKind::File) FailMissing(path);
  Store(path, std::nullopt);
}

void OverlayFiles::MakeFolders(std::string_view folder) {
  if (Kind(folder) == EntryKind::Folder) return;
  const std::lock_guard lock(mMutex);
  mFolders.emplace_back(folder);
}

void OverlayFiles::Store(std::string_view path, std::optional<std::string> content, std::string model) {
  const std::string hostPath = NativePath(path);
  const std::lock_guard lock(mMutex);
  if (FileChange* known = Find(hostPath)) {
    known->New = std::move(content);
    return;
  }
  FileChange change{std::string(path), std::nullopt, std::move(content), std::move(model)};
  if (mBase.Kind(path) == EntryKind::File) change.Old = mBase.Read(path);
  Note(hostPath, change.Old);
  change.IsStale = mFirstRead[hostPath] != HashOf(change.Old);
  mEntries.push_back({hostPath, std::move(change)});
}

}  // namespace lwconfig
