#pragma once

#include <lwconfig/core/disk_file.h>
#include <lwconfig/core/keyed_collection.h>

namespace lwconfig {

/// The files of a folder listing, as callers get them, without keys.
class DiskFiles : public KeyedCollection<DiskFile>, public Counted<DiskFiles> {
 public:
  static constexpr const char* kClassName = "DiskFiles";
};

}  // namespace lwconfig
