#pragma once

#include <functional>
#include <string>

namespace lwconfig::platform {

enum class MessageIcon { None = 0, Critical = 16, Question = 32, Exclamation = 48, Information = 64 };

struct Message {
  std::string Title;
  std::string Text;
  MessageIcon Icon = MessageIcon::None;
};

using MessageBoxHandler = std::function<void(const Message&)>;

/// Shows a modal message through the host's handler. Without a handler and a user interface, writes one line
/// to standard error: the title, a colon and the text, line breaks replaced by blanks.
void ShowMessage(const Message& message);

/// Sets the handler that shows messages, an empty one for the default. Returns the previous handler.
MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler);

}  // namespace lwconfig::platform
