#pragma once

#include <string>

#include <tools/lwconfig/command.h>

namespace lwconfig::tool {

/// The manual page of the program with all its commands, for man(1).
std::string ManualPage(const Command& program);

}  // namespace lwconfig::tool
