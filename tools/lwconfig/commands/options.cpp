#include <array>
#include <string>

#include <tools/lwconfig/command_source.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/model/options.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/editing/editor.h>
#include <lwconfig/transaction/transaction.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter =
    R"(NAME is the set and the property, letter case ignored: VBOptions.WrapCharacters. A value is True or False
(yes, no, 1 and 0 do as well), a whole number, the number or the name of an enumeration's value, or a text; it
is what 'lwconfig set' takes. 'reset' removes what is stored, of all options named or, where one cannot be
removed, of none. An empty text is stored as such and read as the default.

STORED is what the user's registry holds in the SECTION of the product's key; where it is empty, the default
applies. VALUE is what programs read.

Examples:
  lwconfig options
  lwconfig options list --json | jq '.[] | select(.Stored)'
  lwconfig options get VBOptions.WrapCharacters
  lwconfig options set VBOptions.ToolbarStyle ToolbarStyleOffice2003
  lwconfig options reset VBOptions.ToolbarStyle VBOptions.WrapCharacters
)";

std::optional<UserOption> FindOption(Root& root, const std::string& name, Reporter& reporter) {
  std::vector<std::string> names;
  for (const UserOption& option : UserOptions(root)) {
    names.push_back(option.Name());
    if (EqualIgnoringCase(names.back(), name)) return option;
  }
  reporter.FailUnknown(ExitStatus::NotFound, name, names);
  return std::nullopt;
}

void List(const Arguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Text("--config"), reporter);
  Table table({"OPTION", "SECTION", "TYPE", "DEFAULT", "STORED", "VALUE"});
  Json json = Json::array();
  for (const UserOption& option : UserOptions(configuration.Root())) {
    const OptionState state(option, reporter);
    json.push_back(state.ToJson());
    table.Add({{option.Name()},
               {option.Option->Section(), Tone::Quiet},
               {std::string(TypeName(option.Option->Type())), Tone::Quiet},
               {state.ShownDefault()},
               {state.Stored.empty() ? "" : "\"" + state.Stored + "\"", Tone::Condition},
               {state.Shown()}});
  }
  WriteOutput(arguments.Has("--json") ? JsonText(json) : table.Text(StyleOf(arguments)), reporter);
}

void Get(const Arguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Text("--config"), reporter);
  const auto option = FindOption(configuration.Root(), arguments.Text("NAME"), reporter);
  if (!option) return;
  const OptionState state(*option, reporter);
  if (arguments.Has("--json")) return WriteOutput(JsonText(state.ToJson()), reporter);
  if (state.Value) WriteOutput(state.Plain() + "\n", reporter);
}

void Set(const Arguments& arguments, Reporter& reporter) {
  // The options are the user's, whatever configuration is registered.
  Root root;
  const auto option = FindOption(root, arguments.Text("NAME"), reporter);
  if (!option) return;
  // The one way in which values are read and written: that of 'lwconfig set'.
  RunReported(reporter, {}, [&] {
    ObjectModel model(reporter);
    Editor editor(model);
    editor.Run({EditKind::Set, option->Name(), {arguments.Text("VALUE")}});
    editor.Save();
  });
  if (reporter.Status() != ExitStatus::Done) return;
  const OptionState state(*option, reporter);
  WriteOutput(
      arguments.Has("--json") ? JsonText(state.ToJson()) : option->Name() + " = " + state.Shown() + "\n",
      reporter);
}

void Reset(const Arguments& arguments, Reporter& reporter) {
  Root root;
  std::vector<UserOption> options;
  for (const std::string& name : arguments.Texts("NAME")) {
    const auto option = FindOption(root, name, reporter);
    if (!option) return;
    options.push_back(*option);
  }
  {
    Transaction transaction;
    for (const UserOption& option : options) option.Option->Reset();
    transaction.Commit();
  }
  std::string text;
  Json json = Json::array();
  for (const UserOption& option : options) {
    const OptionState state(option, reporter);
    json.push_back(state.ToJson());
    text += option.Name() + " = " + state.Shown() + "\n";
  }
  WriteOutput(arguments.Has("--json") ? JsonText(json) : text, reporter);
}

constexpr Parameter kName{.Name = "NAME", .About = "the option", .IsRequired = true};
constexpr std::array kGetParameters{kName};
constexpr std::array kSetParameters{kName,
                                    Parameter{.Name = "VALUE", .About = "its new value", .IsRequired = true}};

constexpr std::array kResetParameters{
    Parameter{.Name = "NAME", .About = "the options", .IsRequired = true, .Most = kAnyNumber}};

constexpr Command kList{
    .Name = "list",
    .About = "Every option with its section, type, default and value; done when no action is given.",
    .Run = List,
};
constexpr Command kGet{
    .Name = "get", .About = "Prints the value of one option.", .Parameters = kGetParameters, .Run = Get};
constexpr Command kSet{
    .Name = "set", .About = "Stores the value of one option.", .Parameters = kSetParameters, .Run = Set};
constexpr Command kReset{.Name = "reset",
                         .About = "Makes options their defaults again.",
                         .Parameters = kResetParameters,
                         .Run = Reset};
constexpr std::array kActions{&kList, &kGet, &kSet, &kReset};

}  // namespace

constexpr Command kOptionsCommand{
    .Name = "options",
    .About = "Lists, reads, sets and resets the user's options.",
    .Help = kFooter,
    .Common = kShowingOptions,
    .Actions = kActions,
    .Run = List,
};

}  // namespace lwconfig::tool
