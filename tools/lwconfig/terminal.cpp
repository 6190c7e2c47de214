#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <sys/ioctl.h>
#include <tools/lwconfig/terminal.h>
#include <unistd.h>

#include <lwconfig/core/base/text.h>

namespace lwconfig::tool {
namespace {

constexpr std::size_t kDefaultColumns = 80;
constexpr std::size_t kLeastColumns = 20;

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// Read from the environment rather than asked of the C library: a locale that is not installed here still
/// says what the terminal shows.
bool IsUnicodeLocale() {
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const auto locale = Environment(name);
    if (!locale.empty()) return ContainsIgnoringCase(locale, "UTF-8") || ContainsIgnoringCase(locale, "UTF8");
  }
  return false;
}

std::size_t TerminalColumns(int descriptor) {
  const auto named = std::strtoul(std::string(Environment("COLUMNS")).c_str(), nullptr, 10);
  if (named >= kLeastColumns) return named;
  winsize size{};
  if (::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
    return std::max<std::size_t>(size.ws_col, kLeastColumns);
  return kDefaultColumns;
}

/// Whether all could be written.
bool WriteAll(std::string_view text, Reporter& reporter) {
  reporter.EraseProgress();
  while (!text.empty()) {
    const auto written = ::write(STDOUT_FILENO, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EPIPE) {
      return false;  // the reader has what it wants
    } else if (errno != EINTR) {
      reporter.Fail(ExitStatus::InputOutput,
                    std::string("the output could not be written: ") + std::strerror(errno));
      return false;
    }
  }
  return true;
}

}  // namespace

TextStyle OutputStyle(std::string_view colour, std::size_t columns) {
  const bool isTerminal = ::isatty(STDOUT_FILENO) == 1;
  const bool mayColour = isTerminal && Environment("NO_COLOR").empty() && Environment("TERM") != "dumb";
  const auto depth = Environment("COLORTERM");
  TextStyle style;
  style.Columns = columns != 0 ? columns : isTerminal ? TerminalColumns(STDOUT_FILENO) : 0;
  style.IsUnicode = IsUnicodeLocale();
  style.IsColoured = colour == "always" || (colour != "never" && mayColour);
  style.IsTrueColour = style.IsColoured && (depth == "truecolor" || depth == "24bit");
  return style;
}

std::unique_ptr<ProgressLine> ErrorTerminal() {
  if (::isatty(STDERR_FILENO) != 1 || Environment("TERM") == "dumb") return nullptr;
  const auto write = [](std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
  };
  return std::make_unique<ProgressLine>(ProgressLine::Terminal{
      write, std::chrono::steady_clock::now, TerminalColumns(STDERR_FILENO), IsUnicodeLocale()});
}

void WriteOutput(std::string_view text, Reporter& reporter) {
  WriteAll(text, reporter);
}

Sink OutputSink(Reporter& reporter) {
  return [&reporter, isOpen = true](std::string_view text) mutable {
    isOpen = isOpen && WriteAll(text, reporter);
  };
}

}  // namespace lwconfig::tool
