#include <algorithm>
#include <memory>
#include <sstream>
#include <string_view>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/command_line.h>
#include <tools/lwconfig/terminal.h>

#include <lwconfig/paths/path_error.h>

namespace lwconfig::tool {
namespace {

/// Omits the obvious, and the blank lines and capitals of the default.
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
};

void AddParameter(CLI::App& app, const Parameter& parameter) {
  if (parameter.IsFlag()) {
    app.add_flag(parameter.Name, parameter.About);
    return;
  }
  CLI::Option& option = *app.add_option(parameter.Name, parameter.About);
  option.required(parameter.IsRequired);
  if (parameter.IsOption()) {
    option.type_name(parameter.Value)->option_text(parameter.Value);
  } else {
    option.type_name("");
  }
  if (parameter.Most > 1) {
    // The least number is what the parser takes; it is not enforced. Of values of any number it would take
    // brackets off.
    option.multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    option.expected(parameter.Most, CLI::detail::expected_max_vector_size);
  }
  option.check([&parameter](const std::string& given) { return parameter.FaultOf(given); });
}

void AddParameters(CLI::App& app, std::span<const Parameter> parameters) {
  for (const Parameter& parameter : parameters) AddParameter(app, parameter);
}

void AddExclusions(CLI::App& app, std::span<const Parameter> parameters) {
  for (const Parameter& parameter : parameters) {
    std::istringstream excluded{parameter.Excludes};
    for (std::string name; excluded >> name;) {
      if (!parameter.IsNamed(name)) app.get_option(parameter.LongName())->excludes(app.get_option(name));
    }
  }
}

/// Makes `app` the parser of the command and its actions.
void Build(CLI::App& app, const Command& command) {
  if (*command.Help != '\0') app.footer(std::string(command.Help) + command.MoreHelp);
  app.require_subcommand(0, 1);  // a word after a command is its argument, also the name of another command
  AddParameters(app, command.Parameters);
  AddParameters(app, command.Common);
  AddExclusions(app, command.Parameters);
  for (const Command* const action : command.Actions) {
    CLI::App& inner = *app.add_subcommand(action->Name, action->About);
    Build(inner, *action);
    inner.group(action->IsHidden ? "" : "Commands");
    inner.fallthrough(app.get_parent() != nullptr);
  }
}

void Read(const CLI::App& app, std::span<const Parameter> parameters, Arguments& given) {
  for (const Parameter& parameter : parameters) {
    const CLI::Option& option = *app.get_option(parameter.LongName());
    const bool isGiven = option.count() > 0 && (!parameter.IsFlag() || option.as<bool>());
    given.Add(parameter, isGiven ? option.results() : std::vector<std::string>());
  }
}

/// What the parser has read for the command and for its action. The options of the program itself have been
/// moved to the command.
Request RequestOf(const CLI::App& app, const Command& program) {
  Request request{&program, {}};
  for (const CLI::App* at = &app; !at->get_subcommands().empty();) {
    at = at->get_subcommands().front();
    request.Asked = request.Asked->Action(at->get_name());
    Read(*at, request.Asked->Parameters, request.Given);
    Read(*at, request.Asked->Common, request.Given);
  }
  return request;
}

void FailMisuse(const CLI::ParseError& misuse, Reporter& reporter) {
  reporter.Fail(ExitStatus::Usage, misuse.what() + std::string(" (--help tells what there is)"));
}

void FailUnknown(const Command& command, const std::string& action, Reporter& reporter) {
  std::vector<std::string> names;
  for (const Command* const existing : command.Actions) {
    if (!existing->IsHidden) names.emplace_back(existing->Name);
  }
  reporter.FailUnknown(ExitStatus::Usage, action, std::move(names));
}

void FailExtra(const CLI::App& app, const Command& program, const CLI::ParseError& misuse,
               Reporter& reporter) {
  const auto extra = app.remaining(true);
  const Command* command = &program;
  for (const CLI::App* at = &app; !at->get_subcommands().empty();) {
    at = at->get_subcommands().front();
    command = command->Action(at->get_name());
  }
  if (command->Actions.empty() || extra.empty() || extra.front().starts_with('-'))
    return FailMisuse(misuse, reporter);
  FailUnknown(*command, extra.front(), reporter);
}

/// The parser of the program with all commands.
std::unique_ptr<CLI::App> MakeParser(const Command& program) {
  auto app = std::make_unique<CLI::App>(program.About, program.Name);
  app->formatter(std::make_shared<HelpFormatter>());
  app->set_help_flag(kHelpOption.Name, kHelpOption.About);
  app->set_version_flag(kVersionOption.Name, "lwconfig " LWCONFIG_VERSION, kVersionOption.About);
  Build(*app, program);
  return app;
}

/// How many words the option at the beginning of `word` takes, with its value; 0 where the word is none of
/// these options. Flags of one letter may be in one word, "-jc".
std::size_t CountWords(std::span<const Parameter> options, const std::string& word) {
  const bool isLong = word.starts_with("--");
  for (std::size_t at = 1; at < word.size(); ++at) {
    const std::string name = isLong ? word.substr(0, word.find('=')) : std::string{'-', word[at]};
    const auto option = std::ranges::find_if(options, [&](const auto& known) { return known.IsNamed(name); });
    if (option == options.end()) return 0;
    const bool hasValue = isLong ? name.size() < word.size() : at + 1 < word.size();
    if (!option->IsFlag()) return hasValue ? 1 : 2;
    if (isLong) break;
  }
  return word.size() > 1 ? 1 : 0;
}

/// Whether the first `count` words are such options, with their values.
bool AreOptions(std::span<const Parameter> options, const std::vector<std::string>& words,
                std::size_t count) {
  std::size_t at = 0;
  while (at < count && words[at].starts_with('-')) {
    const std::size_t taken = CountWords(options, words[at]);
    if (taken == 0) return false;
    at += taken;
  }
  return at == count;
}

/// Moves the options of a command that come before its name behind it.
void MoveOptions(const Command& program, std::vector<std::string>& words) {
  if (!words.empty() && words.front() == "--") words.erase(words.begin());
  for (std::size_t at = 1; at < words.size(); ++at) {
    const Command* const command = program.Action(words[at]);
    if (command == nullptr) continue;
    if (!AreOptions(program.Common, words, at) && !AreOptions(command->Parameters, words, at)) continue;
    const auto name = words.begin() + static_cast<std::ptrdiff_t>(at);
    std::rotate(words.begin(), name, name + 1);
    return;
  }
}

}  // namespace

std::optional<Request> ReadCommandLine(const Command& program, int argc, const char* const* argv,
                                       Reporter& reporter) {
  std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  MoveOptions(program, words);
  std::ranges::reverse(words);
  const auto app = MakeParser(program);
  try {
    app->parse(std::move(words));
    Request request = RequestOf(*app, program);
    if (request.Asked->Run != nullptr) return request;
    WriteOutput(app->help(), reporter);
  } catch (const CLI::CallForHelp&) {
    WriteOutput(app->help(), reporter);
  } catch (const CLI::CallForVersion& version) {
    WriteOutput(std::string(version.what()) + "\n", reporter);
  } catch (const CLI::ExtrasError& misuse) {
    FailExtra(*app, program, misuse, reporter);
  } catch (const CLI::ParseError& misuse) {
    FailMisuse(misuse, reporter);
  }
  return std::nullopt;
}

std::optional<std::string> HelpText(const Command& program, std::span<const std::string> words,
                                    Reporter& reporter) {
  const auto app = MakeParser(program);
  const CLI::App* parser = app.get();
  const Command* command = &program;
  std::string parents;
  for (const std::string& word : words) {
    const Command* const action = command->Action(word);
    if (action == nullptr) {
      FailUnknown(*command, word, reporter);
      return std::nullopt;
    }
    parents += (parents.empty() ? "" : " ") + parser->get_name();
    parser = parser->get_subcommand(word);
    command = action;
  }
  return parser->help(parents);
}

Request ReadWords(std::span<const Command* const> commands, const std::vector<std::string>& words) {
  CLI::App app;
  app.set_help_flag();
  app.require_subcommand(1);
  for (const Command* const command : commands)
    AddParameters(*app.add_subcommand(command->Name), command->Parameters);
  try {
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    const CLI::App& given = *app.get_subcommands().front();
    const auto asked = std::ranges::find_if(
        commands, [&](const Command* command) { return given.get_name() == command->Name; });
    Request request{*asked, {}};
    Read(given, request.Asked->Parameters, request.Given);
    return request;
  } catch (const CLI::ParseError& misuse) {
    throw PathError(PathErrorKind::Usage, misuse.what());
  }
}

}  // namespace lwconfig::tool
