#include <algorithm>
#include <array>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/edit_help.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/members/edit.h>
#include <tools/lwconfig/members/listing.h>
#include <tools/lwconfig/members/report.h>
#include <tools/lwconfig/members/value.h>
#include <tools/lwconfig/overlay/overlay.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

#include <lwconfig/core/text.h>
#include <lwconfig/platform/files.h>

namespace lwconfig::tool {
namespace {

struct EditArguments {
  tool::Edit Edit{};
  /// Values one by one: of several values of one option the parser would take brackets off.
  std::array<std::optional<std::string>, automation::kMostParameters> Values{};
  std::vector<std::string> MoreMembers{};
  std::string File{};  // of 'apply'
  std::string Folder{};
  bool IsTrial = false;
  bool IsJson = false;

  tool::Edit Whole() const {
    tool::Edit edit = Edit;
    for (const auto& value : Values) {
      if (value) edit.Values.push_back(*value);
    }
    edit.Values.insert(edit.Values.end(), MoreMembers.begin(), MoreMembers.end());
    return edit;
  }
};

void AddOptionsOf(CLI::App& command, EditArguments& arguments) {
  Edit& edit = arguments.Edit;
  const auto positional = [&command](const std::string& name, auto& value, const char* about) {
    return command.add_option(name, value, about)->type_name("");
  };
  switch (edit.Kind) {
    case EditKind::Set:
      positional("PATH", edit.Path, "the property")->required();
      positional("VALUE", arguments.Values[0], "its new value")->required();
      break;
    case EditKind::Add:
      positional("PATH", edit.Path, "the collection")->required();
      positional("MEMBER=VALUE", arguments.Values[0],
                 "what the new item has; in a collection of texts the text");
      positional("MORE", arguments.MoreMembers, "more of what it has");
      command.add_option("--key", edit.Key, "add it under this key")->option_text("KEY");
      command.add_option("--before", edit.Before, "add it before this item")->option_text("KEY|POSITION");
      command.add_option("--after", edit.After, "add it after this item")->option_text("KEY|POSITION");
      break;
    case EditKind::Remove:
      positional("PATH", edit.Path, "the item")->required();
      break;
    case EditKind::Call:
      positional("PATH", edit.Path, "the method")->required();
      for (std::size_t at = 0; at < arguments.Values.size(); ++at) {
        const bool isFirst = at == 0;
        auto* const argument = positional(isFirst ? "ARG..." : "ARG" + std::to_string(at + 1),
                                          arguments.Values[at], "its arguments, up to five");
        if (!isFirst) argument->group("");  // the help tells of them once
      }
      command.add_flag("--save", edit.IsSaved, "save what the object belongs to afterwards");
      break;
  }
}

struct EditCommand {
  const char* Name;
  const char* About;
  const char* Help;
};
constexpr std::array<EditCommand, 4> kEditCommands{{
    {"set", "Sets any property of the object model, and saves it.", kSetHelp},
    {"add", "Adds a new item to a collection, and saves it.", kAddHelp},
    {"remove", "Removes an item from a collection, and saves it.", kRemoveHelp},
    {"call", "Calls any method of the object model.", kCallHelp},
}};

void Print(Model& model, const std::vector<Result>& results, const EditArguments& arguments,
           Reporter& reporter) {
  if (results.empty()) return;
  const auto place = [&](const Result& result) { return Place{{}, result.Value, result.Type}; };
  if (!arguments.IsJson) {
    std::string text;
    for (const Result& result : results)
      text += (result.Name.empty() ? "" : result.Name + " = ") +
              GotText(model, place(result), OutputStyle("auto", 0));
    return WriteOutput(text, reporter);
  }
  Json json = Json::object();
  for (const Result& result : results)
    json[result.Name.empty() ? "Result" : result.Name] = GotJson(model, place(result));
  WriteOutput(JsonText(json), reporter);
}

/// Tells what the trial run changed, and writes it unless it stays a trial.
void Finish(const Configuration& configuration, Overlay& overlay, const EditArguments& arguments,
            Reporter& reporter) {
  if (arguments.IsTrial) return WriteOutput(overlay.Difference(), reporter);
  if (overlay.ChangesFiles()) configuration.RefuseStarter();
  const auto names = overlay.Names();
  overlay.WriteOut();
  // The output of a call is its result.
  for (const std::string& name : names) {
    arguments.Edit.Kind == EditKind::Call ? reporter.Note(name) : WriteOutput(name + "\n", reporter);
  }
}

void RunOne(const EditArguments& arguments, Reporter& reporter) {
  const Configuration configuration(arguments.Folder, reporter);
  Overlay overlay;
  Model model(reporter);
  Editor editor(model);
  const auto results = editor.Run(arguments.Whole());
  editor.Save();
  if (overlay.IsEmpty() && arguments.Edit.Kind != EditKind::Call)
    reporter.Note("nothing changes in what is saved");
  Print(model, results, arguments, reporter);
  Finish(configuration, overlay, arguments, reporter);
}

}  // namespace

std::string SourceText(const std::string& name) {
  if (name == "-")
    return DecodeText(
        std::string(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()));
  auto& files = platform::Host<platform::Files>();
  const std::string path = files.ProductPath(name);
  try {
    return DecodeText(files.Read(path));
  } catch (const std::system_error& failure) {
    throw FileError(failure, path);
  }
}

namespace {

/// The command that the words are; a `Fault` where they are none.
EditArguments ParseCommand(const std::vector<Word>& words) {
  EditArguments arguments;
  CLI::App app;
  app.require_subcommand(1);
  for (std::size_t kind = 0; kind < kEditCommands.size(); ++kind) {
    CLI::App& command = *app.add_subcommand(kEditCommands[kind].Name);
    command.set_help_flag();
    if (words.front().Text != kEditCommands[kind].Name) continue;
    arguments.Edit.Kind = static_cast<EditKind>(kind);
    AddOptionsOf(command, arguments);
  }
  app.set_help_flag();
  std::vector<std::string> reversed;
  for (auto word = words.rbegin(); word != words.rend(); ++word) reversed.push_back(word->Text);
  const auto isKnown = [&](const EditCommand& command) { return words.front().Text == command.Name; };
  if (std::ranges::none_of(kEditCommands, isKnown)) {
    throw Fault::Unknown(ExitStatus::Usage, "command", words.front().Text, "",
                         {"set", "add", "remove", "call"})
        .At(words.front().Text, 0);
  }
  try {
    app.parse(reversed);
  } catch (const CLI::ParseError& misuse) {
    throw Fault(ExitStatus::Usage, misuse.what());
  }
  return arguments;
}

void Apply(const EditArguments& arguments, Reporter& reporter) {
  const std::string text = SourceText(arguments.File);
  CommandSource source{arguments.File == "-" ? "standard input" : arguments.File, text, {}};
  const Configuration configuration(arguments.Folder, reporter);
  Overlay overlay;
  Model model(reporter);
  Editor editor(model);
  bool isDone = false;
  std::vector<std::vector<Word>> commands;
  WithFaults(reporter, source, [&] {
    WordReader reader(text);
    while (reader.Next(source.Command)) {
      const EditArguments line = ParseCommand(source.Command);
      commands.push_back(source.Command);
      Print(model, editor.Run(line.Whole()), arguments, reporter);
    }
    source.Command.clear();
    try {
      editor.Save();
    } catch (const Fault& fault) {
      if (fault.Edit() > 0) source.Command = commands[fault.Edit() - 1];
      throw;
    }
    isDone = true;
  });
  if (!isDone) return reporter.Note("nothing was written");
  if (overlay.IsEmpty())
    reporter.Note(std::to_string(commands.size()) + " commands, and nothing changes in what is saved");
  Finish(configuration, overlay, arguments, reporter);
}

CLI::App& AddWritingCommand(CLI::App& app, Reporter& reporter, const EditCommand& about,
                            const std::shared_ptr<EditArguments>& arguments,
                            void (*run)(const EditArguments&, Reporter&)) {
  CLI::App& command = *app.add_subcommand(about.Name, about.About);
  command.group("Commands");
  command.footer(about.Help);
  command.callback(
      [arguments, run, &reporter] { WithFaults(reporter, {}, [&] { run(*arguments, reporter); }); });
  return command;
}

void AddCommonOptions(CLI::App& command, EditArguments& arguments) {
  command.add_flag("-n,--dry-run", arguments.IsTrial,
                   "print the difference that would be written, write nothing");
  AddConfigurationOption(command, arguments.Folder);
}

}  // namespace

void AddEditCommands(CLI::App& app, Reporter& reporter) {
  for (std::size_t kind = 0; kind < kEditCommands.size(); ++kind) {
    const auto arguments = std::make_shared<EditArguments>();
    arguments->Edit.Kind = static_cast<EditKind>(kind);
    CLI::App& command = AddWritingCommand(app, reporter, kEditCommands[kind], arguments, RunOne);
    AddOptionsOf(command, *arguments);
    AddCommonOptions(command, *arguments);
    if (arguments->Edit.Kind == EditKind::Call) AddJsonOption(command, arguments->IsJson);
  }
  const auto arguments = std::make_shared<EditArguments>();
  CLI::App& apply = AddWritingCommand(
      app, reporter, {"apply", "Runs a file of such commands, and writes all or nothing.", kApplyHelp},
      arguments, Apply);
  apply.add_option("FILE", arguments->File, "the commands; - for standard input")->required()->type_name("");
  AddCommonOptions(apply, *arguments);
}

}  // namespace lwconfig::tool
