#include <array>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter = R"(Options of a command may also come before it.

Examples:
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

Files:
  /etc/lwconfig/machine.reg         the registry of the machine
  ~/.config/lwconfig/machine.reg    values of the machine for this user alone, looked at first
  ~/.config/lwconfig/user.reg       the registry of the user, with the options

Exit status:
  0  done
  1  what was asked for does not exist, or what was compared differs
  2  the command line asks for what cannot be done
  3  the configuration, or what was to become of it, is not valid; what could be read was used. A warning
     alone leaves the status as it is
  4  a file, a folder or the output could not be read or written
  5  the program itself failed, such as for want of memory
)";

constexpr std::array<const Command*, 21> kCommands{
    &kShowCommand,     &kCheckCommand,    &kGetCommand,        &kListCommand,     &kSetCommand,
    &kAddCommand,      &kRemoveCommand,   &kCallCommand,       &kApplyCommand,    &kOptionsCommand,
    &kPhraseCommand,   &kScrapCommand,    &kLinkCommand,       &kTemplateCommand, &kInitCommand,
    &kRegistryCommand, &kDescribeCommand, &kCompletionCommand, &kHelpCommand,     &kCompleteCommand,
    &kSessionCommand};

}  // namespace

constexpr Command kProgram{
    .Name = "lwconfig",
    .About = "Shows and changes the configuration of the documentation generator Lexiwend.",
    .Help = kFooter,
    .Common = kShowingOptions,
    .Actions = kCommands,
};

}  // namespace lwconfig::tool
