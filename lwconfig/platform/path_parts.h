#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lwconfig::platform {

/// What becomes of a ".." above the folder that a path begins in.
enum class Above { IsLeftOut, IsKept };

/// Appends the parts of `parts`, between any of `separators`, each with `separator` in front. A "." is left
/// out, a ".." removes the part before it, but nothing of the first `least` bytes of `path`.
void AppendParts(std::string& path, std::size_t least, std::string_view parts, std::string_view separators,
                 char separator, Above above = Above::IsLeftOut);

}  // namespace lwconfig::platform
