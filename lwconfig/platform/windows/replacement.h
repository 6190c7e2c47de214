#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/platform/files.h>

namespace lwconfig::platform {

/// The absolute path with backslashes, as displayed. As of `SystemPath`, `ENOENT` for a path with a NUL.
std::string FullPath(std::string_view path);
/// The path in the form the system needs: absolute, and of any length. `ENOENT` for none.
std::wstring SystemPath(std::string_view path);

enum class ReplaceMode {
  Rewrite,    // the file, or the target of a link there; it keeps its permissions
  Supersede,  // any entry of this name
};

/// See `Files::Replace` and `Files::Supersede`. A new file inherits the permissions of its folder.
std::unique_ptr<FileReplacement> BeginReplacement(std::string_view path, ReplaceMode mode);

}  // namespace lwconfig::platform
