#pragma once

#include <memory>
#include <string_view>

#include <lwconfig/platform/components.h>
#include <lwconfig/platform/message_box.h>

namespace lwconfig::platform {

/// The host's default behaviour, where no replacement is set; each system has its own.

/// The system's component of that name; null where it has none.
std::unique_ptr<Component> CreateHostComponent(std::string_view progId);

void ShowHostMessage(const Message& message);

}  // namespace lwconfig::platform
