#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <sys/stat.h>

#include <lwconfig/platform/registry.h>

#include "descriptor.h"
#include "registry_file.h"

namespace lwconfig::platform {

/// The current state of one hive in a registry file on disk. Failures are those of `Registry`.
class HiveFile {
 public:
  /// `path` returns the host path of the file; empty where the environment names no place for it. It is
  /// called on every access: the environment may change.
  HiveFile(Hive hive, std::function<std::string()> path) : mHive(hive), mPath(std::move(path)) {}

  std::string Path() const { return mPath(); }
  /// The current content of the file; null when there is none. Valid until the next call.
  const RegistryFile* Current();
  /// Whether the changes of this hive have no effect.
  bool IsAlready(const std::vector<RegistryChange>& changes);
  /// Makes the changes of this hive in one step, locked against every other writer. Writes nothing where they
  /// have no effect.
  void Change(const std::vector<RegistryChange>& changes);

 private:
  /// The content of the file when it was read last.
  struct Snapshot {
    /// Keep it open, so that no other file gets its inode number during the comparison.
    Descriptor File;
    struct stat State {};
    /// Whether the file was old enough when it was read for its times to reveal the next change.
    bool IsSettled = false;
    std::unique_ptr<RegistryFile> Content;

    bool IsCurrent(const struct stat& now) const;
  };

  Snapshot TakeSnapshot(const std::string& path) const;

  Hive mHive;
  std::function<std::string()> mPath;
  Snapshot mSnapshot;
};

}  // namespace lwconfig::platform
