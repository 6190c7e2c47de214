#include <tools/lwconfig/members/report.h>

#include <lwconfig/core/base/unicode.h>

namespace lwconfig::tool {
namespace {

/// Where the fault is in the text of the source: at the word that has it, else at the command.
std::size_t OffsetOf(const Fault& fault, const CommandSource& source) {
  if (fault.Word() == source.Text) return fault.Offset();
  for (const Word& word : source.Command) {
    // The value of MEMBER=VALUE and the path after @ are ends of words.
    if (fault.Word().empty() || !word.Text.ends_with(fault.Word())) continue;
    return word.Offset(word.Text.size() - fault.Word().size() + fault.Offset());
  }
  return source.Command.empty() ? 0 : source.Command.front().Offset(0);
}

FilePosition PositionOf(std::size_t offset, const CommandSource& source) {
  const auto [line, column] = PlaceOf(source.Text, offset);
  return {source.Name, line, column};
}

}  // namespace

void WithFaults(Reporter& reporter, const CommandSource& source, const std::function<void()>& body) {
  try {
    body();
  } catch (const Fault& fault) {
    if (!source.Name.empty())
      return reporter.FailAt(fault.Status(), PositionOf(OffsetOf(fault, source), source), fault.what(),
                             fault.Existing());
    std::string text = fault.what();
    if (!fault.Word().empty() && fault.Offset() > 0) {
      const std::size_t column = CountCharacters(fault.Word().substr(0, fault.Offset())) + 1;
      text = "column " + std::to_string(column) + " of '" + fault.Word() + "': " + text;
    }
    reporter.FailAt(fault.Status(), {}, text, fault.Existing());
  } catch (const Error& failure) {
    reporter.Fail(failure);
    if (!source.Name.empty() && !source.Command.empty())
      reporter.FailAt(ExitStatus::Done, PositionOf(source.Command.front().Offset(0), source),
                      "the command here failed");
  }
}

}  // namespace lwconfig::tool
