#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/platform/files.h>

namespace lwconfig::platform {

/// The absolute path with backslashes, as people write it. As of `SystemPath`, `ENOENT` for a path that holds
/// a NUL.
std::string FullPath(std::string_view path);
/// The path as the system takes it: absolute, and of any length. `ENOENT` for none.
std::wstring SystemPath(std::string_view path);

enum class ReplaceMode {
  Rewrite,    // the file, or the one that a link there leads to; it keeps its permissions
  Supersede,  // whatever has the name
};

/// See `Files::Replace` and `Files::Supersede`. A new file has the permissions that its folder hands down.
std::unique_ptr<FileReplacement> BeginReplacement(std::string_view path, ReplaceMode mode);

}  // namespace lwconfig::platform
