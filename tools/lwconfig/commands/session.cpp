#include <array>
#include <string>

#include <tools/lwconfig/command_source.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/file_argument.h>
#include <tools/lwconfig/session_interpreter.h>
#include <tools/lwconfig/terminal.h>

#include <lwconfig/core/files/text_encoding.h>

namespace lwconfig::tool {
namespace {

void Run(const Arguments& arguments, Reporter& reporter) {
  const std::string file = arguments.Text("FILE");
  const std::string text = DecodeText(ReadSource(file));
  CommandSource source{SourceName(file), text, {}};
  ObjectModel model(reporter);
  SessionInterpreter session(model);
  RunReported(reporter, source, [&] {
    WordReader reader(text);
    while (reader.Next(source.Command)) {
      std::vector<std::string> words;
      for (const Word& word : source.Command) words.push_back(word.Text);
      WriteOutput(session.Run(words), reporter);
    }
  });
}

constexpr std::array kParameters{Parameter{
    .Name = "FILE", .About = "the commands; - for standard input", .Form = Form::Path, .IsRequired = true}};

}  // namespace

constexpr Command kSessionCommand{
    .Name = "session",
    .About = "Runs commands on objects of their own, and tells of each.",
    .Parameters = kParameters,
    .Run = Run,
    .IsHidden = true,
};

}  // namespace lwconfig::tool
