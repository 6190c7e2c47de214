#include <algorithm>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>

#include <tools/lwconfig/check/report.h>
#include <tools/lwconfig/view/styled_text.h>

#include <lwconfig/core/files/disk_file.h>

namespace lwconfig::tool {
namespace {

const char* NameOf(Severity severity) {
  return severity == Severity::Error ? "error" : "warning";
}

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
          {NameOf(kind.Severity), kind.Severity == Severity::Error ? Tone::Alarm : Tone::Condition},
          {": " + Printable(message) + " "},
          {std::string("[") + kind.Code + "]", Tone::Quiet}};
}

std::string RestText(const Inspection::Rest& rest) {
  return "and " + std::to_string(rest.Count) + " more of this kind";
}

Json JsonOf(const FilePosition& position, Problem problem, const std::string& message) {
  const ProblemKind& kind = KindOf(problem);
  return {{"File", position.File.empty() ? std::string() : NativePath(position.File)},
          {"Line", position.Line},
          {"Column", position.Column},
          {"Severity", NameOf(kind.Severity)},
          {"Code", kind.Code},
          {"Message", message}};
}

}  // namespace

void Report::Close(const Inspection& inspection) {
  mFiles = inspection.Files().size();
  mRests = inspection.Rests();
  std::unordered_map<std::string, std::size_t> order;
  for (const std::string& file : inspection.Files()) order.emplace(file, order.size() + 1);
  const auto key = [&](const Diagnostic& problem) {
    const auto file = order.find(problem.Position.File);
    return std::tuple(file != order.end() ? file->second : 0, problem.Position.Line, problem.Position.Column);
  };
  std::ranges::stable_sort(mProblems, {}, key);
}

std::string Report::Text(const TextStyle& style) const {
  std::string text;
  auto rest = mRests.begin();
  for (std::size_t at = 0; at < mProblems.size(); ++at) {
    const Diagnostic& problem = mProblems[at];
    std::string message = problem.Message;
    if (!problem.Suggestion.empty()) message += "; did you mean \"" + problem.Suggestion + "\"?";
    text += Line(Styled(problem.Position, problem.Problem, message), style);
    const std::string& file = problem.Position.File;
    if (at + 1 < mProblems.size() && mProblems[at + 1].Position.File == file) continue;
    for (; rest != mRests.end() && rest->File == file; ++rest)
      text += Line(Styled({rest->File, 0, 0}, rest->Problem, RestText(*rest)), style);
  }
  return text + Summary() + "\n";
}

std::string Report::Summary() const {
  std::size_t errors = 0;
  std::size_t warnings = 0;
  const auto count = [&](Problem problem, std::size_t times) {
    (KindOf(problem).Severity == Severity::Error ? errors : warnings) += times;
  };
  std::set<std::string_view> affected;
  for (const Diagnostic& problem : mProblems) {
    count(problem.Problem, 1);
    affected.insert(problem.Position.File);
  }
  for (const auto& rest : mRests) count(rest.Problem, static_cast<std::size_t>(rest.Count));
  if (affected.empty()) return Counted(mFiles, "file") + ": no problems";
  std::string found;
  if (errors > 0) found = Counted(errors, "error");
  if (warnings > 0) found += (found.empty() ? "" : ", ") + Counted(warnings, "warning");
  // A missing folder counts as one of the files.
  return found + " in " + std::to_string(affected.size()) + " of " +
         Counted(std::max(mFiles, affected.size()), "file");
}

Json Report::ToJson() const {
  Json list = Json::array();
  for (const Diagnostic& problem : mProblems) {
    list.push_back(JsonOf(problem.Position, problem.Problem, problem.Message));
    if (!problem.Suggestion.empty()) list.back()["Suggestion"] = problem.Suggestion;
  }
  for (const auto& rest : mRests) list.push_back(JsonOf({rest.File, 0, 0}, rest.Problem, RestText(rest)));
  return list;
}

ExitStatus Report::Status() const {
  ExitStatus status = ExitStatus::Done;
  for (const Diagnostic& problem : mProblems) {
    const bool isOfFiles =
        problem.Problem == Problem::UnreadableFile || problem.Problem == Problem::MissingFolder;
    if (isOfFiles) return ExitStatus::InputOutput;
    if (KindOf(problem.Problem).Severity == Severity::Error) status = ExitStatus::Invalid;
  }
  return status;
}

}  // namespace lwconfig::tool
