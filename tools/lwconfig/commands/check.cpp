#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/check/check.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

namespace lwconfig::tool {
namespace {

struct CheckArguments {
  std::string Folder;
  bool IsJson = false;
  std::string Colour = "auto";
};

constexpr const char* kFooter =
    R"(Reads the whole configuration, does not stop at the first problem, changes nothing, and prints a line for
each problem:
  file:line:column: severity: message [code]
An error is what loading rejects; a warning is what it accepts and a person would want to know. Of one kind,
20 problems of a file are shown. check.md explains every code, with an example; it is installed in
share/doc/lwconfig, and is in docs/ of the sources.

Examples:
  lwconfig check                       the registered configuration, or else the starter
  lwconfig check --config ./share      the configuration in a folder
  lwconfig check --json | jq -r '.[] | select(.Severity == "error").File'

Exit status:
  0  no errors; there may be warnings
  3  there are errors
  4  a file or folder could not be read
)";

void Check(const CheckArguments& arguments, Reporter& reporter) {
  const Report report = CheckConfiguration(arguments.Folder, reporter);
  reporter.Raise(report.Status());
  WriteOutput(arguments.IsJson ? JsonText(report.ToJson()) : report.Text(OutputStyle(arguments.Colour, 0)),
              reporter);
}

}  // namespace

void AddCheckCommand(CLI::App& app, Reporter& reporter) {
  const auto arguments = std::make_shared<CheckArguments>();
  CLI::App& check = *app.add_subcommand("check", "Finds what is wrong with the configuration.");
  check.group("Commands");
  check.footer(kFooter);
  AddConfigurationOption(check, arguments->Folder);
  check.add_flag("-j,--json", arguments->IsJson, "print JSON, one object for each problem");
  AddColourOption(check, arguments->Colour);
  check.callback([arguments, &reporter] { Check(*arguments, reporter); });
}

}  // namespace lwconfig::tool
