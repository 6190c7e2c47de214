#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include <tools/lwconfig/command.h>

namespace lwconfig::tool {

/// Options that are answered here: one of every command, one of the program alone.
inline constexpr Parameter kHelpOption{"-h,--help", "this help, or that of a command"};
inline constexpr Parameter kVersionOption{"--version", "the version of this program"};

/// A command and its arguments.
struct Request {
  const Command* Asked;
  Arguments Given;
};

/// What the command line of the process asks of the program. Options that all commands may have can come
/// before the command as well. Nothing where that is done already: help and version are written, misuse is
/// reported.
std::optional<Request> ReadCommandLine(const Command& program, int argc, const char* const* argv,
                                       Reporter& reporter);

/// The help of the program, or of the command, and its action, that the words name; nothing, and reported,
/// where they name none.
std::optional<std::string> HelpText(const Command& program, std::span<const std::string> words,
                                    Reporter& reporter);

/// What the words of a line in a file ask for: the first is the name of one of the commands, which have their
/// own parameters only. Misuse is a `PathError`.
Request ReadWords(std::span<const Command* const> commands, const std::vector<std::string>& words);

}  // namespace lwconfig::tool
