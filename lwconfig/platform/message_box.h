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

/// Shows a modal message through the host's handler. Without one, and without a user interface, it is one
/// line on standard error: the title, a colon and the text, line breaks turned into blanks.
void ShowMessage(const Message& message);

/// Sets the handler that shows messages, an empty one for the default; returns the one that was set before.
MessageBoxHandler SetMessageBoxHandler(MessageBoxHandler handler);

}  // namespace lwconfig::platform
