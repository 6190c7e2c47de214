#pragma once

#include <string_view>
#include <system_error>

#include <lwconfig/core/base/error.h>

namespace lwconfig {

/// The error for a failure of the operating system at the file or folder `path`: 53 for a missing file, 76
/// for a missing parent folder.
Error FileError(const std::system_error& failure, std::string_view path);

}  // namespace lwconfig
