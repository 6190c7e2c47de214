#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/application.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/reporter.h>
#include <tools/lwconfig/terminal.h>

namespace lwconfig::tool {
namespace {

constexpr std::array kCommands{
    AddShowCommand,    AddCheckCommand,    AddGetCommand,      AddListCommand,        AddEditCommands,
    AddOptionsCommand, AddPhraseCommand,   AddScrapCommand,    AddLinkCommand,        AddTemplateCommand,
    AddInitCommand,    AddRegistryCommand, AddDescribeCommand, AddCompletionCommands, AddSessionCommand};

constexpr const char* kFooter = R"(Examples:
  lwconfig show                        everything
  lwconfig show templates              the page templates alone
  lwconfig show --config ./share       the configuration in a folder
  lwconfig show plugins --json         for programs
  lwconfig check                       what is wrong with it
  lwconfig get 'PageTemplates[VBTechDoc].PageLayouts[1].TitleTemplate'
  lwconfig set VBOptions.WrapCharacters 72
  lwconfig phrase VBTechDoc --compare  phrases that one language lacks
  lwconfig link System.Windows.Forms.Button --url
  lwconfig template clone VBTechDoc "House style" House
  lwconfig registry import settings.reg
  lwconfig init ~/lexiwend             a configuration of one's own, to begin with
  lwconfig describe PageTemplate       what programs can do with a class

Environment:
  LWCONFIG_REGISTRY  folder of machine.reg and user.reg, which name the configuration
  LWCONFIG_DRIVES    folder that holds the product's drives: C:\x is <folder>/c/x
  LWCONFIG_STARTER   folder of the starter configuration
  NO_COLOR           when not empty, no colours unless --color asks for them
  COLUMNS            width of the terminal

Exit status:
  0  done
  1  what was asked for does not exist, or what was compared differs
  2  wrong usage
  3  the configuration is not valid; what could be read was used
  4  a file or the output could not be read or written
)";

/// Leaves out what is evident, and the blank lines and capitals of the default.
class HelpFormatter final : public CLI::Formatter {
 public:
  HelpFormatter() {
    constexpr std::size_t kNameColumns = 22;
    column_width(kNameColumns);
    label("OPTIONS", "options");
    label("SUBCOMMAND", "command");
    label("Positionals", "Arguments");
  }
  std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override {
    return make_description(app) + "\n" + make_usage(app, std::move(name)) + make_positionals(app) +
           make_subcommands(app, mode) + make_groups(app, mode) + "\n" + app->get_footer();
  }
  std::string make_usage(const CLI::App* app, std::string name) const override {
    std::string usage = CLI::Formatter::make_usage(app, std::move(name));
    // Hidden arguments stand there without a name.
    constexpr std::string_view kHidden = " []";
    for (std::size_t at = 0; (at = usage.find(kHidden)) != std::string::npos;)
      usage.erase(at, kHidden.size());
    return usage;
  }
};

std::vector<std::string> CommandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const auto* command : app.get_subcommands({})) {
    if (!command->get_group().empty()) names.push_back(command->get_name());
  }
  return names;
}

void FailMisuse(const CLI::ParseError& misuse, Reporter& reporter) {
  reporter.Fail(ExitStatus::Usage, misuse.what() + std::string(" (--help tells what there is)"));
}

void FailExtra(const CLI::App& app, const CLI::ParseError& misuse, Reporter& reporter) {
  const auto extra = app.remaining(true);
  const CLI::App* command = &app;
  while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
  const bool isCommand =
      !command->get_subcommands({}).empty() && !extra.empty() && !extra.front().starts_with('-');
  if (isCommand) return reporter.FailUnknown(ExitStatus::Usage, extra.front(), CommandNames(*command));
  FailMisuse(misuse, reporter);
}

/// Parses and runs; a command runs at the end of the parse.
void Run(CLI::App& app, int argc, const char* const* argv, Reporter& reporter) {
  try {
    app.parse(argc, argv);
    if (app.get_subcommands().empty()) WriteOutput(app.help(), reporter);
  } catch (const CLI::CallForHelp&) {
    WriteOutput(app.help(), reporter);
  } catch (const CLI::CallForVersion& version) {
    WriteOutput(std::string(version.what()) + "\n", reporter);
  } catch (const CLI::ExtrasError& misuse) {
    FailExtra(app, misuse, reporter);
  } catch (const CLI::ParseError& misuse) {
    FailMisuse(misuse, reporter);
  } catch (const Error& failure) {
    reporter.Fail(failure);
  } catch (const std::filesystem::filesystem_error& failure) {
    reporter.Fail(ExitStatus::InputOutput, failure.path1().string() + ": " + failure.code().message());
  } catch (const std::exception& failure) {
    reporter.Fail(ExitStatus::InputOutput, failure.what());
  }
}

}  // namespace

int RunApplication(int argc, const char* const* argv) {
  Reporter reporter;
  CLI::App app("Shows and changes the configuration of the documentation generator Lexiwend.", "lwconfig");
  app.formatter(std::make_shared<HelpFormatter>());
  app.set_help_flag("-h,--help", "this help, or that of a command");
  app.set_version_flag("--version", "lwconfig " LWCONFIG_VERSION, "the version of this program");
  app.footer(kFooter);
  app.require_subcommand(0, 1);  // a word after a command is its argument, also the name of another command
  for (const auto add : kCommands) add(app, reporter);
  Run(app, argc, argv, reporter);
  return static_cast<int>(reporter.Status());
}

}  // namespace lwconfig::tool
