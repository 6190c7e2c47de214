#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <tools/lwconfig/progress_line.h>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/paths/model_listener.h>
#include <lwconfig/platform/message_box.h>

namespace lwconfig::tool {

enum class ExitStatus {
  Done = 0,
  NotFound = 1,     // what was asked for does not exist, or what was compared differs
  Usage = 2,        // the command line asks for what cannot be done
  Invalid = 3,      // the configuration, or what was to become of it, is not valid
  InputOutput = 4,  // a file, a folder or the output could not be read or written
  Failure = 5,      // the program itself failed, such as for want of memory
};

/// "file:line:column: " as far as the place is known, else "lwconfig: "; the path is the host's.
std::string PlaceText(const FilePosition& position);

/// Tells the user on standard error what went wrong, one line each, and keeps the exit status: the highest of
/// those that apply. While it lives, the library's warnings and message boxes come here, and its progress
/// where standard error is a terminal.
class Reporter final : public ModelListener {
 public:
  Reporter();
  ~Reporter() override;
  Reporter(const Reporter&) = delete;
  Reporter& operator=(const Reporter&) = delete;

  /// Something to know that changes nothing.
  void Note(std::string_view text) override;
  /// A failure of the library: those of files are `InputOutput`, all others `Invalid`.
  void Fail(const Error& failure) override;
  void Fail(ExitStatus status, std::string_view text);
  /// `wanted` names nothing; lists the names that would, and suggests the nearest of these and of
  /// `otherNames`.
  void FailUnknown(ExitStatus status, std::string_view wanted, std::vector<std::string> existing,
                   const std::vector<std::string>& otherNames = {});
  /// Something wrong at a place in a file, or, where that has no name, in the command line. `existing` is
  /// what there is instead; ten names are shown.
  void FailAt(ExitStatus status, const FilePosition& position, std::string_view text,
              const std::vector<std::string>& existing = {});
  /// Whether there was neither a failure nor a warning.
  bool IsClean() const override { return mIsClean; }
  /// Raises the exit status and tells nothing.
  void Raise(ExitStatus status);

  /// Makes the terminal ready for output.
  void EraseProgress();
  /// Nothing is told, and the status stays as it is, from now on.
  void BeQuiet() { mIsQuiet = true; }

  ExitStatus Status() const { return mStatus; }

 private:
  void WriteLine(const std::string& text);
  void Warn(const Diagnostic& diagnostic);
  void Warn(const platform::Message& message);

  ExitStatus mStatus = ExitStatus::Done;
  bool mIsQuiet = false;
  bool mIsClean = true;
  DiagnosticHandler mPreviousDiagnosticHandler;
  platform::MessageBoxHandler mPreviousMessageBoxHandler;
  ProgressHandler mPreviousProgressHandler;
  std::unique_ptr<ProgressLine> mProgress;  // null where nobody would see it
};

}  // namespace lwconfig::tool
