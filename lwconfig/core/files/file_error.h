#pragma once

#include <string_view>
#include <system_error>

#include <lwconfig/core/base/error.h>

namespace lwconfig {

/// The error for a failure that the operating system reported about the file or folder at `path`: 53 for a
/// missing file, 76 where the folder that it would be in is missing.
Error FileError(const std::system_error& failure, std::string_view path);

}  // namespace lwconfig
