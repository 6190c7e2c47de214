#pragma once

#include <string>
#include <string_view>

namespace lwconfig::platform {

/// The name of the file that collects new content beside the file `name`: always the same for a file, in any
/// letter case, and within the length limit of file systems.
std::string TemporaryName(std::string_view name);
/// Whether a file name is such a name, including one left behind by a process that died.
bool IsTemporaryName(std::string_view name);

}  // namespace lwconfig::platform
