#include <fstream>
#include <regex>
#include <set>
#include <vector>

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <tests/locations.h>
#include <tests/tools/tool_test.h>
#include <tools/lwconfig/command_words.h>

#include <lwconfig/core/base/text.h>

namespace lwconfig::testing {
namespace {

const std::string kFolder = "<test>";
const std::string kAnything = "…";
const std::string kNothing = "(nothing)";
const std::string kNone = "(none)";

std::string Replaced(std::string text, std::string_view from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
  return text;
}

/// With the bytes that are written as \xNN, and the line ends.
std::string Unescaped(const std::string& line) {
  static const std::regex escape(R"(\\x([0-9a-f]{2}))");
  std::string text;
  auto end = line.begin();
  for (std::sregex_iterator at(line.begin(), line.end(), escape), none; at != none; ++at) {
    text.append(end, (*at)[0].first);
    text += static_cast<char>(std::stoi((*at)[1], nullptr, 16));
    end = (*at)[0].second;
  }
  return Replaced(text.append(end, line.end()), "¶", "\n");
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (&line == lines.data() ? "" : "\n") + line;
  return text;
}

/// Says where the text stops to be as the pattern has it; nothing where it is so to its end.
std::string Difference(const std::string& pattern, const std::string& text) {
  const std::string end(1, '\0');  // also the start
  const std::string wanted = end + (text.empty() && pattern == kNothing ? text : pattern) + end;
  const std::string whole = end + text + end;
  std::size_t at = 0;
  for (const std::string_view part : Split(wanted, kAnything)) {
    const std::size_t found = whole.find(part, at);
    if (found == std::string::npos) {
      constexpr std::size_t kShown = 1500;
      return "expected here:\n" + std::string(part) + "\nbut there is:\n" + whole.substr(at, kShown) + "\n";
    }
    at = found + part.size();
  }
  return {};
}

std::string WithoutLineEnd(std::string text) {
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

}  // namespace

/// A line of a session file with the indented lines below it.
struct ToolTest::Step {
  int Number;
  char Kind;  // '$', '>', '<', '-' or '=' for a variable
  int Status = 0;
  std::string Text;
  std::vector<std::string> Lines{};
  std::string Error{};
};

std::vector<ToolTest::Step> ToolTest::StepsOf(const std::string& file) {
  static const std::regex step(R"(([0-9]?)([$<>-]) (.*?)(?: => (.*))?|([A-Z_]+)=(.*))");
  std::vector<Step> steps;
  std::ifstream in(file);
  const auto expect = [&](const std::string& written) {
    const std::string line = Unescaped(written);
    if (line.starts_with("! ")) {
      steps.back().Error = line.substr(2);
    } else {
      steps.back().Lines.push_back(line);
    }
  };
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    ++number;
    std::smatch parts;
    if (line.empty() || line.starts_with("#")) continue;
    if (line.starts_with("  ")) {
      expect(line.substr(2));
    } else if (!std::regex_match(line, parts, step)) {
      ADD_FAILURE_AT(file.c_str(), number) << "this is no step";
    } else if (parts[5].matched) {
      steps.push_back({number, '=', 0, Unescaped(line)});
    } else {
      steps.push_back(
          {number, *parts[2].first, parts[1].length() > 0 ? std::stoi(parts[1]) : 0, Unescaped(parts[3])});
      if (parts[4].matched) expect(parts[4]);
    }
  }
  return steps;
}

std::string ToolTest::Do(const Step& step) {
  const std::string text = Replaced(step.Text, kFolder, Folder.Path().string());
  if (step.Kind == '=') {
    static std::set<std::string> names;  // the environment refers to them
    const std::size_t end = text.find('=');
    const char* name = names.insert(text.substr(0, end)).first->c_str();
    Set(name, end + 1 < text.size() ? text.c_str() + end + 1 : nullptr);
  } else if (step.Kind == '>') {
    const std::string content = Replaced(Joined(step.Lines), kFolder, Folder.Path().string());
    Folder.Write(text, content.empty() ? content : content + "\n");
  } else if (step.Kind == '-') {
    std::filesystem::remove_all(Below(text));
  } else if (step.Kind == '<') {
    const bool isThere = std::filesystem::exists(Below(text));
    return Difference(Joined(step.Lines), isThere ? WithoutLineEnd(WithoutFolder(Folder.Read(text))) : kNone);
  } else {
    std::string wrong;
    const auto commands = Split(text, " && ");
    for (const auto command : commands) {
      const auto [status, out, err] = Run(std::string(command));
      const bool isLast = command.data() == commands.back().data();
      const int expected = isLast ? step.Status : 0;
      if (status != expected) wrong += "the exit status is " + std::to_string(status) + "\n";
      if (isLast && (!step.Lines.empty() || expected != 0))
        wrong += Difference(step.Lines.empty() ? kNothing : Joined(step.Lines), WithoutLineEnd(out));
      if (isLast && !step.Error.empty()) {
        wrong += Difference(kAnything + step.Error + kAnything, err);
      } else if (expected == 0 && !err.empty()) {
        wrong += "this was not expected:\n" + err;
      }
    }
    return wrong;
  }
  return {};
}

void ToolTest::Play(const std::string& file) {
  const std::string path = kSessionsFolder + ("/" + file);
  for (const Step& step : StepsOf(path)) {
    const std::string wrong = Do(step);
    if (!wrong.empty()) ADD_FAILURE_AT(path.c_str(), step.Number) << step.Text << "\n" << wrong;
  }
}

ToolTest::ToolTest() {
  Set("LC_ALL", "C.UTF-8");
  Set("TERM", "xterm");
  for (const char* name : {"NO_COLOR", "COLUMNS", "COLORTERM", "LWCONFIG_STARTER"}) Set(name, nullptr);
  Play("small.setup");
}

ToolResult ToolTest::Run(const std::string& line, int output) const {
  const std::string out = Below("out");
  const std::string err = Below("err");
  const pid_t process = StartProcess([&] {
    const auto create = [](const std::string& file) {
      return ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    };
    ::dup2(Input, STDIN_FILENO);
    ::dup2(output >= 0 ? output : create(out), STDOUT_FILENO);
    ::dup2(create(err), STDERR_FILENO);
    return Execute(line);
  });
  const int status = ExitStatus(process);
  return {status, WithoutFolder(Folder.Read("out")), WithoutFolder(Folder.Read("err"))};
}

std::string ToolTest::RunOnTerminal(const std::string& line, unsigned short columns) const {
  winsize size{};
  size.ws_row = 24;
  size.ws_col = columns;
  int terminal = -1;
  const pid_t process = ::forkpty(&terminal, nullptr, nullptr, &size);
  if (process == 0) ::_exit(Execute(line));
  std::string text;
  char part[4096];
  // A terminal whose other end has gone fails to be read.
  for (ssize_t got; (got = ::read(terminal, part, sizeof part)) > 0;)
    text.append(part, static_cast<std::size_t>(got));
  ::close(terminal);
  ExitStatus(process);
  std::erase(text, '\r');
  return text;
}

std::string ToolTest::WithoutFolder(std::string text) const {
  return Replaced(std::move(text), Folder.Path().string(), kFolder);
}

int ToolTest::Execute(const std::string& line) const {
  std::vector<tool::Word> words;
  tool::WordReader(line).Next(words);
  std::vector<char*> argv{const_cast<char*>("lwconfig")};
  for (auto& word : words) argv.push_back(word.Text.data());
  argv.push_back(nullptr);
  // Opened first: the way to it may be closed to another user.
  const int program = ::open(kCommandPath, O_PATH | O_CLOEXEC);
  constexpr uid_t kNobody = 65534;
  if (IsOrdinaryUser && ::geteuid() == 0 && ::setresuid(kNobody, kNobody, kNobody) != 0) return 126;
  if (::chdir(WorkingFolder.c_str()) != 0) return 125;
  ::fexecve(program, argv.data(), environ);
  return 127;
}

}  // namespace lwconfig::testing
