#include <utility>

#include <lwconfig/platform/internal/host_defaults.h>
#include <lwconfig/platform/message_box.h>

namespace lwconfig::platform {
namespace {

MessageBoxHandler& Handler() {
  static MessageBoxHandler handler;
  return handler;
}

}  // namespace

void ShowMessage(const Message& message) {
  // Copy the handler: it may set another one.
  if (const MessageBoxHandler handler = Handler()) return handler(message);
  ShowHostMessage(message);
}

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) {
  return std::exchange(Handler(), std::move(handler));
}

}  // namespace lwconfig::platform
