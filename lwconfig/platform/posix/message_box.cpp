#include <cstdio>
#include <string>

#include <lwconfig/platform/internal/host_defaults.h>

namespace lwconfig::platform {
namespace {

std::string OnOneLine(const std::string& text) {
  std::string line;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    line += text[i] == '\r' || text[i] == '\n' ? ' ' : text[i];
  }
  return line;
}

}  // namespace

void ShowHostMessage(const Message& message) {
  const std::string line = OnOneLine(message.Title + ": " + message.Text) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace lwconfig::platform
