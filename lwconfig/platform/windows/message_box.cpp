#include <lwconfig/platform/internal/host_defaults.h>

#include "system.h"

namespace lwconfig::platform {

void ShowHostMessage(const Message& message) {
  // The numbers of the icons are the system's.
  const UINT style = MB_OK | MB_TASKMODAL | static_cast<UINT>(message.Icon);
  ::MessageBoxW(nullptr, Wide(message.Text).c_str(), Wide(message.Title).c_str(), style);
}

}  // namespace lwconfig::platform
