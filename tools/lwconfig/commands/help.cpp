#include <array>

#include <tools/lwconfig/command_line.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/manual_page.h>
#include <tools/lwconfig/terminal.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter = R"(Examples:
  lwconfig help
  lwconfig help show
  lwconfig help registry set
)";

void Run(const Arguments& arguments, Reporter& reporter) {
  if (arguments.Has("--manual-page")) return WriteOutput(ManualPage(kProgram), reporter);
  if (const auto help = HelpText(kProgram, arguments.Texts("COMMAND"), reporter))
    WriteOutput(*help, reporter);
}

constexpr std::array kParameters{
    Parameter{.Name = "COMMAND", .About = "the command, and its action", .Most = kAnyNumber},
    Parameter{.Name = "--manual-page", .About = "print the manual page", .Excludes = "COMMAND"},
};

}  // namespace

constexpr Command kHelpCommand{
    .Name = "help",
    .About = "Prints this help, or that of a command.",
    .Help = kFooter,
    .Parameters = kParameters,
    .Run = Run,
};

}  // namespace lwconfig::tool
