#pragma once

#include <cstddef>
#include <string>

#include <CLI/App.hpp>
#include <tools/lwconfig/reporter.h>
#include <tools/lwconfig/view/tree_text.h>

namespace lwconfig::tool {

/// Each adds one command: its options, its help and what it does. `reporter` outlives `app`.
void AddShowCommand(CLI::App& app, Reporter& reporter);
void AddGetCommand(CLI::App& app, Reporter& reporter);
void AddListCommand(CLI::App& app, Reporter& reporter);
/// 'set', 'add', 'remove', 'call' and 'apply'.
void AddEditCommands(CLI::App& app, Reporter& reporter);
/// The hidden 'session'.
void AddSessionCommand(CLI::App& app, Reporter& reporter);
void AddOptionsCommand(CLI::App& app, Reporter& reporter);
void AddPhraseCommand(CLI::App& app, Reporter& reporter);
void AddScrapCommand(CLI::App& app, Reporter& reporter);
void AddLinkCommand(CLI::App& app, Reporter& reporter);
void AddTemplateCommand(CLI::App& app, Reporter& reporter);
void AddInitCommand(CLI::App& app, Reporter& reporter);
void AddRegistryCommand(CLI::App& app, Reporter& reporter);
void AddCheckCommand(CLI::App& app, Reporter& reporter);
void AddDescribeCommand(CLI::App& app, Reporter& reporter);
/// 'completion', and the hidden 'complete' that its scripts call.
void AddCompletionCommands(CLI::App& app, Reporter& reporter);

/// How a command is to lay out and colour what it prints.
struct StyleOptions {
  std::string Colour = "auto";
  std::size_t Columns = 0;
  TextStyle Style() const;
};

/// The text of a file of commands, a path of the host; "-" for standard input.
std::string SourceText(const std::string& name);

/// Adds the option that names the configuration folder.
void AddConfigurationOption(CLI::App& command, std::string& folder);
/// Adds the option that says when to colour the output.
void AddColourOption(CLI::App& command, std::string& colour);
/// Adds the option that asks for JSON.
void AddJsonOption(CLI::App& command, bool& isJson);
/// Adds the options for colours and width.
void AddStyleOptions(CLI::App& command, StyleOptions& style);

}  // namespace lwconfig::tool
