#pragma once

#include <cstdint>
#include <string>

#include <lwconfig/platform/service.h>

namespace lwconfig::platform {

/// The host's well-known folders, in the product's notation.
class Folders {
 public:
  virtual ~Folders() = default;
  static Folders& Native();

  /// The user's folder with the given shell folder identifier (5 = documents), created when missing.
  /// Empty when the host has no such folder or it cannot be created.
  virtual std::string ShellFolder(std::int32_t csidl) = 0;
  /// The operating system's folder, without trailing backslash.
  virtual std::string WindowsFolder() = 0;
};

}  // namespace lwconfig::platform
