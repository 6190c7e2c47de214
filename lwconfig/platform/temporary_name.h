#pragma once

#include <string>
#include <string_view>

namespace lwconfig::platform {

/// The name of the file that collects new content beside the file `name`: always the same for a file, in any
/// letter case, and no longer than a file system takes.
std::string TemporaryName(std::string_view name);
/// Whether a file of this name is one, also one that a process left behind when it died.
bool IsTemporaryName(std::string_view name);

}  // namespace lwconfig::platform
