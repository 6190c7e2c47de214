#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/terminal.h>

namespace lwconfig::tool {

TextStyle StyleOptions::Style() const {
  return OutputStyle(Colour, Columns);
}

void AddColourOption(CLI::App& command, std::string& colour) {
  command.add_option("--color", colour, "auto (on a terminal), always or never")
      ->option_text("WHEN")
      ->check(CLI::IsMember({"auto", "always", "never"}));
}

void AddStyleOptions(CLI::App& command, StyleOptions& style) {
  constexpr std::size_t kLeastColumns = 20;
  constexpr std::size_t kMostColumns = 10000;
  AddColourOption(command, style.Colour);
  command.add_option("--width", style.Columns, "columns to fit lines into; else those of the terminal")
      ->option_text("N")
      ->check(CLI::Range(kLeastColumns, kMostColumns));
}

}  // namespace lwconfig::tool
