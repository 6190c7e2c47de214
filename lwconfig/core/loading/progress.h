#pragma once

#include <cstddef>
#include <functional>

#include <lwconfig/core/files/disk_file.h>

namespace lwconfig {

/// How far the reading of several configuration files has come: `File` is read next, `Done` files of `Total`
/// are through.
struct Progress {
  const DiskFile& File;
  std::size_t Done;
  std::size_t Total;
};

using ProgressHandler = std::function<void(const Progress&)>;

/// Sets the handler that is told before each file, an empty one for none; returns the one set before.
ProgressHandler SetProgressHandler(ProgressHandler handler);
void TellProgress(const Progress& progress);

}  // namespace lwconfig
