#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/members/report.h>
#include <tools/lwconfig/members/session.h>
#include <tools/lwconfig/terminal.h>

namespace lwconfig::tool {
namespace {

void Run(const std::string& file, Reporter& reporter) {
  const std::string text = SourceText(file);
  CommandSource source{file, text, {}};
  Model model(reporter);
  Session session(model);
  WithFaults(reporter, source, [&] {
    WordReader reader(text);
    while (reader.Next(source.Command)) {
      std::vector<std::string> words;
      for (const Word& word : source.Command) words.push_back(word.Text);
      WriteOutput(session.Run(words), reporter);
    }
  });
}

}  // namespace

void AddSessionCommand(CLI::App& app, Reporter& reporter) {
  const auto file = std::make_shared<std::string>();
  CLI::App& command =
      *app.add_subcommand("session", "Runs commands on objects of their own, and tells of each.");
  command.group("");
  command.add_option("FILE", *file, "the commands; - for standard input")->required()->type_name("");
  command.callback([file, &reporter] { Run(*file, reporter); });
}

}  // namespace lwconfig::tool
