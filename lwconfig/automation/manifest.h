#pragma once

#include <string>

namespace lwconfig::automation {

/// The manifest of the side-by-side assembly "LWConfigObjects.X", which is installed beside the server: a
/// program whose own manifest depends on it creates the classes without any registration. Of the 64-bit
/// server, and of the 32-bit one.
std::string Manifest64();
std::string Manifest32();

}  // namespace lwconfig::automation
