#include <algorithm>
#include <set>
#include <string>

#include <tools/lwconfig/commands/check_report.h>
#include <tools/lwconfig/view/styled_text.h>

#include <lwconfig/core/files/disk_file.h>

namespace lwconfig::tool {
namespace {

std::string Counted(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string Line(const StyledText& line, const TextStyle& style) {
  return (style.IsColoured ? Painted(line, style.IsTrueColour) : Unpainted(line)) + "\n";
}

/// "place: severity: message [code]".
StyledText Styled(const FilePosition& position, Problem problem, const std::string& message) {
  const ProblemKind& kind = KindOf(problem);
  return {{PlaceText(position), Tone::Title},
          {SeverityName(kind.Severity), kind.Severity == Severity::Error ? Tone::Alarm : Tone::Condition},
          {": " + Printable(message) + " "},
          {std::string("[") + kind.Code + "]", Tone::Quiet}};
}

Json JsonOf(const Diagnostic& problem) {
  const ProblemKind& kind = KindOf(problem.Problem);
  const FilePosition& position = problem.Position;
  Json json = {{"File", position.File.empty() ? std::string() : NativePath(position.File)},
               {"Line", position.Line},
               {"Column", position.Column},
               {"Severity", SeverityName(kind.Severity)},
               {"Code", kind.Code},
               {"Message", problem.Message}};
  if (!problem.Suggestion.empty()) json["Suggestion"] = problem.Suggestion;
  if (!problem.ModelPath.empty()) json["Path"] = problem.ModelPath;
  return json;
}

}  // namespace

std::string CheckReport::Text(const TextStyle& style) const {
  std::string text;
  for (const Diagnostic& problem : mResult.Problems) {
    std::string message = problem.Message;
    if (!problem.Suggestion.empty()) message += "; did you mean \"" + problem.Suggestion + "\"?";
    text += Line(Styled(problem.Position, problem.Problem, message), style);
  }
  return text + Summary() + "\n";
}

std::string CheckReport::Summary() const {
  std::size_t errors = 0;
  std::size_t warnings = 0;
  std::set<std::string_view> affected;
  for (const Diagnostic& problem : mResult.Problems) {
    const bool isError = KindOf(problem.Problem).Severity == Severity::Error;
    (isError ? errors : warnings) += static_cast<std::size_t>(problem.Count);
    affected.insert(problem.Position.File);
  }
  if (affected.empty()) return Counted(mResult.Files, "file") + ": no problems";
  std::string found;
  if (errors > 0) found = Counted(errors, "error");
  if (warnings > 0) found += (found.empty() ? "" : ", ") + Counted(warnings, "warning");
  // A missing folder counts as one of the files.
  return found + " in " + std::to_string(affected.size()) + " of " +
         Counted(std::max(mResult.Files, affected.size()), "file");
}

Json CheckReport::ToJson() const {
  Json list = Json::array();
  for (const Diagnostic& problem : mResult.Problems) list.push_back(JsonOf(problem));
  return list;
}

ExitStatus CheckReport::Status() const {
  ExitStatus status = ExitStatus::Done;
  for (const Diagnostic& problem : mResult.Problems) {
    const bool isOfFiles =
        problem.Problem == Problem::UnreadableFile || problem.Problem == Problem::MissingFolder;
    if (isOfFiles) return ExitStatus::InputOutput;
    if (KindOf(problem.Problem).Severity == Severity::Error) status = ExitStatus::Invalid;
  }
  return status;
}

}  // namespace lwconfig::tool
