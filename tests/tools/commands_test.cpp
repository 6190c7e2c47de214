#include <filesystem>

#include <tests/tools/tool_test.h>
#include <tools/lwconfig/view/styled_text.h>

#include <lwconfig/core/base/text.h>

namespace lwconfig::testing {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The commands besides `show`, on the small configuration unless a test registers another.
class CommandTest : public ToolTest {
 protected:
  CommandTest() {
    Folder.Write("config/Templates/Small/Phrases/English.txt", "Method~A method\r\nOnlyHere~x\r\n");
    Folder.Write("config/Templates/Small/Phrases/German.txt",
                 R"(<?xml version="1.0" encoding="UTF-8"?><p><t name="method">Eine Methode</t></p>)");
    Folder.Write("config/Templates/Small/HTMLScraps/English.txt", "Foot~<hr>\r\n");
    Folder.Write("config/ExternalDocs.xml",
                 R"(<e><ExternalDoc Namespace="System*" URLFormat="https://x/%%Object%%"
    Help2Link="T:%%LinkCaption%%">
  <DefaultMemberLink URLFormat="https://x/%%Class%%.%%MemberName%%"/></ExternalDoc>
  <ExternalDoc Namespace="Old*" HTMLHelp1Link="&lt;b/&gt;"/></e>)");
  }

  std::string UserRegistry() const { return Folder.Read("registry/user.reg"); }
};

TEST_F(CommandTest, ListsOptions) {
  ASSERT_EQ(Run("options set IDEOptions.AutoSave yes").Status, 0);
  const auto listed = RunIn("options");
  EXPECT_EQ(listed.Status, 0);
  EXPECT_THAT(listed.Out, StartsWith("OPTION "));
  EXPECT_THAT(listed.Out, ContainsRegex("\nIDEOptions\\.AutoSave +boolean +False +\"True\" +True\n"));
  EXPECT_THAT(listed.Out, ContainsRegex("\nVBOptions\\.WrapCharacters +VB +integer +90 +90\n"));
  EXPECT_EQ(RunIn("options list").Out, listed.Out);
  for (const std::string command : {"options", "phrase small english", "scrap small english", "template"}) {
    EXPECT_THAT(RunIn(command + " --width 20 --color always").Out, HasSubstr("\x1b[")) << command;
    const auto narrow = RunIn(command + " --width 20 --color never");
    for (const auto line : Split(narrow.Out, "\n")) EXPECT_LE(tool::Width(line), 20u) << command;
  }
  EXPECT_THAT(RunIn("options --width 80").Out,
              ContainsRegex("\nIDEOptions\\. +boolean +False +\"True\" +True\n"));
  EXPECT_THAT(Json("options list"), ::testing::Contains(nlohmann::json::parse(R"(
      {"Set": "VBOptions", "Name": "VBAShowFriend", "Section": "VBA", "ValueName": "ShowFriend",
       "Type": "boolean", "Default": true, "Stored": null, "Value": true})")));
}

TEST_F(CommandTest, SetsOptionsToValuesOfTheirTypes) {
  const std::tuple<std::string, std::string, const char*, const char*> kRows[] = {
      {"vboptions.wrapcharacters", "72", "\"WrapCharacters\"=\"72\"", "72\n"},
      {"VBOptions.XMLCommentLineBreak", "-7", "\"XMLCommentLineBreak\"=\"-7\"", "-7\n"},
      {"VBOptions.CodeViewCollapsed", "YES", "\"CodeViewCollapsed\"=\"True\"", "True\n"},
      {"VBOptions.VBAShowPrivate", "0", "\"ShowPrivate\"=\"False\"", "False\n"},
      {"VSNETOptions.CommentWindowStyle", "2", "\"CommentWindowStyle\"=\"2\"", "LWVSWindowStyleExternal\n"},
      {"IDEOptions.ToolbarStyle", "toolbarstyleofficexp", "\"ToolbarStyle\"=\"0\"", "ToolbarStyleOfficeXP\n"},
      {"LWCommenterOptions.PreviewTemplate", "A b", "\"PreviewTemplate\"=\"A b\"", "A b\n"},
  };
  for (const auto& [name, value, stored, read] : kRows) {
    const auto set = Run("options set " + name + " '" + value + "'");
    EXPECT_EQ(set.Status, 0) << name << set.Err;
    EXPECT_THAT(UserRegistry(), HasSubstr(stored)) << name;
    EXPECT_EQ(RunIn("options get " + name).Out, read) << name;
  }
}

TEST_F(CommandTest, ResetsOptionsAllOrNone) {
  ASSERT_EQ(Run("options set VBOptions.WrapCharacters 72").Status, 0);
  ASSERT_EQ(Run("options set VBOptions.PreviewTemplate ''").Status, 0);
  const std::string before = UserRegistry();
  ExpectRefusals(
      {{"options reset VBOptions.WrapCharacters VBOptions.None", 1, "there is no 'VBOptions.None'"},
       {"options reset", 2, "NAME is required"}});
  EXPECT_EQ(UserRegistry(), before);
  EXPECT_EQ(Run("options reset vboptions.wrapcharacters VBOptions.PreviewTemplate VBOptions.Grouped").Out,
            "VBOptions.WrapCharacters = 90\nVBOptions.PreviewTemplate = \"Platform SDK style\"\n"
            "VBOptions.Grouped = True\n");
  EXPECT_THAT(UserRegistry(), ::testing::Not(::testing::AnyOf(HasSubstr("Wrap"), HasSubstr("Preview"))));
}

TEST_F(CommandTest, RefusesValuesOfOtherTypes) {
  const std::pair<const char*, const char*> kRows[] = {
      {"VBOptions.WrapCharacters 7x", "'7x' is not a whole number that fits"},
      {"VBOptions.WrapCharacters 2147483648", "is not a whole number that fits"},
      {"VBOptions.WrapCharacters ''", "'' is not a whole number"},
      {"VBOptions.CodeViewCollapsed 2", "'2' is not True or False"},
      {"VBOptions.ToolbarStyle 3", "there is no value '3' of LWToolBarStyleEnum"},
      {"VBOptions.ToolbarStyle ModeVBCode", "there is no value 'ModeVBCode'"},
  };
  for (const auto& [option, message] : kRows) {
    for (const std::string command : {"options set ", "set "})
      ExpectRefusals({{command + option, 2, message}});
  }
  EXPECT_FALSE(std::filesystem::exists(Below("registry/user.reg")));
}

TEST_F(CommandTest, TellsOfOptionsThatCannotBeReadOrDoNotExist) {
  Folder.Write(
      "registry/user.reg",
      "REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Corvantis\\Lexiwend4\\VB]\n\"WrapCharacters\"=\"wide\"\n");
  ExpectRefusals({{"options get VBOptions.WrapCharacters", 3, "is stored as \"wide\""},
                  {"options set VBOptions.WrapCharacter 1", 1, "did you mean 'VBOptions.WrapCharacters'?"},
                  {"options lst", 2, "did you mean 'list'?"}});
  const auto all = RunIn("options --json");
  EXPECT_EQ(all.Status, 3);
  EXPECT_GT(nlohmann::json::parse(all.Out).size(), 50u);

  EXPECT_THAT(Run("options set VBOptions.VBCommentMode 0").Err,
              HasSubstr("'ModeDocComments' is stored, but VBOptions.VBCommentMode reads as 'ModeVBCode'"));
}

TEST_F(CommandTest, LooksUpTexts) {
  EXPECT_EQ(RunIn("phrase small ENGLISH").Out, "NAME      TEXT\nMethod    A method\nOnlyHere  x\n");
  EXPECT_EQ(RunIn("phrase 'Small/er one' German METHOD").Out, "Eine Methode\n");
  EXPECT_EQ(Json("scrap small English"), nlohmann::json::parse(R"([{"Name": "Foot", "Text": "<hr>"}])"));
  ExpectRefusals({
      {"phrase small German Metod", 1, "did you mean 'method'?"},
      {"phrase small Germn", 1, "did you mean 'German'?"},
      {"phrase small ../German", 1, "there is no '../German'"},
      {"scrap small German", 1, "What there is:\n  English\n"},
      {"phrase smal German", 1, "did you mean 'Small/er one'?"},
      {"phrase small", 2, "LANGUAGE is required"},
      {"phrase ..", 1, "there is no '..'"},
      {"phrase small German --compare", 2, "name the template only"},
  });
  // What stands before a fault can still be looked up.
  Folder.Write("config/Templates/Small/Phrases/German.txt",
               "<?xml version=\"1.0\"?><p><t name=\"a\">A</t><t>B</t></p>");
  const auto damaged = RunIn("phrase small German a");
  EXPECT_EQ(damaged.Status, 3);
  EXPECT_EQ(damaged.Out, "A\n");
}

TEST_F(CommandTest, ComparesLanguages) {
  const auto compared = RunIn("phrase small --compare");
  EXPECT_EQ(compared.Status, 1);
  EXPECT_EQ(compared.Out, "NAME      IN       MISSING IN\nOnlyHere  English  German\n");
  EXPECT_EQ(RunIn("phrase small --compare --json").Out,
            "[\n  {\n    \"Name\": \"OnlyHere\",\n    \"In\": [\n      \"English\"\n    ],\n"
            "    \"MissingIn\": [\n      \"German\"\n    ]\n  }\n]\n");
  const auto single = RunIn("scrap small --compare");
  EXPECT_EQ(single.Status, 0);
  EXPECT_THAT(single.Err, HasSubstr("one language only"));
}

TEST_F(CommandTest, PrintsLinks) {
  const std::pair<std::string, const char*> kRows[] = {
      {"System.Text", "<a href=\"https://x/Text\">System.Text</a>\n"},
      {"System.Text --help2 --caption c", "T:c\n"},
      {"System.Text --member Add(x)", "<a href=\"https://x/Text.Add\">Add(x)</a>\n"},
      {"System.Text --url", "https://x/Text\n"},
      {"Other.Text", ""},
      {"Other.Text --url", ""},
      {"Other.Text -m x", ""},
      {"Old.Text --url", ""},
  };
  for (const auto& [arguments, out] : kRows) {
    const auto linked = RunIn("link " + arguments);
    EXPECT_EQ(linked.Out, out) << arguments;
    EXPECT_EQ(linked.Status, linked.Out.empty() ? 1 : 0);
  }
  EXPECT_EQ(Json("link System.Text --url")["URL"], "https://x/Text");
  EXPECT_EQ(RunIn("link System.Text --url --member x").Status, 2);
}

TEST_F(CommandTest, ListsAndChoosesTemplates) {
  Folder.Write("config/Namespaces/Other.xml", "<p Name='LW.Other'/>");
  EXPECT_EQ(RunIn("template").Out,
            "NAME          FOLDER  PROFILES  ITEM TYPES\nSmall/er one  Small   LW.Core   binary, source\n");
  EXPECT_EQ(Json("template list")[0]["NamespaceProfileNames"][0], "LW.Core");
  EXPECT_EQ(RunIn("template default lw.core --supports source").Out, "Small/er one\n");
  ExpectRefusals({{"template default LW.Core --supports wood", 1, "supports 'wood'"},
                  {"template default LW.Other", 1, "no template has the profile 'LW.Other'"},
                  {"template default LW.Kore", 1, "did you mean 'LW.Core'?"}});
}

TEST_F(CommandTest, ClonesTemplates) {
  Folder.Write("config/Templates/Small/config.xml.bak", "old");
  const auto cloned = RunIn("template clone small Second Two");
  EXPECT_EQ(cloned.Status, 0) << cloned.Err;
  EXPECT_EQ(cloned.Out, "copied template 'Small/er one' to 'Second' in <test>/config/Templates/Two\n");
  EXPECT_EQ(Folder.Read("config/Templates/Two/Phrases/English.txt"),
            Folder.Read("config/Templates/Small/Phrases/English.txt"));
  EXPECT_FALSE(std::filesystem::exists(Below("config/Templates/Two/config.xml.bak")));
  EXPECT_EQ(Folder.Read("config/Templates/Small/config.xml.bak"), "old");
  const auto shown = Json("show templates");
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[1]["Name"], "Second");
  EXPECT_EQ(shown[0]["PageLayouts"], shown[1]["PageLayouts"]);

  ExpectRefusals({{"template clone small SECOND Three", 2, ""},
                  {"template clone small Third TWO", 2, ""},
                  {"template clone small ../Third", 2, ""},
                  {"template clone small '' Three", 2, ""},
                  {"template clone small \x01 Three", 2, "' has U+0001"},
                  {"template clone small Three \xff", 2, "FOLDER: the text is not valid UTF-8"},
                  {"template clone nothing Third", 1, ""}});
  Folder.Write("config/Templates/Damaged/config.xml", "<PageTemplate");
  EXPECT_EQ(RunIn("template clone small Fourth").Status, 3);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Below("config/Templates")), {}), 3);
  // Nothing is ever written to the starter configuration.
  Set("LWCONFIG_STARTER", Below("config"));
  EXPECT_EQ(Run("template clone small Fifth").Status, 2);
}

TEST_F(CommandTest, BeginsAConfiguration) {
  Set("LWCONFIG_STARTER", Below("config"));
  Folder.Write("config/.hidden", "");
  Folder.Write("used/file", "mine");
  EXPECT_EQ(Run("init " + Below("used")).Status, 2);
  EXPECT_FALSE(std::filesystem::exists(Below("registry/machine.reg")));

  const auto made = Run("init " + Below("drives/c/New/Conf"));
  EXPECT_EQ(made.Status, 0) << made.Err;
  EXPECT_THAT(made.Out, HasSubstr("registered C:\\New\\Conf as ConfigPath"));
  EXPECT_FALSE(std::filesystem::exists(Below("drives/c/New/Conf/.hidden")));
  EXPECT_EQ(Folder.Read("drives/c/New/Conf/ExternalDocs.xml"), Folder.Read("config/ExternalDocs.xml"));
  const auto chosen = Run("template default LW.Core");
  EXPECT_EQ(chosen.Out, "Small/er one\n");
  EXPECT_EQ(chosen.Err, "");

  const auto again = Run("init " + Below("config/inside"));
  EXPECT_EQ(again.Status, 2);
  EXPECT_THAT(again.Err, HasSubstr("--replace"));
  const auto replaced = Run("init " + Below("config/inside") + " --replace --json");
  EXPECT_EQ(nlohmann::json::parse(replaced.Out)["PreviousConfigPath"], "C:\\New\\Conf");
  EXPECT_FALSE(std::filesystem::exists(Below("config/inside/inside")));

  const auto copied = Run("init " + Below("copied") + " --no-register");
  EXPECT_EQ(copied.Status, 0) << copied.Err;
  EXPECT_EQ(Folder.Read("copied/ExternalDocs.xml"), Folder.Read("config/ExternalDocs.xml"));
  EXPECT_THAT(Folder.Read("registry/machine.reg"), HasSubstr("config\\\\inside"));
}

TEST_F(CommandTest, BeginsAConfigurationForAnOrdinaryUser) {
  if (std::filesystem::exists("/etc/lwconfig")) GTEST_SKIP() << "this machine has a registry";
  IsOrdinaryUser = true;
  std::filesystem::permissions(Folder.Path(), std::filesystem::perms(0777));
  Set("LWCONFIG_STARTER", Below("config"));
  Set("LWCONFIG_REGISTRY", nullptr);
  const auto made = Run("init " + Below("own"));
  EXPECT_EQ(made.Status, 0) << made.Err;
  EXPECT_THAT(made.Out, HasSubstr("for this user alone, in <test>/home/.config/lwconfig/machine.reg\n"));
  EXPECT_EQ(Run("template default LW.Core").Out, "Small/er one\n");
  EXPECT_EQ(Run("registry set HKLM/Soft x 1").Err,
            "lwconfig: note: 1 value of HKEY_LOCAL_MACHINE stored for this user alone, in "
            "<test>/home/.config/lwconfig/machine.reg\n");
  Set("HOME", nullptr);
  const auto refused = Run("init " + Below("new"));
  EXPECT_EQ(refused.Status, 4);
  EXPECT_THAT(refused.Err, HasSubstr("/etc/lwconfig: Permission denied\nlwconfig: note: nothing was copied"));
  EXPECT_FALSE(std::filesystem::exists(Below("new")));
}

TEST_F(CommandTest, AFailedBeginningLeavesNothing) {
  Set("LWCONFIG_STARTER", Below("config"));
  Folder.Write("registry/machine.reg", "no registry\n");
  EXPECT_EQ(Run("init " + Below("new/conf")).Status, 4);
  Set("LWCONFIG_REGISTRY", Below("used/file"));
  Folder.Write("used/file", "no folder");
  EXPECT_EQ(Run("init " + Below("new/conf")).Status, 4);
  EXPECT_THAT(Run("options").Err,
              HasSubstr("LWCONFIG_REGISTRY names a file, not a folder: <test>/used/file"));
  EXPECT_FALSE(std::filesystem::exists(Below("new")));
}

}  // namespace
}  // namespace lwconfig::testing
