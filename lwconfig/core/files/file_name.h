#pragma once

#include <string>
#include <string_view>

namespace lwconfig {

/// Error 52 for a path that leads out of its base folder.
void CheckStaysBelow(std::string_view path);

/// Error 52 for a base name of a file that may lead out of the file's folder: one with a separator, the colon
/// of a drive or a control character, or "." or "..".
void CheckBaseName(std::string_view name);

/// The last name of a folder's path in the product's notation.
std::string FolderName(std::string path);

}  // namespace lwconfig
