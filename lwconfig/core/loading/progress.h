#pragma once

#include <cstddef>
#include <functional>

#include <lwconfig/core/files/disk_file.h>

namespace lwconfig {

/// Progress of reading several configuration files: `File` is read next, `Done` of `Total`
/// files are finished.
struct Progress {
  const DiskFile& File;
  std::size_t Done;
  std::size_t Total;
};

using ProgressHandler = std::function<void(const Progress&)>;

/// Sets the handler called before each file; an empty one for none. Returns the previous handler.
ProgressHandler SetProgressHandler(ProgressHandler handler);
void ReportProgress(const Progress& progress);

}  // namespace lwconfig
