#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lwconfig::platform {

/// How a ".." above the base folder of a path is treated.
enum class Above { IsLeftOut, IsKept };

/// Appends the parts of `parts`, split at any of `separators`, each with `separator` in front. A "." is left
/// out. A ".." removes the previous part, but nothing of the first `least` bytes of `path`.
void AppendParts(std::string& path, std::size_t least, std::string_view parts, std::string_view separators,
                 char separator, Above above = Above::IsLeftOut);

}  // namespace lwconfig::platform
