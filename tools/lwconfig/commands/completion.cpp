#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/completion_scripts.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/members/completion.h>
#include <tools/lwconfig/members/words.h>
#include <tools/lwconfig/model/options.h>
#include <tools/lwconfig/model/sections.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/styled_text.h>

#include <lwconfig/platform/letter_case.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter =
    R"(Commands, options, names and keys are completed from the configuration as it is. 'make install' puts the
scripts where the shells look for them; without it add to the shell's own start file:

  bash   source <(lwconfig completion bash)
  zsh    lwconfig completion zsh > a folder of $fpath/_lwconfig
  fish   lwconfig completion fish | source
)";

using Candidates = std::vector<Candidate>;

/// The command line as far as it has been typed.
struct Typed {
  const CLI::App* Command;
  std::string Name{};                      // "set", "options get"
  std::vector<std::string> Positionals{};  // before the word that is being typed
  std::string Folder{};                    // of --config
  std::string Current{};
  bool IsOptionValue = false;
  bool EndsOptions = false;
};

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
  for (const CLI::App* command : app.get_subcommands({})) {
    if (command->get_name() == name) return command;
  }
  return nullptr;
}

bool TakesValue(const CLI::App& command, const std::string& name) {
  for (const CLI::App* app = &command; app != nullptr; app = app->get_parent()) {
    for (const CLI::Option* option : app->get_options()) {
      if (option->check_name(name)) return option->get_items_expected_max() > 0;
    }
  }
  return false;
}

Typed Analyse(const CLI::App& app, const std::vector<std::string>& words) {
  Typed typed{&app};
  typed.Current = words.back();
  std::string option;
  for (std::size_t at = 0; at + 1 < words.size(); ++at) {
    const std::string& word = words[at];
    if (!option.empty()) {
      if (option == "--config" || option == "-c") typed.Folder = word;
      option.clear();
    } else if (typed.EndsOptions || !word.starts_with('-') || word == "-") {
      const CLI::App* inner = typed.Positionals.empty() ? FindCommand(*typed.Command, word) : nullptr;
      if (inner == nullptr) {
        typed.Positionals.push_back(word);
        continue;
      }
      typed.Command = inner;
      typed.Name += (typed.Name.empty() ? "" : " ") + word;
    } else if (word == "--") {
      typed.EndsOptions = true;
    } else if (word.find('=') == std::string::npos && TakesValue(*typed.Command, word)) {
      option = word;
    }
  }
  typed.IsOptionValue = !option.empty();
  return typed;
}

Candidates Options(const CLI::App& command) {
  Candidates candidates;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames())
      candidates.push_back({"--" + name, option->get_description()});
  }
  return candidates;
}

Candidates Commands(const CLI::App& app) {
  Candidates candidates;
  for (const CLI::App* command : app.get_subcommands({})) {
    if (!command->get_group().empty())
      candidates.push_back({command->get_name(), command->get_description()});
  }
  return candidates;
}

std::optional<PathUse> UseOfPath(const std::string& command) {
  constexpr std::array<std::pair<std::string_view, PathUse>, 6> kUses{{{"get", PathUse::Read},
                                                                       {"ls", PathUse::Read},
                                                                       {"set", PathUse::Write},
                                                                       {"add", PathUse::Add},
                                                                       {"remove", PathUse::Remove},
                                                                       {"call", PathUse::Call}}};
  const auto* const found = std::ranges::find(kUses, command, [](const auto& row) { return row.first; });
  return found == kUses.end() ? std::nullopt : std::optional(found->second);
}

Candidates Names(const Typed& typed) {
  Candidates candidates;
  if (typed.Name == "show") {
    for (const Section& section : Sections())
      candidates.push_back({std::string(section.Name), std::string(section.About)});
  } else if (typed.Name == "completion") {
    for (const CompletionScript& script : kCompletionScripts) candidates.push_back({script.Shell});
  }
  return candidates;
}

/// What is read from the configuration.
Candidates Live(const Typed& typed, Reporter& reporter) {
  const std::size_t place = typed.Positionals.size();
  const Configuration configuration(typed.Folder, reporter);
  Model model(reporter);
  if (const auto use = UseOfPath(typed.Name)) {
    if (place == 0) return CompletePath(model, typed.Current, *use);
    if (*use == PathUse::Write) return CompleteValue(model, typed.Positionals.front());
    if (*use == PathUse::Add) return CompleteMember(model, typed.Positionals.front(), typed.Current);
    return {};
  }
  lwconfig::Root root;
  Candidates candidates;
  if (typed.Name == "options get" || typed.Name == "options set") {
    if (place == 1 && typed.Name == "options set") return CompleteValue(model, typed.Positionals.front());
    for (const UserOption& option : UserOptions(root)) candidates.push_back({option.Name()});
  } else if (typed.Name == "phrase" || typed.Name == "scrap" || typed.Name == "template clone") {
    for (const auto& pageTemplate : *root.PageTemplates()) candidates.push_back({pageTemplate->Name});
  }
  return place == 0 ? candidates : Candidates();
}

Candidates Complete(const CLI::App& app, const std::vector<std::string>& words, Reporter& reporter) {
  const Typed typed = Analyse(app, words);
  if (typed.IsOptionValue) return {};
  Candidates candidates;
  if (!typed.EndsOptions && typed.Current.starts_with('-')) {
    candidates = Options(*typed.Command);
  } else {
    if (typed.Positionals.empty()) {
      candidates = Commands(*typed.Command);
      std::ranges::copy(Names(typed), std::back_inserter(candidates));
    }
    try {
      std::ranges::copy(Live(typed, reporter), std::back_inserter(candidates));
    } catch (const std::exception&) {
      // Whoever is typing does not want to read of it.
    }
  }
  std::erase_if(candidates, [&](const Candidate& candidate) {
    const std::string_view text = candidate.Text;
    return text.size() < typed.Current.size() ||
           !EqualIgnoringCase(text.substr(0, typed.Current.size()), typed.Current);
  });
  return candidates;
}

/// How much of the word bash has set aside: it breaks words at "=" and ":" that are not quoted.
std::size_t BytesBeforeBreak(std::string_view line, const Word& word) {
  const std::size_t start = word.Offsets.front();
  if (start > 0 && (line[start - 1] == '"' || line[start - 1] == '\'')) return 0;
  for (std::size_t at = word.Text.size(); at-- > 0;) {
    const bool isEscaped = word.Offsets[at] > 0 && line[word.Offsets[at] - 1] == '\\';
    if (!isEscaped && (word.Text[at] == '=' || word.Text[at] == ':')) return at + 1;
  }
  return 0;
}

struct CompleteArguments {
  std::vector<std::string> Words{};  // after the name of the program
  std::string Line{};                // in place of them, up to the cursor
  std::string Shell{};
};

void Run(const CLI::App& app, CompleteArguments& arguments, Reporter& reporter) {
  reporter.BeQuiet();
  std::size_t setAside = 0;
  if (!arguments.Line.empty()) {
    const auto words = WordReader::Unfinished(arguments.Line);
    const auto isProgram = [](const Word& word) {
      return word.Text == "lwconfig" || word.Text.ends_with("/lwconfig");
    };
    auto first = std::ranges::find_if(words, isProgram);
    if (first == words.end()) first = words.begin();
    for (++first; first < words.end(); ++first) arguments.Words.push_back(first->Text);
    if (arguments.Shell == "bash") setAside = BytesBeforeBreak(arguments.Line, words.back());
  }
  if (arguments.Words.empty()) arguments.Words.emplace_back();
  std::string text;
  for (const Candidate& candidate : Complete(app, arguments.Words, reporter)) {
    // A line feed would make two candidates of one.
    if (Printable(candidate.Text) != candidate.Text) continue;
    text += candidate.Text.substr(setAside);
    if (arguments.Shell != "bash" && !candidate.About.empty()) text += "\t" + candidate.About;
    text += "\n";
  }
  WriteOutput(text, reporter);
}

}  // namespace

void AddCompletionCommands(CLI::App& app, Reporter& reporter) {
  const auto shell = std::make_shared<std::string>();
  CLI::App& completion = *app.add_subcommand("completion", "Prints the completion script for a shell.");
  completion.group("Commands");
  completion.footer(kFooter);
  completion.add_option("SHELL", *shell, "bash, zsh or fish")->required()->type_name("");
  completion.callback([shell, &reporter] {
    std::vector<std::string> shells;
    for (const CompletionScript& script : kCompletionScripts) {
      if (*shell == script.Shell) return WriteOutput(script.Text, reporter);
      shells.emplace_back(script.Shell);
    }
    reporter.FailUnknown(ExitStatus::Usage, *shell, shells);
  });

  const auto arguments = std::make_shared<CompleteArguments>();
  CLI::App& complete = *app.add_subcommand("complete", "Prints what the last of the words could become.");
  complete.group("");
  complete.add_option("WORDS", arguments->Words);
  complete.add_option("--line", arguments->Line);
  complete.add_option("--shell", arguments->Shell);
  complete.callback([&app, arguments, &reporter] { Run(app, *arguments, reporter); });
}

}  // namespace lwconfig::tool
