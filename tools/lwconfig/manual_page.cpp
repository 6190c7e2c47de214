#include <cctype>
#include <span>
#include <string_view>
#include <utility>

#include <tools/lwconfig/command_line.h>
#include <tools/lwconfig/manual_page.h>

#include <lwconfig/core/base/text.h>

namespace lwconfig::tool {
namespace {

/// The text without meaning for the formatter.
std::string Escaped(std::string_view text) {
  std::string escaped = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
  for (const char c : text) {
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string Bold(std::string_view text) {
  return "\\fB" + Escaped(text) + "\\fR";
}

std::string Italic(std::string_view text) {
  return "\\fI" + Escaped(text) + "\\fR";
}

class Page {
 public:
  explicit Page(const Command& program) {
    const std::string name = program.Name;
    Line(".TH " + UpperCased(name) + " 1 \"\" " + name);
    Line(".SH NAME");
    Line(name + " \\- " + Escaped(program.About));
    Line(".SH SYNOPSIS");
    Line(Bold(name) + " [" + Italic("options") + "] " + Italic("command") + " [" + Italic("arguments") + "]");
    Line(".SH OPTIONS");
    Add(kHelpOption);
    Add(kVersionOption);
    Add(program.Common);
    AddProse(program.Help, true);
    Line(".SH COMMANDS");
    for (const Command* const command : program.Actions) {
      if (!command->IsHidden) AddCommand(*command, command->Name);
    }
  }

  std::string Text() && { return std::move(mText); }

 private:
  static std::string UpperCased(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
  }

  void Line(const std::string& text) { mText += text + "\n"; }

  void Add(const Parameter& parameter) {
    Line(".TP");
    const std::string value = parameter.Value != nullptr ? " " + Italic(parameter.Value) : "";
    Line(parameter.IsOption() ? Bold(parameter.Name) + value : Italic(parameter.Name));
    Line(Escaped(parameter.About));
  }
  void Add(std::span<const Parameter> parameters) {
    for (const Parameter& parameter : parameters) Add(parameter);
  }

  void AddCommand(const Command& command, const std::string& name) {
    std::string heading = name;
    for (const Parameter& parameter : command.Parameters) {
      if (parameter.IsOption()) continue;
      const std::string shown = parameter.Name + std::string(parameter.Most > 1 ? "..." : "");
      heading += parameter.IsRequired ? " " + shown : " [" + shown + "]";
    }
    Line(".SS \"" + Escaped(heading) + "\"");
    Line(Escaped(command.About));
    Add(command.Parameters);
    Add(command.Common);
    AddProse(std::string(command.Help) + command.MoreHelp, false);
    for (const Command* const action : command.Actions) AddCommand(*action, name + " " + action->Name);
  }

  /// Indented lines stay as they are, the others are filled. In the help of the program a line that ends in a
  /// colon is the title of a section.
  void AddProse(std::string_view text, bool hasSections) {
    bool isExact = false;
    bool isBegin = true;
    for (const std::string_view line : Split(text, "\n")) {
      const bool isIndented = line.starts_with(' ');
      if (isIndented != isExact) Line(isIndented ? ".nf" : ".fi");
      isExact = isIndented;
      if (hasSections && isBegin && line.ends_with(':')) {
        Line(".SH " + UpperCased(std::string(line.substr(0, line.size() - 1))));
      } else if (!line.empty()) {
        if (isBegin && !isIndented) Line(".PP");
        Line(Escaped(line));
      }
      isBegin = line.empty();
    }
  }

  std::string mText;
};

}  // namespace

std::string ManualPage(const Command& program) {
  return Page(program).Text();
}

}  // namespace lwconfig::tool
