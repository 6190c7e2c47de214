#pragma once

#include <functional>
#include <string>
#include <vector>

#include <tools/lwconfig/command_words.h>
#include <tools/lwconfig/reporter.h>

#include <lwconfig/paths/path_error.h>

namespace lwconfig::tool {

/// The file of commands that is being run, and the command under way.
struct CommandSource {
  std::string Name;  // of the file; empty for the command line
  std::string_view Text{};
  std::vector<Word> Command{};
};

/// Runs `body` and reports its errors with their places in the file, or in a word of the command line. The
/// place of an error of the library in a file of commands is the command under way.
void RunReported(Reporter& reporter, const CommandSource& source, const std::function<void()>& body);

}  // namespace lwconfig::tool
