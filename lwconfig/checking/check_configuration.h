#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/inspection.h>

namespace lwconfig {

/// What a check found.
struct CheckResult {
  /// In the order in which the files were read, inside a file by line. Of one kind in a file at most
  /// `Inspection::kMostReported` are listed, then one that summarises the rest.
  std::vector<Diagnostic> Problems;
  /// The number of files that were read.
  std::size_t Files = 0;

  bool HasErrors() const;
};

/// Loads everything there is of the configuration in a folder, a path of the host, without stopping at a
/// failure, and finds what is wrong with it. An empty path means the registered configuration. Error 76 for a
/// folder that does not exist, and where none is registered. The shared objects are dropped at both ends.
CheckResult CheckConfiguration(const std::string& folder = {});

}  // namespace lwconfig
