#pragma once

#include <string>

namespace lwconfig::automation {

/// The attributes of the type library itself.
inline constexpr const char* kLibraryName = "LWConfigObjects";
inline constexpr const char* kLibraryVersion = "1.0";
inline constexpr const char* kLibraryDescription = "The configuration object model of Lexiwend";

/// The interface description of the whole library: the IDL text of the type library "LWConfigObjects", with
/// every published enumeration, class, interface and source of events.
std::string InterfaceDescription();

}  // namespace lwconfig::automation
