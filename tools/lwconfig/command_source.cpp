#include <tools/lwconfig/command_source.h>

#include <lwconfig/core/base/unicode.h>

namespace lwconfig::tool {
namespace {

/// The place of the error in the text of the source: in its word, else at the start of the command.
std::size_t OffsetOf(const PathError& error, const CommandSource& source) {
  if (error.Word() == source.Text) return error.Offset();
  for (const Word& word : source.Command) {
    // The value of MEMBER=VALUE and the path after @ are ends of words.
    if (error.Word().empty() || !word.Text.ends_with(error.Word())) continue;
    return word.Offset(word.Text.size() - error.Word().size() + error.Offset());
  }
  return source.Command.empty() ? 0 : source.Command.front().Offset(0);
}

FilePosition PositionOf(std::size_t offset, const CommandSource& source) {
  const auto [line, column] = PlaceOf(source.Text, offset);
  return {source.Name, line, column};
}

/// The exit status of an error, and the advice of the command for it.
struct Handling {
  ExitStatus Status;
  const char* Advice = "";
};

Handling HandlingOf(PathErrorKind kind) {
  switch (kind) {
    case PathErrorKind::IsMethod:
      return {ExitStatus::Usage, "; 'lwconfig call' calls it"};
    case PathErrorKind::IsProperty:
      return {ExitStatus::Usage, "; 'lwconfig get' reads it"};
    case PathErrorKind::NotFound:
      return {ExitStatus::NotFound};
    case PathErrorKind::Invalid:
      return {ExitStatus::Invalid};
    case PathErrorKind::Usage:
      break;
  }
  return {ExitStatus::Usage};
}

}  // namespace

void RunReported(Reporter& reporter, const CommandSource& source, const std::function<void()>& body) {
  try {
    body();
  } catch (const PathError& error) {
    const auto [status, advice] = HandlingOf(error.Kind());
    std::string text = error.what() + std::string(advice);
    FilePosition position;
    if (!source.Name.empty()) {
      position = PositionOf(OffsetOf(error, source), source);
    } else if (!error.Word().empty() && error.Offset() > 0) {
      const std::size_t column = CountCharacters(error.Word().substr(0, error.Offset())) + 1;
      text = "column " + std::to_string(column) + " of '" + error.Word() + "': " + text;
    }
    reporter.FailAt(status, position, text, error.Existing());
  } catch (const Error& failure) {
    reporter.Fail(failure);
    if (!source.Name.empty() && !source.Command.empty())
      reporter.FailAt(ExitStatus::Done, PositionOf(source.Command.front().Offset(0), source),
                      "the command here failed");
  }
}

}  // namespace lwconfig::tool
