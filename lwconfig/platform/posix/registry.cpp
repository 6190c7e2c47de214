#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>

#include <lwconfig/platform/registry.h>

#include "descriptor.h"
#include "paths.h"
#include "registry_file.h"
#include "replacement.h"

namespace lwconfig::platform {
namespace {

/// The file that holds a hive; empty where the environment names no place for it.
std::string FileOf(Hive hive) {
  const bool isUsers = hive == Hive::CurrentUser;
  if (!isUsers && hive != Hive::LocalMachine) return {};
  const char* name = isUsers ? "/user.reg" : "/machine.reg";
  if (const char* folder = std::getenv("LWCONFIG_REGISTRY"); folder != nullptr && *folder != '\0') {
    return std::string(folder) + name;
  }
  const std::string folder = isUsers ? ConfigHome() : "/etc";
  return folder.empty() ? folder : folder + "/lwconfig" + name;
}

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

/// What a registry file held when it was read last.
struct Snapshot {
  /// Stays open, so that no other file gets this one's number while the two are compared.
  Descriptor File;
  struct stat State {};
  /// Whether the file was left alone long enough before it was read for its times to tell the next change.
  bool IsSettled = false;
  std::unique_ptr<RegistryFile> Content;

  bool IsCurrent(const struct stat& now) const { return Content && IsSettled && SameState(State, now); }
};

Snapshot TakeSnapshot(Hive hive, const std::string& path) {
  constexpr double kClockTick =
      0.02;  // the file system's clock is as coarse as the scheduler's, and then some
  Snapshot snapshot;
  snapshot.File = Descriptor(Uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
  if (!snapshot.File.IsOpen()) ThrowErrno(path);
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  if (::fstat(snapshot.File.Number(), &snapshot.State) != 0) ThrowErrno(path);
  const double settled = Seconds(now) - kClockTick;
  snapshot.IsSettled = Seconds(snapshot.State.st_mtim) < settled && Seconds(snapshot.State.st_ctim) < settled;
  snapshot.Content = std::make_unique<RegistryFile>(ReadAll(snapshot.File, path), hive, path);
  return snapshot;
}

/// Where a 64-bit system keeps the machine's keys of 32-bit programs, as exports from it show.
std::string In32BitView(std::string_view key) {
  constexpr std::string_view kSoftware = "Software\\";
  if (!EqualIgnoringCase(key.substr(0, kSoftware.size()), kSoftware)) return std::string(key);
  return std::string(kSoftware) + "WOW6432Node\\" + std::string(key.substr(kSoftware.size()));
}

class NativeRegistry final : public Registry {
 public:
  std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) override {
    const RegistryFile* file = Current(hive);
    const RegistryValue* value = file != nullptr ? file->Find(key, name) : nullptr;
    if (value == nullptr && file != nullptr && hive == Hive::LocalMachine)
      value = file->Find(In32BitView(key), name);
    return value != nullptr ? std::optional(*value) : std::nullopt;
  }

  std::optional<RegistryKey> List(Hive hive, std::string_view key) override {
    if (const RegistryFile* file = Current(hive)) return file->List(key);
    return key.empty() ? std::optional(RegistryKey()) : std::nullopt;
  }

  void Apply(const std::vector<RegistryChange>& changes) override {
    for (const Hive hive : {Hive::LocalMachine, Hive::CurrentUser}) {
      if (!IsDone(changes, hive)) Change(hive, changes);
    }
  }

 private:
  /// The hive's file as it is now, null when there is none; valid until the next call.
  const RegistryFile* Current(Hive hive) {
    Snapshot& snapshot = mSnapshots[hive == Hive::CurrentUser ? 0 : 1];
    const std::string path = FileOf(hive);
    struct stat now {};
    if (path.empty() || ::stat(path.c_str(), &now) != 0) {
      if (!path.empty() && !NamesNothing(errno)) ThrowErrno(path);
      snapshot = {};
      return nullptr;
    }
    if (!snapshot.IsCurrent(now)) snapshot = TakeSnapshot(hive, path);
    return snapshot.Content.get();
  }

  /// Whether nothing is asked of this hive but keys that are there.
  bool IsDone(const std::vector<RegistryChange>& changes, Hive hive) {
    return std::ranges::all_of(changes, [&](const RegistryChange& change) {
      if (change.Root != hive) return true;
      if (change.Kind != RegistryChange::Kinds::Key) return false;
      const RegistryFile* file = Current(hive);
      return file != nullptr && file->HasKey(change.Key);
    });
  }

  /// Makes the changes in the hive's file, locked against every other writer.
  void Change(Hive hive, const std::vector<RegistryChange>& changes) {
    const std::string path = FileOf(hive);
    if (path.empty()) ThrowErrno("the registry of this user", ENOENT);
    MakeHostFolders(FolderOf(path));
    const auto replacement = BeginReplacement(path, WhenBusy::Wait);
    const Descriptor old(Uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC); }));
    if (!old.IsOpen() && errno != ENOENT) ThrowErrno(path);
    const RegistryFile file(old.IsOpen() ? ReadAll(old, path) : RegistryFile::EmptyText(), hive, path);
    const std::string text = file.With(changes);
    if (old.IsOpen() && text == file.Text()) return;
    replacement->Write(text);
    replacement->Commit();
  }

  std::array<Snapshot, 2> mSnapshots;
};

}  // namespace

Registry& Registry::Native() {
  static NativeRegistry registry;
  return registry;
}

}  // namespace lwconfig::platform
