#pragma once

#include <memory>

#include <lwconfig/automation/class_info.h>

namespace lwconfig::automation {

/// A namespace provider with the members of a foreign object: C++ and every other face can call an
/// implementation of one face.
std::shared_ptr<void> ImplementProvider(Implementation implementation);

}  // namespace lwconfig::automation
