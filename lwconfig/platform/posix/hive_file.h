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

/// One hive as a registry file on the disk holds it at the moment. Failures are those of `Registry`.
class HiveFile {
 public:
  /// `path` gives the host path of the file; empty where the environment names no place for it. It is called
  /// again each time: the environment may change.
  HiveFile(Hive hive, std::function<std::string()> path) : mHive(hive), mPath(std::move(path)) {}

  std::string Path() const { return mPath(); }
  /// The file as it is now, null when there is none; valid until the next call.
  const RegistryFile* Current();
  /// Whether the changes of this hive would leave everything as it is.
  bool IsAlready(const std::vector<RegistryChange>& changes);
  /// Makes the changes of this hive in one step, locked against every other writer. Nothing is written where
  /// they would leave everything as it is.
  void Change(const std::vector<RegistryChange>& changes);

 private:
  /// What the file held when it was read last.
  struct Snapshot {
    /// Stays open, so that no other file gets this one's number while the two are compared.
    Descriptor File;
    struct stat State {};
    /// Whether the file was left alone long enough before it was read for its times to tell the next change.
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
