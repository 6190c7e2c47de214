#pragma once

#include <memory>
#include <string>
#include <vector>

#include <tools/lwconfig/overlay/overlay_files.h>
#include <tools/lwconfig/overlay/overlay_registry.h>

#include <lwconfig/platform/service.h>

namespace lwconfig::tool {

/// A trial run: while it lives, everything that the library writes to files and registry stays in memory.
class Overlay {
 public:
  Overlay();

  bool ChangesFiles() const { return !mFiles.Changes().empty(); }
  bool IsEmpty() const { return !ChangesFiles() && mRegistry.Changes().empty(); }
  /// The changes as a unified diff, paths as the host has them, registry values in their editor's notation.
  std::string Difference() const;
  /// Writes the changes: every file durably, in order, then the registry values. The new content of all files
  /// is on the disk before the first one is replaced. When a step fails, what was replaced before is put
  /// back, and the failure is thrown; where that fails too its text says so. A file that somebody else has
  /// changed in the meantime is such a failure. Folders that were made stay.
  void WriteOut();
  /// What was changed, one line for each file and value; a value by its key and name as a shell takes them.
  std::vector<std::string> Names() const;

 private:
  std::unique_ptr<platform::FileReplacement> Begin(const FileChange& change);

  platform::Files& mBaseFiles;
  platform::Registry& mBaseRegistry;
  OverlayFiles mFiles;
  OverlayRegistry mRegistry;
  platform::ScopedHost<platform::Files> mFilesScope;
  platform::ScopedHost<platform::Registry> mRegistryScope;
};

}  // namespace lwconfig::tool
