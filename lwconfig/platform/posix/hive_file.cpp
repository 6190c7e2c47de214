#include "hive_file.h"

#include <algorithm>

#include <fcntl.h>
#include <time.h>

#include "paths.h"
#include "replacement.h"

namespace lwconfig::platform {
namespace {

bool SameTime(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool SameState(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
         SameTime(a.st_mtim, b.st_mtim) && SameTime(a.st_ctim, b.st_ctim);
}

double Seconds(const timespec& time) {
  return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Whether the change has no effect on the file; `file` is null where there is none.
bool IsDone(const RegistryFile* file, const RegistryChange& change) {
  using Kinds = RegistryChange::Kinds;
  switch (change.Kind) {
    case Kinds::Key:
      return file != nullptr && file->HasKey(change.Key);
    case Kinds::DeletedKey:
      return file == nullptr || !file->List(change.Key);
    case Kinds::Value:
    case Kinds::DeletedValue:
      break;
  }
  const RegistryValue* value = file != nullptr ? file->Find(change.Key, change.Name) : nullptr;
  return change.Kind == Kinds::Value ? value != nullptr && *value == change.Value : value == nullptr;
}

}  // namespace

bool HiveFile::Snapshot::IsCurrent(const struct stat& now) const {
  return Content && IsSettled && SameState(State, now);
}

HiveFile::Snapshot HiveFile::TakeSnapshot(const std::string& path) const {
  constexpr double kClockTick = 0.02;  // more than the resolution of the file system's clock
  Snapshot snapshot;
  snapshot.File = OpenPlain(path);
  if (!snapshot.File.IsOpen()) ThrowErrno(path);
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  if (::fstat(snapshot.File.Number(), &snapshot.State) != 0) ThrowErrno(path);
  const double settled = Seconds(now) - kClockTick;
  snapshot.IsSettled = Seconds(snapshot.State.st_mtim) < settled && Seconds(snapshot.State.st_ctim) < settled;
  snapshot.Content = std::make_unique<RegistryFile>(ReadAll(snapshot.File, path), mHive, path);
  return snapshot;
}

const RegistryFile* HiveFile::Current() {
  const std::string path = Path();
  struct stat now {};
  if (path.empty() || ::stat(path.c_str(), &now) != 0) {
    if (!path.empty() && !NamesNothing(errno)) ThrowErrno(path);
    mSnapshot = {};
    return nullptr;
  }
  if (!mSnapshot.IsCurrent(now)) mSnapshot = TakeSnapshot(path);
  return mSnapshot.Content.get();
}

bool HiveFile::IsAlready(const std::vector<RegistryChange>& changes) {
  return std::ranges::all_of(changes, [&](const RegistryChange& change) {
    return change.Root != mHive || IsDone(Current(), change);
  });
}

void HiveFile::Change(const std::vector<RegistryChange>& changes) {
  if (IsAlready(changes)) return;
  const std::string path = Path();
  if (path.empty()) ThrowErrno("the registry of this user", ENOENT);
  MakeHostFolders(FolderOf(path));
  const auto replacement = BeginReplacement(path, WhenBusy::Wait);
  const Descriptor old = OpenPlain(path);
  if (!old.IsOpen() && errno != ENOENT) ThrowErrno(path);
  const RegistryFile file(old.IsOpen() ? ReadAll(old, path) : RegistryFile::EmptyText(), mHive, path);
  const std::string text = file.With(changes);
  if (old.IsOpen() && text == file.Text()) return;
  replacement->Write(text);
  replacement->Commit();
}

}  // namespace lwconfig::platform
