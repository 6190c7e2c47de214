#pragma once

#include <CLI/App.hpp>
#include <tools/lwconfig/reporter.h>

namespace lwconfig::tool {

/// Each adds one command: its options, its help and what it does. `reporter` outlives `app`.
void AddShowCommand(CLI::App& app, Reporter& reporter);

/// Adds the option that names the configuration folder.
void AddConfigurationOption(CLI::App& command, std::string& folder);

}  // namespace lwconfig::tool
