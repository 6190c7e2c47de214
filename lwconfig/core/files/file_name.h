#pragma once

#include <string_view>

namespace lwconfig {

/// Error 52 for a path that leads out of the folder that it is taken from.
void CheckStaysBelow(std::string_view path);

/// Error 52 for a text that, taken as the base name of a file, may lead out of the file's folder: one with a
/// separator, the colon of a drive or a control character, or "." or "..".
void CheckBaseName(std::string_view name);

}  // namespace lwconfig
