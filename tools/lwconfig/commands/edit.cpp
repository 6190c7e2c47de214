#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include <tools/lwconfig/command_line.h>
#include <tools/lwconfig/command_source.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/commands/edit_help.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/file_argument.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/listing.h>

#include <lwconfig/core/files/text_encoding.h>
#include <lwconfig/core/registry_text/registry_text.h>
#include <lwconfig/editing/editor.h>
#include <lwconfig/paths/value_text.h>
#include <lwconfig/transaction/transaction.h>

namespace lwconfig::tool {
namespace {

/// The change that the command of this kind is given.
Edit EditOf(EditKind kind, const Arguments& arguments) {
  Edit edit{.Kind = kind, .Path = arguments.Text("PATH")};
  switch (kind) {
    case EditKind::Set:
      edit.Values = arguments.Texts("VALUE");
      break;
    case EditKind::Add:
      edit.Values = arguments.Texts("MEMBER=VALUE");
      edit.Key = arguments.Text("--key");
      edit.Before = arguments.Text("--before");
      edit.After = arguments.Text("--after");
      break;
    case EditKind::Remove:
      break;
    case EditKind::Call:
      edit.Values = arguments.Texts("ARG");
      edit.IsSaved = arguments.Has("--save");
      break;
  }
  return edit;
}

void Print(ObjectModel& model, const std::vector<CallResult>& results, bool isJson, Reporter& reporter) {
  if (results.empty()) return;
  const auto place = [&](const CallResult& result) { return PathTarget{{}, result.Value, result.Type}; };
  if (!isJson) {
    std::string text;
    for (const CallResult& result : results)
      text += (result.Name.empty() ? "" : result.Name + " = ") +
              GotText(model, place(result), OutputStyle("auto", 0));
    return WriteOutput(text, reporter);
  }
  Json json = Json::object();
  for (const CallResult& result : results)
    json[result.Name.empty() ? "Result" : result.Name] = GotJson(model, result.Value);
  WriteOutput(JsonText(json), reporter);
}

/// Key and name as arguments of a shell, in a form that needs no quotation marks where there is one.
std::string ArgumentsFor(const ValueChange& change) {
  const auto quoted = [](const std::string& text) {
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./";
    if (!text.empty() && text.find_first_not_of(kPlain) == std::string::npos) return text;
    std::string inQuotes = "'";
    for (const char c : text) inQuotes += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return inQuotes + "'";
  };
  std::string key = std::string(HiveName(change.Root)) + "\\" + change.Key;
  if (key.find('/') == std::string::npos) std::ranges::replace(key, '\\', '/');
  return quoted(key) + " " + quoted(change.Name);
}

/// The changes, one line for each.
std::vector<std::string> Names(const Transaction& transaction) {
  std::vector<std::string> names;
  for (const FileChange& change : transaction.FileChanges())
    names.push_back((change.New ? "wrote " : "removed ") +
                    platform::Host<platform::Files>().NativePath(change.Path));
  for (const ValueChange& change : transaction.ValueChanges())
    names.push_back((change.New ? "set " : "deleted ") + ArgumentsFor(change));
  return names;
}

/// Writes the changes, or in a trial run shows them.
void Finish(const Configuration& configuration, Transaction& transaction, bool isTrial, bool isCall,
            Reporter& reporter) {
  if (isTrial) return WriteOutput(transaction.Difference(), reporter);
  if (!transaction.FileChanges().empty()) configuration.RefuseStarter();
  const auto names = Names(transaction);
  transaction.Commit();
  // The output of a call is its result.
  for (const std::string& name : names) isCall ? reporter.Note(name) : WriteOutput(name + "\n", reporter);
}

template <EditKind kKind>
void RunOne(const Arguments& arguments, Reporter& reporter) {
  constexpr bool kIsCall = kKind == EditKind::Call;
  const Configuration configuration(arguments.Text("--config"), reporter);
  Transaction transaction;
  ObjectModel model(reporter);
  Editor editor(model);
  const auto results = editor.Run(EditOf(kKind, arguments));
  editor.Save();
  if (transaction.IsEmpty() && !kIsCall) reporter.Note("nothing changes in what is saved");
  Print(model, results, kIsCall && arguments.Has("--json"), reporter);
  Finish(configuration, transaction, arguments.Has("--dry-run"), kIsCall, reporter);
}

constexpr Parameter kTrialOption{
    .Name = "-n,--dry-run",
    .About = "print the difference that would be written, write nothing",
};
constexpr std::array kWritingOptions{kTrialOption, kConfigurationOption};
constexpr std::array kCallOptions{kTrialOption, kConfigurationOption, kJsonOption};

constexpr std::array kSetParameters{
    Parameter{.Name = "PATH", .About = "the property", .IsRequired = true},
    Parameter{.Name = "VALUE", .About = "its new value", .IsRequired = true},
};
constexpr std::array kAddParameters{
    Parameter{.Name = "PATH", .About = "the collection", .IsRequired = true},
    Parameter{.Name = "MEMBER=VALUE",
              .About = "what the new item has; in a collection of texts the text",
              .Most = kAnyNumber},
    Parameter{.Name = "--key", .About = "add it under this key", .Value = "KEY"},
    Parameter{.Name = "--before", .About = "add it before this item", .Value = "KEY|POSITION"},
    Parameter{.Name = "--after", .About = "add it after this item", .Value = "KEY|POSITION"},
};
constexpr std::array kRemoveParameters{Parameter{.Name = "PATH", .About = "the item", .IsRequired = true}};
constexpr std::array kCallParameters{
    Parameter{.Name = "PATH", .About = "the method", .IsRequired = true},
    Parameter{.Name = "ARG", .About = "its arguments, up to five", .Most = int{automation::kMostParameters}},
    Parameter{.Name = "--save", .About = "save what the object belongs to afterwards"},
};

}  // namespace

constexpr Command kSetCommand{
    .Name = "set",
    .About = "Sets any property of the object model, and saves it.",
    .Help = kSetHelp,
    .Parameters = kSetParameters,
    .Common = kWritingOptions,
    .Run = RunOne<EditKind::Set>,
};

constexpr Command kAddCommand{
    .Name = "add",
    .About = "Adds a new item to a collection, and saves it.",
    .Help = kAddHelp,
    .Parameters = kAddParameters,
    .Common = kWritingOptions,
    .Run = RunOne<EditKind::Add>,
};

constexpr Command kRemoveCommand{
    .Name = "remove",
    .About = "Removes an item from a collection, and saves it.",
    .Help = kRemoveHelp,
    .Parameters = kRemoveParameters,
    .Common = kWritingOptions,
    .Run = RunOne<EditKind::Remove>,
};

constexpr Command kCallCommand{
    .Name = "call",
    .About = "Calls any method of the object model.",
    .Help = kCallHelp,
    .Parameters = kCallParameters,
    .Common = kCallOptions,
    .Run = RunOne<EditKind::Call>,
};

namespace {

/// The commands of a file, in the order of `EditKind`.
constexpr std::array<const Command*, 4> kEditCommands{&kSetCommand, &kAddCommand, &kRemoveCommand,
                                                      &kCallCommand};

/// The change that the words are; a `PathError` where they are none.
Edit ParseEdit(const std::vector<Word>& words) {
  const std::string& name = words.front().Text;
  const auto isNamed = [&](const Command* command) { return command->Name == name; };
  const auto* const found = std::ranges::find_if(kEditCommands, isNamed);
  if (found == kEditCommands.end()) {
    std::vector<std::string> names;
    names.reserve(kEditCommands.size());
    for (const Command* command : kEditCommands) names.emplace_back(command->Name);
    throw PathError::Unknown(PathErrorKind::Usage, "command", name, "", names).At(name, 0);
  }
  std::vector<std::string> texts;
  texts.reserve(words.size());
  for (const Word& word : words) texts.push_back(word.Text);
  return EditOf(static_cast<EditKind>(found - kEditCommands.begin()), ReadWords(kEditCommands, texts).Given);
}

void Apply(const Arguments& arguments, Reporter& reporter) {
  const std::string file = arguments.Text("FILE");
  const std::string text = DecodeText(ReadSource(file));
  CommandSource source{SourceName(file), text, {}};
  const Configuration configuration(arguments.Text("--config"), reporter);
  Transaction transaction;
  ObjectModel model(reporter);
  Editor editor(model);
  bool isDone = false;
  std::vector<std::vector<Word>> commands;
  RunReported(reporter, source, [&] {
    WordReader reader(text);
    while (reader.Next(source.Command)) {
      commands.push_back(source.Command);
      Print(model, editor.Run(ParseEdit(source.Command)), false, reporter);
    }
    source.Command.clear();
    try {
      editor.Save();
    } catch (const PathError& fault) {
      if (fault.Edit() > 0) source.Command = commands[fault.Edit() - 1];
      throw;
    }
    isDone = true;
  });
  if (!isDone) return reporter.Note("nothing was written");
  if (transaction.IsEmpty())
    reporter.Note(std::to_string(commands.size()) + " commands, and nothing changes in what is saved");
  Finish(configuration, transaction, arguments.Has("--dry-run"), false, reporter);
}

constexpr std::array kApplyParameters{Parameter{
    .Name = "FILE", .About = "the commands; - for standard input", .Form = Form::Path, .IsRequired = true}};

}  // namespace

constexpr Command kApplyCommand{
    .Name = "apply",
    .About = "Runs a file of such commands, and writes all or nothing.",
    .Help = kApplyHelp,
    .Parameters = kApplyParameters,
    .Common = kWritingOptions,
    .Run = Apply,
};

}  // namespace lwconfig::tool
