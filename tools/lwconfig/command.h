#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <tools/lwconfig/reporter.h>

namespace lwconfig::tool {

inline constexpr int kAnyNumber = 1 << 20;  // more than a command line holds

/// What a parameter holds: text is UTF-8, a path names a file or folder of the host and is never empty.
enum class Form { Text, Path, Bytes };

/// One argument or option of a command.
struct Parameter {
  const char* Name;  // "FILE" is an argument by its place, "-c,--config" an option
  const char* About;
  const char* Value = nullptr;  // of an option: the name of its value; null for a flag, which has none
  lwconfig::tool::Form Form = tool::Form::Text;
  bool IsRequired = false;
  int Most = 1;               // of an argument: the number of values that it takes
  const char* Excludes = "";  // names of the parameters, between blanks, that cannot be given as well
  std::string (*Check)(const std::string& given) = nullptr;  // the fault of a value; empty for none

  bool IsOption() const { return Name[0] == '-'; }
  bool IsFlag() const { return IsOption() && Value == nullptr; }
  /// Whether `name` is one of its names.
  bool IsNamed(std::string_view name) const;
  /// The fault of a value that it is given; empty for none.
  std::string FaultOf(const std::string& given) const;
  /// The last of its names: "--config".
  std::string LongName() const;
};

/// What a command line gives a command. Parameters are asked for by any name: "FILE", "--config". A name that
/// the command does not have is a std::logic_error.
class Arguments {
 public:
  void Add(const Parameter& parameter, std::vector<std::string> values) {
    mGiven.emplace_back(&parameter, std::move(values));
  }

  bool Has(std::string_view name) const { return !Texts(name).empty(); }
  /// The value as it was written; empty where it is not given.
  std::string Text(std::string_view name) const { return Has(name) ? Texts(name).front() : std::string(); }
  const std::vector<std::string>& Texts(std::string_view name) const;
  /// The value of an option whose `Check` lets only numbers pass; 0 where it is not given.
  std::size_t Number(std::string_view name) const;

 private:
  std::vector<std::pair<const Parameter*, std::vector<std::string>>> mGiven;
};

/// A command, or an action of one.
struct Command {
  const char* Name;
  const char* About;
  const char* Help = "";  // what follows the list of parameters; an action without shows that of its command
  const char* MoreHelp = "";                  // the rest of it, where commands share `Help`
  std::span<const Parameter> Parameters{};    // its own
  std::span<const Parameter> Common{};        // options that other commands have as well
  std::span<const Command* const> Actions{};  // they take the options of the command, too
  /// Of a command with actions it is done when none is given; null shows the help then.
  void (*Run)(const Arguments& arguments, Reporter& reporter) = nullptr;
  bool IsHidden = false;

  /// The action of this name; null where there is none.
  const Command* Action(std::string_view name) const;
};

}  // namespace lwconfig::tool
