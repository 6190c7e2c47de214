#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/inspection.h>

namespace lwconfig {

/// The result of a check.
struct CheckResult {
  /// In the order in which the files were read, inside a file by line. At most `Inspection::kMostReported` of
  /// one kind in a file are listed, followed by a summary of the rest.
  std::vector<Diagnostic> Problems;
  /// The number of files that were read.
  std::size_t Files = 0;

  bool HasErrors() const;
};

/// Loads every part of the configuration in a folder, a path of the host, without stopping at a failure, and
/// finds its problems. An empty path means the registered configuration. Error 76 for a folder that does not
/// exist, and where none is registered. The shared objects are dropped at the start and at the end.
CheckResult CheckConfiguration(const std::string& folder = {});

}  // namespace lwconfig
