#pragma once

#include <string>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <pty.h>
#include <sys/ioctl.h>
#include <tests/paths.h>
#include <tests/platform/posix/private_host.h>
#include <tools/lwconfig/members/words.h>

namespace lwconfig::testing {

struct ToolResult {
  int Status;
  std::string Out;
  std::string Err;
};

/// A command that fails, its exit status and a part of what it says about that.
struct Refusal {
  std::string Line;
  int Status;
  std::string Message;
};

/// Runs the built command, whose line is read as a shell does, in surroundings of its own, with a small
/// configuration to show.
class ToolTest : public PrivateHost {
 protected:
  ToolTest() {
    Set("LC_ALL", "C.UTF-8");
    Set("TERM", "xterm");
    for (const char* name : {"NO_COLOR", "COLUMNS", "COLORTERM", "LWCONFIG_STARTER"}) Set(name, nullptr);
    Folder.Write("config/Namespaces/LW.Core.xml",
                 R"(<profile Name="LW.Core" Caption="Core &amp; more" Supports="source">
  <lwnamespace Name="LW:Project" Handler="H" Caption="Project" ProvideIncludeFlag="True" DefaultIncludeFlag="True">
    <x Name="LW:Module" Handler="H" Caption="Module" FileNameFormat="%%name%%.html"/>
  </lwnamespace>
  <lwelements>
    <lwelement Name="LW:Value" Description="A value" Category="Text">
      <attribute Name="of" Description="Which" Mandatory="True" EditType="List" ListValues="a,b" DefaultValue="a"/>
      <attribute Name="case" Description="Letter case"/>
    </lwelement>
  </lwelements>
</profile>)");
    Folder.Write(
        "config/PlugIns/core.xml",
        R"(<p><PlugIn Name="LW.Core" Description="The core" ExtendsWizard="True" WizardProgID="Core.Wizard"
  ExtendsContent="False" ContentProgID="" ExtendsTableOfContents="True" TableOfContentsProgID=""/></p>)");
    Folder.Write("config/Templates/Small/method.html", "<html/>");
    Folder.Write("config/Templates/Small/template.hhc", "");
    Folder.Write("config/Templates/Small/config.xml", R"(<PageTemplate Name="Small/er one" Description="Tiny"
    ObjFillColor="16711935" BorderWidth="2" Version="4.11" DefTOCVBProject="Main">
  <PageLayout Name="Method" FileName="method.html" PageType="3" TitleTemplate="%%name%%.html"
    DependantOnnamespace="LW:Method" DependantOnnamespace_Filter="Public" DependantCount="2"/>
  <VariableDef Name="Footer" Description="At the foot" Type="4" DefaultValue="#fff"/>
  <TOCDefinition Name="Main" Description="Everything">
    <NodeDef Key="N1" NodeCaptionTemplate="Methods" MarkAsNew="True"/>
    <NodeDef Key="N2" NodeCaptionTemplate="%%name%%" ParentKey="N1" NodeType="1" PageType="3" PageLayout="method.html"/>
    <NodeDef Key="N3" NodeCaptionTemplate="Diagram" ParentKey="N1" NodeType="2" PlugInName="LW.Diagrams" PlugInData="x"
      UseCustomIcon="True" NodeIconIndex="7" DependantOn="8"/>
  </TOCDefinition>
</PageTemplate>)");
  }

  /// Runs the command on the small configuration.
  ToolResult RunIn(const std::string& line, int output = -1) {
    return Run(line + " --config " + Below("config"), output);
  }
  ToolResult Show(const std::string& what) { return RunIn("show " + what); }
  /// What the command prints about the small configuration as JSON.
  nlohmann::json Json(const std::string& line) {
    const auto printed = RunIn(line + " --json");
    EXPECT_EQ(printed.Status, 0) << line << printed.Err;
    return nlohmann::json::parse(printed.Out);
  }
  /// Expects each of them to fail on the small configuration, printing nothing else.
  void ExpectRefusals(const std::vector<Refusal>& refusals) {
    for (const auto& [line, status, message] : refusals) {
      const auto refused = RunIn(line);
      EXPECT_EQ(refused.Status, status) << line << refused.Err;
      EXPECT_THAT(refused.Err, ::testing::HasSubstr(message)) << line;
      EXPECT_EQ(refused.Out, "") << line;
    }
  }

  /// The open file that the command has as standard input.
  int Input = STDIN_FILENO;
  /// Whether the command is run without the rights of an administrator.
  bool IsOrdinaryUser = false;

  /// Standard output goes to the open file `output` where one is given.
  ToolResult Run(const std::string& line, int output = -1) {
    const std::string out = Below("out");
    const std::string err = Below("err");
    const pid_t process = StartProcess([&] {
      ::dup2(Input, STDIN_FILENO);
      ::dup2(output >= 0 ? output : ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
      ::dup2(::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
      return Execute(line);
    });
    const int status = ExitStatus(process);
    return {status, Read("out"), Read("err")};
  }

  /// What the command writes to a terminal so many columns wide; line ends are line feeds.
  std::string RunOnTerminal(const std::string& line, unsigned short columns) {
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

  /// The text with the folder of this test replaced by `<test>`.
  std::string WithoutFolder(std::string text) const {
    const std::string folder = Folder.Path().string();
    for (std::size_t at; (at = text.find(folder)) != std::string::npos;)
      text.replace(at, folder.size(), "<test>");
    return text;
  }

 private:
  std::string Read(const char* name) const { return WithoutFolder(Folder.Read(name)); }

  int Execute(const std::string& line) const {
    std::vector<tool::Word> words;
    tool::WordReader(line).Next(words);
    std::vector<char*> argv{const_cast<char*>("lwconfig")};
    for (auto& word : words) argv.push_back(word.Text.data());
    argv.push_back(nullptr);
    // Opened first: the way to it may be closed to another user.
    const int program = ::open(kCommandPath, O_PATH | O_CLOEXEC);
    constexpr uid_t kNobody = 65534;
    if (IsOrdinaryUser && ::geteuid() == 0 && ::setresuid(kNobody, kNobody, kNobody) != 0) return 126;
    ::fexecve(program, argv.data(), environ);
    return 127;
  }
};

}  // namespace lwconfig::testing
