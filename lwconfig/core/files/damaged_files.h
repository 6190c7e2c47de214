#pragma once

#include <lwconfig/core/files/disk_file.h>

namespace lwconfig {

/// Files that are not well-formed, or of which an element cannot be loaded, load as far as they can be read.
/// Saving what was loaded would then lose the rest, so the process remembers them and keeps a copy before the
/// first save.

/// Remembers whether the file was read in part only, or not at all.
void NoteDamage(const DiskFile& file, bool isDamaged);
/// Copies a remembered file that is about to be rewritten to "<file name>.damaged" beside it, or "-2", "-3"
/// and so on where that name is taken, and forgets it. Does nothing for any other file.
void KeepDamagedFile(const DiskFile& file);

}  // namespace lwconfig
