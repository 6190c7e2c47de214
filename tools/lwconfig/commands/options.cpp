#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/members/edit.h>
#include <tools/lwconfig/members/report.h>
#include <tools/lwconfig/model/options.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/core/application_values.h>
#include <lwconfig/platform/letter_case.h>

namespace lwconfig::tool {
namespace {

struct OptionsArguments {
  std::string Folder;
  std::string Name;
  std::string Value;
  bool IsJson = false;
  StyleOptions Style;
};

constexpr const char* kFooter =
    R"(NAME is the set and the property, letter case ignored: VBOptions.WrapCharacters. A value is True or False
(yes, no, 1 and 0 do as well), a whole number, the number or the name of an enumeration's value, or a text.
An empty text makes an option its default again.

STORED is what the user's registry holds in the SECTION of the product's key; where it is empty, the default
applies. VALUE is what programs read.

Examples:
  lwconfig options
  lwconfig options list --json | jq '.[] | select(.Stored)'
  lwconfig options get VBOptions.WrapCharacters
  lwconfig options set VBOptions.ToolbarStyle ToolbarStyleOffice2003
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

void List(const OptionsArguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Folder, reporter);
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
  WriteOutput(arguments.IsJson ? JsonText(json) : table.Text(arguments.Style.Style()), reporter);
}

void Get(const OptionsArguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Folder, reporter);
  const auto option = FindOption(configuration.Root(), arguments.Name, reporter);
  if (!option) return;
  const OptionState state(*option, reporter);
  if (arguments.IsJson) return WriteOutput(JsonText(state.ToJson()), reporter);
  if (state.Value) WriteOutput(state.Plain() + "\n", reporter);
}

void Set(const OptionsArguments& arguments, Reporter& reporter) {
  // The options are the user's, whatever configuration is registered.
  Root root;
  const auto option = FindOption(root, arguments.Name, reporter);
  if (!option) return;
  WithFaults(reporter, {}, [&] {
    Model model(reporter);
    Editor editor(model);
    editor.Run({EditKind::Set, option->Name(), {arguments.Value}});
    editor.Save();
  });
  if (reporter.Status() != ExitStatus::Done) return;
  const OptionState state(*option, reporter);
  WriteOutput(arguments.IsJson ? JsonText(state.ToJson()) : option->Name() + " = " + state.Shown() + "\n",
              reporter);
}

}  // namespace

void AddOptionsCommand(CLI::App& app, Reporter& reporter) {
  const auto arguments = std::make_shared<OptionsArguments>();
  CLI::App& options = *app.add_subcommand("options", "Lists, reads and sets the user's options.");
  options.group("Commands");
  options.footer(kFooter);
  options.require_subcommand(0, 1);
  AddConfigurationOption(options, arguments->Folder);
  AddJsonOption(options, arguments->IsJson);
  AddStyleOptions(options, arguments->Style);
  const auto add = [&](const char* name, const char* about, auto run) -> CLI::App& {
    CLI::App& action = *options.add_subcommand(name, about);
    action.footer(kFooter);
    action.fallthrough();
    action.callback([arguments, &reporter, run] { run(*arguments, reporter); });
    return action;
  };
  add("list", "Every option with its section, type, default and value; done when no action is given.", List);
  CLI::App& get = add("get", "Prints the value of one option.", Get);
  get.add_option("NAME", arguments->Name, "the option")->required()->type_name("");
  CLI::App& set = add("set", "Stores the value of one option.", Set);
  set.add_option("NAME", arguments->Name, "the option")->required()->type_name("");
  set.add_option("VALUE", arguments->Value, "its new value")->required()->type_name("");
  options.callback([arguments, &options, &reporter] {
    if (options.get_subcommands().empty()) List(*arguments, reporter);
  });
}

}  // namespace lwconfig::tool
