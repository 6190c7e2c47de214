#include <utility>

#include <lwconfig/platform/message_box.h>

#include "system.h"

namespace lwconfig::platform {
namespace {

MessageBoxHandler& Handler() {
  static MessageBoxHandler handler;
  return handler;
}

}  // namespace

void ShowMessage(const Message& message) {
  // A copy, because the handler may set another one.
  if (const MessageBoxHandler handler = Handler()) return handler(message);
  // The numbers of the icons are the system's.
  const UINT style = MB_OK | MB_TASKMODAL | static_cast<UINT>(message.Icon);
  ::MessageBoxW(nullptr, Wide(message.Text).c_str(), Wide(message.Title).c_str(), style);
}

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) {
  return std::exchange(Handler(), std::move(handler));
}

}  // namespace lwconfig::platform
