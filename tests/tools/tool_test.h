#pragma once

#include <string>

#include <gmock/gmock.h>
#include <tests/platform/posix/private_host.h>
#include <unistd.h>

namespace lwconfig::testing {

struct ToolResult {
  int Status;
  std::string Out;
  std::string Err;
};

/// Runs the built command in surroundings of its own, where a small configuration is registered: that of
/// `sessions/small.setup`.
class ToolTest : public PrivateHost {
 protected:
  ToolTest();

  /// Runs the command, whose line is read as a shell does. Standard output goes to the open file `output`
  /// where one is given. In what it writes the folder of this test is `<test>`.
  ToolResult Run(const std::string& line, int output = -1) const;
  /// Runs the command; what it writes to a terminal so many columns wide. Line ends are line feeds.
  std::string RunOnTerminal(const std::string& line, unsigned short columns = 80) const;
  /// Plays a file of the folder `sessions`. A line is one step, lines indented by two blanks belong to it:
  ///   # a comment
  ///   $ show paths        runs the command; a digit in front of the $ is the exit status, else that is 0
  ///     paths             what it prints; … is anything, also several lines
  ///     ! a folder        a part of what it tells on standard error
  ///   > config/a.xml      writes a file with the indented lines
  ///   < config/a.xml      the file has the indented lines
  ///   - config/a.xml      removes a file or folder
  ///   NO_COLOR=1          sets a variable; without a value removes it
  /// One indented line may follow " => " in the line of its step, and " && " may stand between commands that
  /// succeed. ¶ is a line end, \xNN a byte, <test> the folder of the test, which is the current one,
  /// (nothing) no output and (none) no file. What a command prints that succeeds may be left out; one that
  /// fails prints nothing unless it is said, and one that succeeds reports nothing unless it is said.
  void Play(const std::string& file);

  /// The open file that the command has as standard input.
  int Input = STDIN_FILENO;
  /// Whether the command is run without the rights of an administrator.
  bool IsOrdinaryUser = false;
  /// The current folder of the command.
  std::string WorkingFolder = Folder.Path().string();

 private:
  struct Step;
  static std::vector<Step> StepsOf(const std::string& file);
  /// What is not as the step expects; empty where everything is.
  std::string Do(const Step& step);
  std::string WithoutFolder(std::string text) const;
  int Execute(const std::string& line) const;
};

}  // namespace lwconfig::testing
