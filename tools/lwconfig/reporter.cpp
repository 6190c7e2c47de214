#include <algorithm>
#include <cstdio>

#include <tools/lwconfig/reporter.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/styled_text.h>

#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/file_error.h>

namespace lwconfig::tool {
namespace {

constexpr std::size_t kNamesListed = 10;

/// A path in the product's notation as the host has it; a failure of the host's own names the host's path.
std::string HostPath(const std::string& path) {
  return path.find('\\') != std::string::npos ? NativePath(path) : path;
}

bool IsFileError(std::int32_t number) {
  return number == kFileNotFound || number == kPermissionDenied || number == kPathFileAccess ||
         number == kPathNotFound;
}

}  // namespace

std::string PlaceText(const FilePosition& position) {
  if (position.File.empty()) return "lwconfig: ";
  std::string place = Printable(HostPath(position.File)) + ":";
  if (position.Line > 0) place += std::to_string(position.Line) + ":" + std::to_string(position.Column) + ":";
  return place + " ";
}

Reporter::Reporter()
    : mPreviousDiagnosticHandler(SetDiagnosticHandler([this](const Diagnostic& told) { Warn(told); })),
      mPreviousMessageBoxHandler(
          platform::SetMessageBoxHandler([this](const platform::Message& shown) { Warn(shown); })),
      mPreviousProgressHandler(SetProgressHandler({})),
      mProgress(ErrorTerminal()) {
  if (mProgress) SetProgressHandler([this](const Progress& told) { mProgress->Show(told); });
}

Reporter::~Reporter() {
  SetDiagnosticHandler(std::move(mPreviousDiagnosticHandler));
  platform::SetMessageBoxHandler(std::move(mPreviousMessageBoxHandler));
  SetProgressHandler(std::move(mPreviousProgressHandler));
}

void Reporter::WriteLine(const std::string& text) {
  if (mIsQuiet) return;
  EraseProgress();
  std::fputs((text + "\n").c_str(), stderr);
}

void Reporter::EraseProgress() {
  if (mProgress) mProgress->Erase();
}

void Reporter::Note(std::string_view text) {
  WriteLine("lwconfig: note: " + Printable(text));
}

void Reporter::Fail(const Error& failure) {
  WriteLine(PlaceText(failure.Position()) + "error: " + Printable(failure.Description()));
  Raise(IsFileError(failure.Number()) ? ExitStatus::InputOutput : ExitStatus::Invalid);
}

void Reporter::Fail(ExitStatus status, std::string_view text) {
  FailAt(status, {}, text);
}

void Reporter::FailUnknown(ExitStatus status, std::string_view wanted, std::vector<std::string> existing,
                           const std::vector<std::string>& otherNames) {
  const std::string suggestion = Suggestion(wanted, existing, otherNames);
  FailAt(status, {}, "there is no '" + std::string(wanted) + "'" + suggestion, existing);
}

void Reporter::FailAt(ExitStatus status, const FilePosition& position, std::string_view text,
                      const std::vector<std::string>& existing) {
  WriteLine(PlaceText(position) + "error: " + Printable(text));
  Raise(status);
  if (!existing.empty()) WriteLine("What there is:");
  for (std::size_t at = 0; at < std::min(existing.size(), kNamesListed); ++at) {
    WriteLine("  " + Printable(existing[at]));
  }
  if (existing.size() > kNamesListed)
    WriteLine("  and " + std::to_string(existing.size() - kNamesListed) + " more");
}

void Reporter::Raise(ExitStatus status) {
  mIsClean = mIsClean && status == ExitStatus::Done;
  if (!mIsQuiet) mStatus = std::max(mStatus, status);
}

void Reporter::Warn(const Diagnostic& diagnostic) {
  const bool isError = KindOf(diagnostic.Problem).Severity == Severity::Error;
  WriteLine(PlaceText(diagnostic.Position) + (isError ? "error: " : "warning: ") +
            Printable(diagnostic.Message));
  mIsClean = false;
  if (isError) Raise(ExitStatus::Invalid);
}

void Reporter::Warn(const platform::Message& message) {
  WriteLine("lwconfig: warning: " + Printable(message.Title + ": " + message.Text));
  // The texts are fixed and name a folder in the product's notation, in single quotes.
  const auto begin = message.Text.find('\'') + 1;
  const std::string path = message.Text.substr(begin, message.Text.find('\'', begin) - begin);
  if (begin != 0 && HostPath(path) != path) Note("on this system the folder is " + HostPath(path));
  Raise(ExitStatus::Invalid);
}

}  // namespace lwconfig::tool
