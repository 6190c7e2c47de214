#include <array>
#include <string>

#include <tools/lwconfig/commands/check_report.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

#include <lwconfig/checking/check_configuration.h>

namespace lwconfig::tool {
namespace {

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

/// The folder to check; empty for the registered configuration.
std::string FolderToCheck(const Arguments& arguments, Reporter& reporter) {
  try {
    return ChosenFolder(arguments.Text("--config"), reporter);
  } catch (const Error&) {
    return {};  // the registry cannot be read, which the check reports
  }
}

CheckResult Checked(const std::string& folder) {
  try {
    return CheckConfiguration(folder);
  } catch (const Error& failure) {
    if (failure.Number() != kPathNotFound) throw;
    return {{{failure.Position(), failure.Description(), Problem::MissingFolder}}, 0};
  }
}

void Check(const Arguments& arguments, Reporter& reporter) {
  const CheckReport report(Checked(FolderToCheck(arguments, reporter)));
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
