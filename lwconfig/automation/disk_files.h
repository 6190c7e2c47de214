#pragma once

#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/files/disk_file.h>

namespace lwconfig {

/// The files of a folder listing as a collection without keys.
class DiskFiles : public KeyedCollection<DiskFile>, public Counted<DiskFiles> {
 public:
  static constexpr const char* kClassName = "DiskFiles";
};

}  // namespace lwconfig
