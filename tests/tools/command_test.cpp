#include <filesystem>
#include <tuple>

#include <fcntl.h>
#include <sys/stat.h>
#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;

class CommandTest : public ToolTest {};

TEST_F(CommandTest, BeginsAConfigurationForAnOrdinaryUser) {
  if (std::filesystem::exists("/etc/lwconfig")) GTEST_SKIP() << "this machine has a registry";
  IsOrdinaryUser = true;
  std::filesystem::permissions(Folder.Path(), std::filesystem::perms(0777));
  Set("LWCONFIG_STARTER", Below("config"));
  Set("LWCONFIG_REGISTRY", nullptr);
  const auto made = Run("init own");
  EXPECT_EQ(made.Status, 0) << made.Err;
  EXPECT_THAT(made.Out, HasSubstr("for this user alone, in <test>/home/.config/lwconfig/machine.reg\n"));
  EXPECT_EQ(Run("template default LW.Core").Out, "Small/er one\n");
  EXPECT_EQ(Run("registry set HKLM/Soft x 1").Err,
            "lwconfig: note: 1 value of HKEY_LOCAL_MACHINE stored for this user alone, in "
            "<test>/home/.config/lwconfig/machine.reg\n");
  Set("HOME", nullptr);
  const auto refused = Run("init new");
  EXPECT_EQ(refused.Status, 4);
  EXPECT_THAT(refused.Err, HasSubstr("/etc/lwconfig: Permission denied\nlwconfig: note: nothing was copied"));
  EXPECT_FALSE(std::filesystem::exists(Below("new")));
}

TEST_F(CommandTest, ReadsAndWritesPipes) {
  const auto pipeWith = [](std::string_view text) {
    int ends[2];
    EXPECT_EQ(::pipe(ends), 0);
    EXPECT_EQ(::write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    ::close(ends[1]);
    return ends[0];
  };
  for (const char* name : {"-", "/dev/stdin", "/dev/fd/0", "pipe"}) {
    const std::string value = "[HKEY_CURRENT_USER\\Soft]\n\"" + std::string(name) + "\"=\"1\"\n";
    Input = pipeWith("REGEDIT4\n" + value);
    const std::string file = *name == 'p' ? "/dev/fd/" + std::to_string(Input) : name;
    EXPECT_EQ(Run("registry import " + file).Out, "imported 1 value\n") << name;
    ::close(Input);
    EXPECT_THAT(Run("registry export HKCU/Soft -").Out, ::testing::EndsWith("\n\n" + value));
    EXPECT_EQ(Run("registry delete HKCU/Soft").Status, 0);
  }
  Input = pipeWith("x");
  EXPECT_THAT(Run("registry import -").Err,
              ::testing::StartsWith("standard input:1:1: error: This is no registry"));
  ::close(Input);
  // A named pipe is opened once: whoever is at its other end sees one reader come and go.
  ASSERT_EQ(::mkfifo(Below("named").c_str(), 0600), 0);
  const pid_t writer = StartProcess([&] { return Run("registry export HKCU named").Status; });
  EXPECT_EQ(Folder.Read("named"), "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER]\n");
  EXPECT_EQ(ExitStatus(writer), 0);
}

TEST_F(CommandTest, TellsThatTheOutputCannotBeWrittenButNotThatItsReaderWentAway) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  const int device = ::open("/dev/full", O_WRONLY);
  for (const auto& [output, status, message] :
       {std::tuple(device, 4, "lwconfig: error: the output could not be written: No space left on device\n"),
        {ends[1], 0, ""}}) {
    const auto unwritten = Run("show", output);
    ::close(output);
    EXPECT_EQ(unwritten.Status, status);
    EXPECT_EQ(unwritten.Err, message);
  }
}

TEST_F(CommandTest, ShowsAPathThatTheHostCannotResolveAsItIs) {
  Folder.Write("drives/c/Windows/Microsoft.NET/.keep", "");
  std::filesystem::create_symlink("Framework", Below("drives/c/Windows/Microsoft.NET/Framework"));
  const auto shown = Run("show commentfiles/a.dll");
  EXPECT_EQ(shown.Out, "a.dll\n   comment file  %NETPATH%a.xml\n");
  EXPECT_EQ(shown.Status, 4);
}

TEST_F(CommandTest, DeepTreesAreCutAndFoundAtAnyDepth) {
  constexpr int kLevels = 20000;
  std::string definitions = "<p Name=\"Deep\">";
  std::string nodes =
      "<PageTemplate Name=\"Deep\" Description=\"\"><TOCDefinition Name=\"T\" Description=\"\">";
  for (int level = 1; level <= kLevels; ++level) {
    const std::string number = std::to_string(level);
    definitions += "<lwnamespace Name=\"D" + number + "\" Handler=\"\" Caption=\"\">";
    nodes += "<NodeDef Key=\"N" + number + "\" ParentKey=\"N" + std::to_string(level - 1) + "\"/>";
  }
  for (int level = 1; level <= kLevels; ++level) definitions += "</lwnamespace>";
  Folder.Write("config/Namespaces/deep.xml", definitions + "</p>");
  Folder.Write("config/Templates/Deep/config.xml", nodes + "</TOCDefinition></PageTemplate>");
  EXPECT_THAT(Run("show namespaces/deep --width 80").Out, HasSubstr("└─ deeper levels not shown (19800)\n"));
  EXPECT_THAT(Run("show namespaces/deep --json").Out,
              ContainsRegex("\"Class\": \"NamespaceDefs\",\n *\"Count\": 1\n"));
  // The last but one of either tree.
  EXPECT_THAT(Run("show namespaces/deep/d19999").Out, HasSubstr("D20000"));
  EXPECT_THAT(Run("show templates/deep/contents/t/n19999 --json").Out,
              HasSubstr("\"ParentKey\": \"N19998\""));
}

}  // namespace
}  // namespace lwconfig::testing
