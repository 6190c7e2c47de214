#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include <tools/lwconfig/command_line.h>
#include <tools/lwconfig/command_words.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/path_completion.h>
#include <tools/lwconfig/completion_scripts.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/model/options.h>
#include <tools/lwconfig/model/sections.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/styled_text.h>

#include <lwconfig/core/base/letter_case.h>

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
  std::vector<const Command*> Commands;    // from the program to the innermost
  std::string Name{};                      // "set", "options get"
  std::vector<std::string> Positionals{};  // before the word that is being typed
  std::string Folder{};                    // of --config
  std::string Current{};
  bool IsOptionValue = false;
  bool EndsOptions = false;
};

/// The parameter of the command, or of the commands around it, that the option is; null where there is none.
const Parameter* FindOption(const Typed& typed, std::string_view name) {
  for (const Command* command : typed.Commands) {
    for (const auto& parameters : {command->Parameters, command->Common}) {
      const auto found = std::ranges::find_if(parameters, [&](const auto& it) { return it.IsNamed(name); });
      if (found != parameters.end()) return &*found;
    }
  }
  return nullptr;
}

Typed Analyse(const std::vector<std::string>& words) {
  Typed typed{{&kProgram}};
  typed.Current = words.back();
  std::string option;
  for (std::size_t at = 0; at + 1 < words.size(); ++at) {
    const std::string& word = words[at];
    if (!option.empty()) {
      if (option == "--config" || option == "-c") typed.Folder = word;
      option.clear();
    } else if (typed.EndsOptions || !word.starts_with('-') || word == "-") {
      const Command* inner = typed.Positionals.empty() ? typed.Commands.back()->Action(word) : nullptr;
      if (inner == nullptr) {
        typed.Positionals.push_back(word);
        continue;
      }
      typed.Commands.push_back(inner);
      typed.Name += (typed.Name.empty() ? "" : " ") + word;
    } else if (word == "--") {
      typed.EndsOptions = true;
    } else if (const Parameter* found = FindOption(typed, word); found != nullptr && !found->IsFlag()) {
      option = word;
    }
  }
  typed.IsOptionValue = !option.empty();
  return typed;
}

Candidates Options(const Command& command) {
  Candidates candidates{{kHelpOption.LongName(), kHelpOption.About}};
  if (&command == &kProgram) candidates.push_back({kVersionOption.LongName(), kVersionOption.About});
  for (const auto& parameters : {command.Parameters, command.Common}) {
    for (const Parameter& parameter : parameters) {
      if (parameter.IsOption()) candidates.push_back({parameter.LongName(), parameter.About});
    }
  }
  return candidates;
}

Candidates ActionsOf(const Command& command) {
  Candidates candidates;
  for (const Command* action : command.Actions) {
    if (!action->IsHidden) candidates.push_back({action->Name, action->About});
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
  } else if (typed.Name == "help") {
    candidates = ActionsOf(kProgram);
  } else if (typed.Name == "completion") {
    for (const CompletionScript& script : kCompletionScripts) candidates.push_back({script.Shell});
  }
  return candidates;
}

/// What is read from the configuration.
Candidates Live(const Typed& typed, Reporter& reporter) {
  const std::size_t place = typed.Positionals.size();
  const Configuration configuration(typed.Folder, reporter);
  ObjectModel model(reporter);
  if (const auto use = UseOfPath(typed.Name)) {
    if (place == 0) return CompletePath(model, typed.Current, *use);
    if (*use == PathUse::Write) return CompleteValue(model, typed.Positionals.front(), typed.Current);
    if (*use == PathUse::Add) return CompleteMember(model, typed.Positionals.front(), typed.Current);
    return {};
  }
  lwconfig::Root root;
  Candidates candidates;
  if (typed.Name == "options get" || typed.Name == "options set" || typed.Name == "options reset") {
    if (place == 1 && typed.Name == "options set")
      return CompleteValue(model, typed.Positionals.front(), typed.Current);
    for (const UserOption& option : UserOptions(root)) candidates.push_back({option.Name()});
  } else if (typed.Name == "phrase" || typed.Name == "scrap" || typed.Name == "template clone") {
    for (const auto& pageTemplate : *root.PageTemplates()) candidates.push_back({pageTemplate->Name});
  }
  return place == 0 || typed.Name == "options reset" ? candidates : Candidates();
}

Candidates Complete(const std::vector<std::string>& words, Reporter& reporter) {
  const Typed typed = Analyse(words);
  if (typed.IsOptionValue) return {};
  Candidates candidates;
  if (!typed.EndsOptions && typed.Current.starts_with('-')) {
    candidates = Options(*typed.Commands.back());
  } else {
    if (typed.Positionals.empty()) {
      candidates = ActionsOf(*typed.Commands.back());
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

void Complete(const Arguments& arguments, Reporter& reporter) {
  reporter.BeQuiet();
  const std::string shell = arguments.Text("--shell");
  const std::string line = arguments.Text("--line");
  std::vector<std::string> typed = arguments.Texts("WORDS");
  std::size_t setAside = 0;
  if (!line.empty()) {
    const auto words = WordReader::Unfinished(line);
    const auto isProgram = [](const Word& word) {
      return word.Text == "lwconfig" || word.Text.ends_with("/lwconfig");
    };
    auto first = std::ranges::find_if(words, isProgram);
    if (first == words.end()) first = words.begin();
    for (++first; first < words.end(); ++first) typed.push_back(first->Text);
    if (shell == "bash") setAside = BytesBeforeBreak(line, words.back());
  }
  if (typed.empty()) typed.emplace_back();
  std::string text;
  for (const Candidate& candidate : Complete(typed, reporter)) {
    // A line feed would make two candidates of one.
    if (Printable(candidate.Text) != candidate.Text) continue;
    text += candidate.Text.substr(setAside);
    if (shell != "bash" && !candidate.About.empty()) text += "\t" + candidate.About;
    text += "\n";
  }
  WriteOutput(text, reporter);
}

void PrintScript(const Arguments& arguments, Reporter& reporter) {
  const std::string shell = arguments.Text("SHELL");
  std::vector<std::string> shells;
  for (const CompletionScript& script : kCompletionScripts) {
    if (shell == script.Shell) return WriteOutput(script.Text, reporter);
    shells.emplace_back(script.Shell);
  }
  reporter.FailUnknown(ExitStatus::Usage, shell, shells);
}

constexpr std::array kCompletionParameters{
    Parameter{.Name = "SHELL", .About = "bash, zsh or fish", .IsRequired = true}};
constexpr std::array kCompleteParameters{
    Parameter{.Name = "WORDS",
              .About = "what has been typed after the name of the program",
              .Form = Form::Bytes,
              .Most = kAnyNumber},
    Parameter{.Name = "--line",
              .About = "the line up to the cursor, in place of them",
              .Value = "TEXT",
              .Form = Form::Bytes},
    Parameter{.Name = "--shell", .About = "the shell that asks", .Value = "SHELL"},
};

}  // namespace

constexpr Command kCompletionCommand{
    .Name = "completion",
    .About = "Prints the completion script for a shell.",
    .Help = kFooter,
    .Parameters = kCompletionParameters,
    .Run = PrintScript,
};

constexpr Command kCompleteCommand{
    .Name = "complete",
    .About = "Prints what the last of the words could become.",
    .Parameters = kCompleteParameters,
    .Run = Complete,
    .IsHidden = true,
};

}  // namespace lwconfig::tool
