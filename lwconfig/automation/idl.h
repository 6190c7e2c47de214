#pragma once

#include <string>

namespace lwconfig::automation {

/// What the type library says of itself.
inline constexpr const char* kLibraryName = "LWConfigObjects";
inline constexpr const char* kLibraryVersion = "1.0";
inline constexpr const char* kLibraryDescription = "The configuration object model of Lexiwend";

/// The interface description of the whole library: the IDL text of the type library "LWConfigObjects", with
/// every enumeration, class, interface and source of events that is published.
std::string InterfaceDescription();

}  // namespace lwconfig::automation
