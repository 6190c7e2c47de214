#include <cstdio>
#include <utility>

#include <lwconfig/platform/message_box.h>

namespace lwconfig::platform {
namespace {

MessageBoxHandler& Handler() {
  static MessageBoxHandler handler;
  return handler;
}

std::string OnOneLine(const std::string& text) {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    line += text[i] == '\r' || text[i] == '\n' ? ' ' : text[i];
  }
  return line;
}

}  // namespace

void ShowMessage(const Message& message) {
  // A copy, because the handler may set another one.
  if (const MessageBoxHandler handler = Handler()) return handler(message);
  const std::string line = OnOneLine(message.Title + ": " + message.Text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler) {
  return std::exchange(Handler(), std::move(handler));
}

}  // namespace lwconfig::platform
