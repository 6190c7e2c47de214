#include <array>
#include <string>

#include <tools/lwconfig/check/check.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter =
    R"(Reads the whole configuration, does not stop at the first problem, changes nothing, and prints a line for
each problem:
  file:line:column: severity: message [code]
An error is what loading rejects; a warning is what it accepts and a person would want to know. Of one kind,
20 problems of a file are shown. docs/check.md explains every code, with an example.

Examples:
  lwconfig check                       the registered configuration, or else the starter
  lwconfig check --config ./share      the configuration in a folder
  lwconfig check --json | jq -r '.[] | select(.Severity == "error").File'

Exit status:
  0  no errors; there may be warnings
  3  there are errors
  4  a file or folder could not be read
)";

void Check(const Arguments& arguments, Reporter& reporter) {
  const Report report = CheckConfiguration(arguments.Text("--config"), reporter);
  reporter.Raise(report.Status());
  WriteOutput(arguments.Has("--json") ? JsonText(report.ToJson())
                                      : report.Text(OutputStyle(arguments.Text("--color"), 0)),
              reporter);
}

constexpr std::array kParameters{
    kConfigurationOption,
    Parameter{.Name = "-j,--json", .About = "print JSON, one object for each problem"},
    kColourOption,
};

}  // namespace

constexpr Command kCheckCommand{
    .Name = "check",
    .About = "Finds what is wrong with the configuration.",
    .Help = kFooter,
    .Parameters = kParameters,
    .Run = Check,
};

}  // namespace lwconfig::tool
