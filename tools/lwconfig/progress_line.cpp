#include <string>
#include <utility>

#include <tools/lwconfig/progress_line.h>
#include <tools/lwconfig/view/styled_text.h>

namespace lwconfig::tool {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kDelay{1000};
constexpr milliseconds kInterval{100};
constexpr std::string_view kErasedLine = "\r\x1b[K";

/// The last folder and the file; the folders before say little.
std::string ShortName(const DiskFile& file) {
  std::string path = file.FullPath();
  const std::size_t name = path.rfind('\\');
  if (name == std::string::npos || name == 0) return path;
  std::string shortName = path.substr(path.rfind('\\', name - 1) + 1);
  for (char& c : shortName) {
    if (c == '\\') c = '/';
  }
  return shortName;
}

}  // namespace

ProgressLine::ProgressLine(Terminal terminal)
    : mTerminal(std::move(terminal)), mNext(mTerminal.Now() + kDelay) {}

void ProgressLine::Show(const Progress& progress) {
  const Time now = mTerminal.Now();
  if (now < mNext) return;
  mNext = now + kInterval;
  const std::string text = "reading " + std::to_string(progress.Done + 1) + " of " +
                           std::to_string(progress.Total) + ": " + Printable(ShortName(progress.File));
  // One column stays free: a full line would make some terminals go on to the next.
  const auto line = Cut({{text}}, mTerminal.Columns - 1, mTerminal.IsUnicode ? "…" : "...");
  mTerminal.Write(std::string(kErasedLine) + Unpainted(line));
  mIsShown = true;
}

void ProgressLine::Erase() {
  if (std::exchange(mIsShown, false)) mTerminal.Write(kErasedLine);
}

}  // namespace lwconfig::tool
