#pragma once

#include <CLI/App.hpp>
#include <tools/lwconfig/reporter.h>

namespace lwconfig::tool {

/// Each adds one command: its options, its help and what it does. `reporter` outlives `app`.
void AddShowCommand(CLI::App& app, Reporter& reporter);
void AddOptionsCommand(CLI::App& app, Reporter& reporter);
void AddPhraseCommand(CLI::App& app, Reporter& reporter);
void AddScrapCommand(CLI::App& app, Reporter& reporter);
void AddLinkCommand(CLI::App& app, Reporter& reporter);
void AddTemplateCommand(CLI::App& app, Reporter& reporter);
void AddInitCommand(CLI::App& app, Reporter& reporter);

/// Adds the option that names the configuration folder.
void AddConfigurationOption(CLI::App& command, std::string& folder);
/// Adds the option that asks for JSON.
void AddJsonOption(CLI::App& command, bool& isJson);

}  // namespace lwconfig::tool
