#pragma once

#include <functional>
#include <string>
#include <vector>

#include <tools/lwconfig/members/fault.h>
#include <tools/lwconfig/members/words.h>
#include <tools/lwconfig/reporter.h>

namespace lwconfig::tool {

/// The file of commands that is being run, and the command under way.
struct CommandSource {
  std::string Name;  // of the file; empty for the command line
  std::string_view Text{};
  std::vector<Word> Command{};
};

/// Runs `body`, and tells the user of a fault in it: where it is in the file, or in which word of the command
/// line. Errors of the library in a file of commands are told as of the command under way.
void WithFaults(Reporter& reporter, const CommandSource& source, const std::function<void()>& body);

}  // namespace lwconfig::tool
