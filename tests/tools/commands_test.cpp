#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <tests/tools/tool_test.h>

#include <lwconfig/core/text.h>

namespace lwconfig::testing {
namespace {

using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::SizeIs;
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

  /// Runs the command on the small configuration.
  ToolResult RunIn(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--config", Below("config")});
    return Run(arguments);
  }
  std::string UserRegistry() const { return Folder.Read("registry/user.reg"); }
};

TEST_F(CommandTest, ListsOptions) {
  ASSERT_EQ(Run({"options", "set", "IDEOptions.AutoSave", "yes"}).Status, 0);
  const auto listed = RunIn({"options"});
  EXPECT_EQ(listed.Status, 0);
  EXPECT_THAT(listed.Out, StartsWith("OPTION "));
  EXPECT_THAT(listed.Out,
              ::testing::ContainsRegex("\nIDEOptions\\.AutoSave +boolean +False +\"True\" +True\n"));
  EXPECT_THAT(listed.Out, ::testing::ContainsRegex("\nVBOptions\\.WrapCharacters +VB +integer +90 +90\n"));
  EXPECT_EQ(RunIn({"options", "list"}).Out, listed.Out);
  for (const auto& command : std::vector<std::vector<std::string>>{
           {"options"}, {"phrase", "small", "english"}, {"scrap", "small", "english"}, {"template"}}) {
    auto arguments = command;
    arguments.insert(arguments.end(), {"--width", "20", "--color", "always"});
    EXPECT_THAT(RunIn(arguments).Out, HasSubstr("\x1b[")) << command.front();
    arguments.back() = "never";
    EXPECT_THAT(Split(RunIn(arguments).Out, "\n"), Each(SizeIs(::testing::Le(22)))) << command.front();
  }

  const auto json = nlohmann::json::parse(RunIn({"options", "list", "--json"}).Out);
  const auto shown = std::find_if(json.begin(), json.end(),
                                  [](const auto& option) { return option["Name"] == "VBAShowFriend"; });
  ASSERT_NE(shown, json.end());
  EXPECT_EQ(*shown, nlohmann::json({{"Set", "VBOptions"},
                                    {"Name", "VBAShowFriend"},
                                    {"Section", "VBA"},
                                    {"ValueName", "ShowFriend"},
                                    {"Type", "boolean"},
                                    {"Default", true},
                                    {"Stored", nullptr},
                                    {"Value", true}}));
}

TEST_F(CommandTest, SetsOptionsToValuesOfTheirTypes) {
  const struct {
    const char* Name;
    const char* Value;
    const char* Stored;
    const char* Read;
  } kRows[] = {
      {"vboptions.wrapcharacters", "72", "\"WrapCharacters\"=\"72\"", "72\n"},
      {"VBOptions.XMLCommentLineBreak", "-7", "\"XMLCommentLineBreak\"=\"-7\"", "-7\n"},
      {"VBOptions.CodeViewCollapsed", "YES", "\"CodeViewCollapsed\"=\"True\"", "True\n"},
      {"VBOptions.VBAShowPrivate", "0", "\"ShowPrivate\"=\"False\"", "False\n"},
      {"VSNETOptions.CommentWindowStyle", "2", "\"CommentWindowStyle\"=\"2\"", "2\n"},
      {"IDEOptions.ToolbarStyle", "toolbarstyleofficexp", "\"ToolbarStyle\"=\"0\"", "0\n"},
      {"LWCommenterOptions.PreviewTemplate", "A b", "\"PreviewTemplate\"=\"A b\"", "A b\n"},
  };
  for (const auto& row : kRows) {
    const auto set = Run({"options", "set", row.Name, row.Value});
    EXPECT_EQ(set.Status, 0) << row.Name << set.Err;
    EXPECT_THAT(UserRegistry(), HasSubstr(row.Stored)) << row.Name;
    EXPECT_EQ(RunIn({"options", "get", row.Name}).Out, row.Read) << row.Name;
  }
}

TEST_F(CommandTest, RefusesValuesOfOtherTypes) {
  const struct {
    const char* Name;
    const char* Value;
  } kRows[] = {
      {"VBOptions.WrapCharacters", "7x"},       {"VBOptions.WrapCharacters", "2147483648"},
      {"VBOptions.WrapCharacters", ""},         {"VBOptions.CodeViewCollapsed", "2"},
      {"VBOptions.ToolbarStyle", "3"},          {"VBOptions.ToolbarStyle", "-1"},
      {"VBOptions.ToolbarStyle", "ModeVBCode"},
  };
  for (const auto& row : kRows) {
    const auto set = Run({"options", "set", row.Name, row.Value});
    EXPECT_EQ(set.Status, 2) << row.Name << row.Value;
    EXPECT_THAT(set.Err, HasSubstr(" is no value of ")) << row.Name;
  }
  EXPECT_FALSE(std::filesystem::exists(Below("registry/user.reg")));
}

TEST_F(CommandTest, TellsOfOptionsThatCannotBeReadOrDoNotExist) {
  Folder.Write(
      "registry/user.reg",
      "REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Corvantis\\Lexiwend4\\VB]\n\"WrapCharacters\"=\"wide\"\n");
  const auto bad = RunIn({"options", "get", "VBOptions.WrapCharacters"});
  EXPECT_EQ(bad.Status, 3);
  EXPECT_EQ(bad.Out, "");
  EXPECT_THAT(bad.Err, HasSubstr("is stored as \"wide\""));
  const auto all = RunIn({"options", "--json"});
  EXPECT_EQ(all.Status, 3);
  EXPECT_GT(nlohmann::json::parse(all.Out).size(), 50u);

  const auto unknown = Run({"options", "set", "VBOptions.WrapCharacter", "1"});
  EXPECT_EQ(unknown.Status, 1);
  EXPECT_THAT(unknown.Err, HasSubstr("did you mean 'VBOptions.WrapCharacters'?"));
  EXPECT_THAT(Run({"options", "set", "VBOptions.VBCommentMode", "0"}).Err,
              HasSubstr("'0' is stored, but VBOptions.VBCommentMode reads as 1 ModeVBCode"));
  const auto action = Run({"options", "lst"});
  EXPECT_EQ(action.Status, 2);
  EXPECT_THAT(action.Err, HasSubstr("did you mean 'list'?"));
}

TEST_F(CommandTest, LooksUpTexts) {
  EXPECT_EQ(RunIn({"phrase", "small", "ENGLISH"}).Out, "NAME      TEXT\nMethod    A method\nOnlyHere  x\n");
  EXPECT_EQ(RunIn({"phrase", "Small/er one", "German", "METHOD"}).Out, "Eine Methode\n");
  EXPECT_EQ(nlohmann::json::parse(RunIn({"scrap", "small", "English", "--json"}).Out),
            nlohmann::json::parse(R"([{"Name": "Foot", "Text": "<hr>"}])"));
  const struct {
    std::vector<std::string> Arguments;
    int Status;
    const char* Message;
  } kRows[] = {
      {{"phrase", "small", "German", "Metod"}, 1, "did you mean 'method'?"},
      {{"phrase", "small", "Germn"}, 1, "did you mean 'German'?"},
      {{"phrase", "small", "../German"}, 1, "there is no '../German'"},
      {{"scrap", "small", "German"}, 1, "What there is:\n  English\n"},
      {{"phrase", "smal", "German"}, 1, "did you mean 'Small/er one'?"},
      {{"phrase", "small"}, 2, "LANGUAGE is required"},
      {{"phrase", "small", "German", "--compare"}, 2, "name the template only"},
  };
  for (const auto& row : kRows) {
    const auto failed = RunIn(row.Arguments);
    EXPECT_EQ(failed.Status, row.Status) << row.Message;
    EXPECT_EQ(failed.Out, "");
    EXPECT_THAT(failed.Err, HasSubstr(row.Message));
  }
  // What stands before a fault can still be looked up.
  Folder.Write("config/Templates/Small/Phrases/German.txt",
               "<?xml version=\"1.0\"?><p><t name=\"a\">A</t><t>B</t></p>");
  const auto damaged = RunIn({"phrase", "small", "German", "a"});
  EXPECT_EQ(damaged.Status, 3);
  EXPECT_EQ(damaged.Out, "A\n");
}

TEST_F(CommandTest, ComparesLanguages) {
  const auto compared = RunIn({"phrase", "small", "--compare"});
  EXPECT_EQ(compared.Status, 1);
  EXPECT_EQ(compared.Out, "NAME      IN       MISSING IN\nOnlyHere  English  German\n");
  EXPECT_EQ(nlohmann::json::parse(RunIn({"phrase", "small", "--compare", "--json"}).Out),
            nlohmann::json::parse(R"([{"Name": "OnlyHere", "In": ["English"], "MissingIn": ["German"]}])"));
  const auto single = RunIn({"scrap", "small", "--compare"});
  EXPECT_EQ(single.Status, 0);
  EXPECT_THAT(single.Err, HasSubstr("one language only"));
}

TEST_F(CommandTest, PrintsLinks) {
  const struct {
    std::vector<std::string> Arguments;
    const char* Out;
  } kRows[] = {
      {{"System.Text"}, "<a href=\"https://x/Text\">System.Text</a>\n"},
      {{"System.Text", "--help2", "--caption", "c"}, "T:c\n"},
      {{"System.Text", "--member", "Add(x)"}, "<a href=\"https://x/Text.Add\">Add(x)</a>\n"},
      {{"System.Text", "--url"}, "https://x/Text\n"},
      {{"Other.Text"}, ""},
      {{"Other.Text", "--url"}, ""},
      {{"Other.Text", "-m", "x"}, ""},
      {{"Old.Text", "--url"}, ""},
  };
  for (auto row : kRows) {
    row.Arguments.insert(row.Arguments.begin(), "link");
    const auto linked = RunIn(row.Arguments);
    EXPECT_EQ(linked.Out, row.Out);
    EXPECT_EQ(linked.Status, linked.Out.empty() ? 1 : 0);
  }
  EXPECT_EQ(nlohmann::json::parse(RunIn({"link", "System.Text", "--url", "--json"}).Out)["URL"],
            "https://x/Text");
  EXPECT_EQ(RunIn({"link", "System.Text", "--url", "--member", "x"}).Status, 2);
}

TEST_F(CommandTest, ListsAndChoosesTemplates) {
  EXPECT_EQ(RunIn({"template"}).Out,
            "NAME          FOLDER  PROFILES  ITEM TYPES\nSmall/er one  Small   LW.Core   binary, source\n");
  EXPECT_EQ(nlohmann::json::parse(RunIn({"template", "list", "--json"}).Out)[0]["NamespaceProfileNames"][0],
            "LW.Core");
  EXPECT_EQ(RunIn({"template", "default", "lw.core", "--supports", "source"}).Out, "Small/er one\n");
  EXPECT_THAT(RunIn({"template", "default", "LW.Core", "--supports", "wood"}).Err,
              HasSubstr("supports 'wood'"));
  const auto unknown = RunIn({"template", "default", "LW.Kore"});
  EXPECT_EQ(unknown.Status, 1);
  EXPECT_THAT(unknown.Err, HasSubstr("did you mean 'LW.Core'?"));
}

TEST_F(CommandTest, ClonesTemplates) {
  Folder.Write("config/Templates/Small/config.xml.bak", "old");
  const auto cloned = RunIn({"template", "clone", "small", "Second", "Two"});
  EXPECT_EQ(cloned.Status, 0) << cloned.Err;
  EXPECT_EQ(cloned.Out, "copied template 'Small/er one' to 'Second' in <test>/config/Templates/Two\n");
  EXPECT_EQ(Folder.Read("config/Templates/Two/Phrases/English.txt"),
            Folder.Read("config/Templates/Small/Phrases/English.txt"));
  EXPECT_FALSE(std::filesystem::exists(Below("config/Templates/Two/config.xml.bak")));
  EXPECT_EQ(Folder.Read("config/Templates/Small/config.xml.bak"), "old");
  const auto shown = nlohmann::json::parse(Show({"templates", "--json"}).Out);
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[1]["Name"], "Second");
  EXPECT_EQ(shown[0]["PageLayouts"], shown[1]["PageLayouts"]);

  const struct {
    std::vector<std::string> Names;
    int Status;
  } kRows[] = {
      {{"small", "SECOND", "Three"}, 2}, {{"small", "Third", "TWO"}, 4}, {{"small", "../Third"}, 2},
      {{"small", "", "Three"}, 2},       {{"nothing", "Third"}, 1},
  };
  for (const auto& row : kRows) {
    std::vector<std::string> arguments{"template", "clone"};
    arguments.insert(arguments.end(), row.Names.begin(), row.Names.end());
    EXPECT_EQ(RunIn(arguments).Status, row.Status) << row.Names[1];
  }
  Folder.Write("config/Templates/Damaged/config.xml", "<PageTemplate");
  EXPECT_EQ(RunIn({"template", "clone", "small", "Fourth"}).Status, 3);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Below("config/Templates")), {}), 3);
  // Nothing is ever written to the starter configuration.
  Set("LWCONFIG_STARTER", Below("config"));
  EXPECT_EQ(Run({"template", "clone", "small", "Fifth"}).Status, 4);
}

TEST_F(CommandTest, BeginsAConfiguration) {
  Set("LWCONFIG_STARTER", Below("config"));
  Folder.Write("config/.hidden", "");
  Folder.Write("used/file", "mine");
  EXPECT_EQ(Run({"init", Below("used")}).Status, 4);
  EXPECT_FALSE(std::filesystem::exists(Below("registry/machine.reg")));

  const auto made = Run({"init", Below("drives/c/New/Conf")});
  EXPECT_EQ(made.Status, 0) << made.Err;
  EXPECT_THAT(made.Out, HasSubstr("registered C:\\New\\Conf as ConfigPath"));
  EXPECT_FALSE(std::filesystem::exists(Below("drives/c/New/Conf/.hidden")));
  EXPECT_EQ(Folder.Read("drives/c/New/Conf/ExternalDocs.xml"), Folder.Read("config/ExternalDocs.xml"));
  const auto chosen = Run({"template", "default", "LW.Core"});
  EXPECT_EQ(chosen.Out, "Small/er one\n");
  EXPECT_EQ(chosen.Err, "");

  const auto again = Run({"init", Below("config/inside")});
  EXPECT_EQ(again.Status, 2);
  EXPECT_THAT(again.Err, HasSubstr("--replace"));
  const auto replaced = Run({"init", Below("config/inside"), "--replace", "--json"});
  EXPECT_EQ(nlohmann::json::parse(replaced.Out)["PreviousConfigPath"], "C:\\New\\Conf");
  EXPECT_FALSE(std::filesystem::exists(Below("config/inside/inside")));
}

TEST_F(CommandTest, AFailedBeginningLeavesNothing) {
  Set("LWCONFIG_STARTER", Below("config"));
  Folder.Write("registry/machine.reg", "no registry\n");
  EXPECT_EQ(Run({"init", Below("new/conf")}).Status, 4);
  Set("LWCONFIG_REGISTRY", Below("used/file"));
  Folder.Write("used/file", "no folder");
  EXPECT_EQ(Run({"init", Below("new/conf")}).Status, 4);
  EXPECT_FALSE(std::filesystem::exists(Below("new")));
}

}  // namespace
}  // namespace lwconfig::testing
