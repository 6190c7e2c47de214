#pragma once

#include <lwconfig/core/files/disk_file.h>

namespace lwconfig {

/// Damaged files: files that are not well-formed, and files with an element that cannot be loaded. They load
/// as far as they can be read. Saving them would lose the rest, so the process remembers them and keeps a
/// copy before the first save.

/// Records whether the file was read in part or not at all.
void NoteDamage(const DiskFile& file, bool isDamaged);
/// Copies a remembered file that is about to be rewritten to "<file name>.damaged" beside it, or "-2", "-3"
/// and so on where that name is taken, and forgets it. Does nothing for any other file.
void KeepDamagedFile(const DiskFile& file);

}  // namespace lwconfig
