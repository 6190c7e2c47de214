#pragma once

#include <string>

namespace lwconfig::automation {

/// The interface description of the whole library: the IDL text of the type library "LWConfigObjects", with
/// every enumeration, class, interface and source of events that is published.
std::string InterfaceDescription();

}  // namespace lwconfig::automation
