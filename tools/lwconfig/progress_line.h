#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string_view>

#include <lwconfig/core/loading/progress.h>

namespace lwconfig::tool {

/// One line on a terminal that tells what is being read, rewritten in place. It appears once its command has
/// run for a second, and changes at most ten times a second.
class ProgressLine {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// What it is shown on and the clock it goes by.
  struct Terminal {
    std::function<void(std::string_view)> Write;
    std::function<Time()> Now;
    std::size_t Columns;
    bool IsUnicode;
  };

  /// The time starts to run now.
  explicit ProgressLine(Terminal terminal);
  ~ProgressLine() { Erase(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Show(const Progress& progress);
  /// Leaves the terminal as it was. Has to be called before anything else is written to it.
  void Erase();

 private:
  Terminal mTerminal;
  Time mNext;
  bool mIsShown = false;
};

}  // namespace lwconfig::tool
