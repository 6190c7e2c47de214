#include "file_registry.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

#include "paths.h"

namespace lwconfig::platform {
namespace {

using Kinds = RegistryChange::Kinds;

/// The folder of all registry files where the environment names one, else empty.
std::string CommonFolder() {
  const char* folder = std::getenv("LWCONFIG_REGISTRY");
  return folder != nullptr ? folder : "";
}

/// The path of a file in the user's folder; empty without one.
std::string InConfigHome(const char* name) {
  const std::string folder = ConfigHome();
  return folder.empty() ? folder : folder + "/lwconfig" + name;
}

std::string UserFile() {
  const std::string folder = CommonFolder();
  return folder.empty() ? InConfigHome("/user.reg") : folder + "/user.reg";
}

std::string OwnMachineFile() {
  return CommonFolder().empty() ? InConfigHome("/machine.reg") : std::string();
}

std::string MachineFile(const std::string& systemFolder) {
  const std::string folder = CommonFolder();
  return (folder.empty() ? systemFolder : folder) + "/machine.reg";
}

/// The location of the machine's keys of 32-bit programs on a 64-bit system, as in exports from it.
std::string In32BitView(std::string_view key) {
  constexpr std::string_view kSoftware = "Software\\";
  if (!EqualIgnoringCase(key.substr(0, kSoftware.size()), kSoftware)) return std::string(key);
  return std::string(kSoftware) + "WOW6432Node\\" + std::string(key.substr(kSoftware.size()));
}

/// The value in the file; null where the file or the value is absent.
const RegistryValue* Find(const RegistryFile* file, Hive hive, std::string_view key, std::string_view name) {
  if (file == nullptr) return nullptr;
  const RegistryValue* value = file->Find(key, name);
  return value == nullptr && hive == Hive::LocalMachine ? file->Find(In32BitView(key), name) : value;
}

/// Adds those of `others` that are new, and restores the order of names.
template <class Items, class NameOf>
void Merge(Items& items, const Items& others, NameOf nameOf) {
  if (items.empty()) {
    items = others;
    return;
  }
  const std::size_t count = items.size();
  for (const auto& other : others) {
    const auto end = items.begin() + static_cast<std::ptrdiff_t>(count);
    const bool isThere = std::any_of(
        items.begin(), end, [&](const auto& item) { return EqualIgnoringCase(nameOf(item), nameOf(other)); });
    if (!isThere) items.push_back(other);
  }
  std::ranges::sort(items, {}, [&](const auto& item) { return FoldCase(nameOf(item)); });
}

bool IsDeletion(const RegistryChange& change) {
  return change.Kind == Kinds::DeletedKey || change.Kind == Kinds::DeletedValue;
}

bool IsRefusal(const std::system_error& failure) {
  const int code = failure.code().value();
  return code == EACCES || code == EPERM || code == EROFS;
}

template <class Predicate>
std::vector<RegistryChange> Those(const std::vector<RegistryChange>& changes, Predicate predicate) {
  std::vector<RegistryChange> those;
  std::ranges::copy_if(changes, std::back_inserter(those), predicate);
  return those;
}

}  // namespace

FileRegistry::FileRegistry(const std::string& systemFolder)
    : mUser(Hive::CurrentUser, UserFile),
      mOwn(Hive::LocalMachine, OwnMachineFile),
      mSystem(Hive::LocalMachine, [systemFolder] { return MachineFile(systemFolder); }) {}

std::vector<HiveFile*> FileRegistry::FilesOf(Hive hive) {
  if (hive == Hive::CurrentUser) return {&mUser};
  if (hive == Hive::LocalMachine) return {&mOwn, &mSystem};
  return {};
}

std::optional<RegistryValue> FileRegistry::Read(Hive hive, std::string_view key, std::string_view name) {
  for (HiveFile* file : FilesOf(hive)) {
    if (const RegistryValue* value = Find(file->Current(), hive, key, name)) return *value;
  }
  return std::nullopt;
}

std::optional<RegistryKey> FileRegistry::List(Hive hive, std::string_view key) {
  std::optional<RegistryKey> all;
  if (key.empty()) all.emplace();
  for (HiveFile* file : FilesOf(hive)) {
    const RegistryFile* current = file->Current();
    auto held = current != nullptr ? current->List(key) : std::nullopt;
    if (!held) continue;
    if (!all) all.emplace();
    Merge(all->Keys, held->Keys, [](const std::string& name) -> std::string_view { return name; });
    Merge(all->Values, held->Values, [](const auto& value) -> std::string_view { return value.first; });
  }
  return all;
}

void FileRegistry::Apply(const std::vector<RegistryChange>& changes) {
  ChangeMachine(Those(changes, [](const auto& change) { return change.Root == Hive::LocalMachine; }));
  mUser.Change(changes);
}

void FileRegistry::ChangeMachine(const std::vector<RegistryChange>& changes) {
  const RegistryFile* own = mOwn.Current();
  // Write the user's own file where it overrides the system's: no read would see a change behind it.
  const auto isOutweighed = [own](const RegistryChange& change) {
    return change.Kind == Kinds::Key ? own != nullptr && own->HasKey(change.Key)
                                     : Find(own, Hive::LocalMachine, change.Key, change.Name) != nullptr;
  };
  const auto forSystem =
      Those(changes, [&](const auto& change) { return IsDeletion(change) || !isOutweighed(change); });
  auto forOwn =
      Those(changes, [&](const auto& change) { return IsDeletion(change) || isOutweighed(change); });
  try {
    mSystem.Change(forSystem);
  } catch (const std::system_error& failure) {
    // Fail: the user's own file can add and override values, but not remove those of the system's file.
    if (mOwn.Path().empty() || !IsRefusal(failure) || !mSystem.IsAlready(Those(changes, IsDeletion))) throw;
    forOwn = changes;
  }
  mOwn.Change(forOwn);
}

std::string FileRegistry::OwnFile(std::string_view key, std::string_view name) {
  const bool isOwn = Find(mOwn.Current(), Hive::LocalMachine, key, name) != nullptr;
  return isOwn ? mOwn.Path() : std::string();
}

Registry& Registry::Native() {
  static FileRegistry registry("/etc/lwconfig");
  return registry;
}

}  // namespace lwconfig::platform
