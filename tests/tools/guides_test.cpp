#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <tests/locations.h>
#include <tests/tools/tool_test.h>
#include <tools/lwconfig/commands/commands.h>

#include <lwconfig/core/base/text.h>
#include <lwconfig/platform/files.h>

namespace lwconfig::testing {
namespace {

/// The command lines of a text: the indented or fenced lines that begin with "lwconfig", without the
/// explanation after two blanks and without what their output goes to.
std::vector<std::string> CommandLines(const std::string& text) {
  std::vector<std::string> found;
  bool isFenced = false;
  for (std::string_view line : Split(text, "\n")) {
    if (line.starts_with("```")) isFenced = !isFenced;
    const std::size_t indent = line.find_first_not_of(' ');
    if (indent == std::string_view::npos || (indent < 2 && !isFenced)) continue;
    line.remove_prefix(indent);
    if (!line.starts_with("lwconfig ")) continue;
    for (const char* end : {"  ", " | ", " > "}) line = line.substr(0, line.find(end));
    found.emplace_back(line.substr(line.find(' ') + 1));
  }
  return found;
}

void AddHelp(const tool::Command& command, std::vector<std::string>& lines) {
  for (const std::string& line : CommandLines(std::string(command.Help) + command.MoreHelp))
    lines.push_back(line);
  for (const tool::Command* const action : command.Actions) AddHelp(*action, lines);
}

class GuidesTest : public ToolTest {
 protected:
  /// Makes what the lines speak of, with the starter configuration as that which is registered, unless the
  /// line begins one.
  void Prepare(const std::string& line) {
    namespace fs = std::filesystem;
    const fs::path starter = fs::path(kGuidesFolder) / "../share/starter";
    for (const char* entry : {"work", "registry", "home", "drives"}) fs::remove_all(Below(entry));
    fs::create_directories(Below("work"));
    fs::copy(starter, Below("work/config"), fs::copy_options::recursive);
    fs::create_directory_symlink("config", Below("work/share"));
    fs::create_directory_symlink(".", Below("work/config/starter"));  // share/starter
    fs::create_directories(Below("drives/c/Backup"));
    Folder.Write("work/changes.txt", "set VBOptions.Grouped True\n");
    Folder.Write("work/settings.reg", "REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Example]\n");
    Folder.Write("registry/user.reg",
                 "REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Corvantis]\n\n"
                 "[HKEY_CURRENT_USER\\Software\\Example]\n\"Level\"=dword:1\n");
    WorkingFolder = Below("work");
    if (line.starts_with("init ")) return;
    Folder.Write("registry/machine.reg",
                 "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Corvantis\\Lexiwend4]\n\"ConfigPath\"=\"" +
                     Below("work/config") + "\"\n");
  }
};

TEST_F(GuidesTest, EveryCommandLineOfGuidesAndHelpRuns) {
  namespace fs = std::filesystem;
  std::vector<std::string> lines;
  std::vector<fs::path> guides{fs::path(kGuidesFolder) / "../README.md"};
  for (const auto& entry : fs::directory_iterator(kGuidesFolder)) {
    if (entry.path().extension() == ".md") guides.push_back(entry.path());
  }
  for (const fs::path& guide : guides) {
    for (const std::string& line : CommandLines(platform::Files::Native().Read(guide.string())))
      lines.push_back(line);
  }
  EXPECT_GT(lines.size(), 10u);
  AddHelp(tool::kProgram, lines);

  for (const std::string& line : std::set<std::string>(lines.begin(), lines.end())) {
    Prepare(line);
    const auto done = Run(line);
    EXPECT_EQ(done.Status, 0) << line << "\n" << done.Err;
  }
}

}  // namespace
}  // namespace lwconfig::testing
