#pragma once

#include <memory>
#include <string>

#include <lwconfig/platform/files.h>

namespace lwconfig::platform {

/// How to proceed while another replacement of the same file is under way.
enum class WhenBusy { Fail, Wait };

/// Begins to replace the file at `hostPath` or, for a symbolic link, its target. The new content is collected
/// in a hidden file beside the target. Its name is always the same and its lock excludes every other
/// replacement, so that the lock holder may read the old content, change it and write it back. A process that
/// dies leaves at most one hidden file, which the next replacement takes over. Throws `std::system_error`;
/// EBUSY while another replacement is under way and `whenBusy` is `Fail`.
std::unique_ptr<FileReplacement> BeginReplacement(const std::string& hostPath, WhenBusy whenBusy);

/// Begins in the same way a new file that replaces any entry at `hostPath` itself, unless that is a folder,
/// with the owner and permissions of the file at `model`.
std::unique_ptr<FileReplacement> BeginSuperseding(const std::string& hostPath, const std::string& model);

}  // namespace lwconfig::platform
