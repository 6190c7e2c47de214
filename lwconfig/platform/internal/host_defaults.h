#pragma once

#include <memory>
#include <string_view>

#include <lwconfig/platform/components.h>
#include <lwconfig/platform/message_box.h>

namespace lwconfig::platform {

/// What the host does where nobody has put anything else in its place; each system has its own.

/// The system's component of that name; null where it has none.
std::unique_ptr<Component> CreateHostComponent(std::string_view progId);

void ShowHostMessage(const Message& message);

}  // namespace lwconfig::platform
