#pragma once

#include <memory>

#include <lwconfig/automation/class_info.h>

namespace lwconfig::automation {

/// A namespace provider with somebody else's members: what another face implements becomes one that C++ and
/// every other face can call.
std::shared_ptr<void> ImplementProvider(Implementation implementation);

}  // namespace lwconfig::automation
