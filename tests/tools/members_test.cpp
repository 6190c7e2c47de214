#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <tests/tools/tool_test.h>
#include <tools/lwconfig/members/path.h>
#include <tools/lwconfig/members/words.h>

namespace lwconfig::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using tool::Fault;
using tool::ParsePath;

/// The steps, written again: `Name(a,2)`, `[key]`, `[#2]` for a position.
std::string Steps(std::string_view text) {
  const auto written = [](const tool::PathValue& value) {
    const auto* position = std::get_if<std::int32_t>(&value.Value);
    return position != nullptr ? "#" + std::to_string(*position) : std::get<std::string>(value.Value);
  };
  std::string steps;
  for (const auto& step : ParsePath(text).Steps) {
    steps +=
        (steps.empty() ? "" : " ") + (step.IsItem() ? "[" + written(step.Arguments[0]) + "]" : step.Name);
    if (step.IsItem() || step.Arguments.empty()) continue;
    for (const auto& argument : step.Arguments) steps += "|" + written(argument);
  }
  return steps;
}

TEST(MemberPath, IsReadStepByStep) {
  const struct {
    const char* Path;
    const char* Steps;
  } kRows[] = {
      {"", ""},
      {"VBOptions.WrapCharacters", "VBOptions WrapCharacters"},
      {R"(A["k.[1]"].B['q"x'][1][-1])", R"(A [k.[1]] B [q"x] [#1] [#-1])"},
      {R"(A["say ""x"""])", R"(A [say "x"])"},
      {R"(A['o''clock'])", "A [o'clock]"},
      {R"(A["1"][ two words ][LW:Method])", "A [1] [two words] [LW:Method]"},
      {R"p(A.Phrase("No, (x)", 2, True).B)p", "A Phrase|No, (x)|#2|True B"},
      {"A.F()", "A F"},
      {"A[Größe]", "A [Größe]"},
  };
  for (const auto& row : kRows) EXPECT_EQ(Steps(row.Path), row.Steps) << row.Path;
}

TEST(MemberPath, FaultsNameTheirPlace) {
  const struct {
    const char* Path;
    std::size_t Offset;
    const char* Problem;
  } kRows[] = {
      {"[1]", 0, "a name was expected, '[' was found"},
      {"A..B", 2, "a name was expected, '.' was found"},
      {"A.", 2, "the path ends here"},
      {"A[1]B", 4, "'.' or '[' was expected, 'B'"},
      {"A ü", 1, "'.' or '[' was expected, ' '"},
      {"Aü", 1, "'ü' was found"},
      {"A[1", 1, "'[' is not closed"},
      {"A[]", 2, "a key or position was expected"},
      {"A[\"x", 2, "the quotation mark is not closed"},
      {"A[\"x\"y]", 5, "']' was expected, 'y'"},
      {"A[x[1]]", 3, "']' was expected, '['"},
      {"A[99999999999]", 2, "too large"},
      {"A.F(1", 3, "'(' is not closed"},
      {"A.F(1,)", 6, "an argument was expected"},
      {"A.F(1)(2)", 6, "'.' or '[' was expected"},
  };
  for (const auto& row : kRows) {
    try {
      ParsePath(row.Path);
      ADD_FAILURE() << row.Path;
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.Status(), tool::ExitStatus::Usage);
      EXPECT_EQ(fault.Offset(), row.Offset) << row.Path;
      EXPECT_THAT(fault.what(), HasSubstr(row.Problem)) << row.Path;
    }
  }
}

TEST(MemberPath, KeysAreWrittenAsTheyAreRead) {
  for (const char* key : {"plain", "two words", " x", "1", "-1", "a\"b", "a'b", "a]b", "", "LW:x"}) {
    for (const char quote : {'\0', '"', '\''}) {
      const auto path = ParsePath("A[" + tool::WrittenKey(key, quote) + "]");
      EXPECT_EQ(path.Steps[1].Arguments[0].Value, tool::KeyOrPosition(std::string(key)));
    }
  }
  EXPECT_EQ(tool::WrittenKey("two words"), "two words");
}

TEST(CommandWords, AreReadAsAShellDoes) {
  const char* text = "  # only this\nset 'a b'c \"d\\\"\\e\" \\\n f\\ g # end\n\n''\nh'\n'i";
  tool::WordReader reader(text);
  std::vector<tool::Word> words;
  const auto next = [&] {
    std::vector<std::string> texts;
    if (!reader.Next(words)) texts.emplace_back("(end)");
    for (const auto& word : words) texts.push_back(word.Text);
    return texts;
  };
  EXPECT_THAT(next(), ElementsAre("set", "a bc", "d\"\\e", "f g"));
  const auto place = tool::PlaceOf(text, words[3].Offset(2));
  EXPECT_EQ(std::pair(place.Line, place.Column), std::pair(3, 5));
  EXPECT_THAT(next(), ElementsAre(""));
  EXPECT_THAT(next(), ElementsAre("h\ni"));
  EXPECT_THAT(next(), ElementsAre("(end)"));
  tool::WordReader unclosed("a 'b");
  EXPECT_THROW(unclosed.Next(words), Fault);
}

class MembersTest : public ToolTest {
 protected:
  ToolResult RunIn(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--config", Below("config")});
    return Run(arguments);
  }
};

TEST_F(MembersTest, GetsAnyMember) {
  const struct {
    const char* Path;
    const char* Out;
  } kRows[] = {
      {"PageTemplates[1].Name", "Small/er one\n"},
      {"pagetemplates['small/ER ONE'].usedropshadow", "False\n"},
      {"PageTemplates[small].PageLayouts[method.html].PageType", "pgMethod\n"},
      {"PageTemplates[1].TOCDefinitions.Item(1).NodeDefs(\"N2\").ParentNodeDef.Key", "N1\n"},
      {"PageTemplates[1].TOCDefinitions[Main].NodeDefs[1].ParentNodeDef", "null\n"},
      {"PageTemplates[1].TOCDefinitions[1].NodeDefs", "N1\nN2\nN3\n"},
      {"PageTemplates[1].TOCDefinitions[1].NodeDefs[-1].ActualIconIndex(True)", "7\n"},
      {"PageTemplates[1].SupportsItemType(Source)", "True\n"},
      {"PageTemplates[1].SupportedItemTypes[2]", "source\n"},
      {"NamespaceProfiles[1].ElementDefs[1].Name", "LW:Value\n"},
      {"VBOptions.WrapCharacters", "90\n"},
      {"Languages.Count", "0\n"},
  };
  for (const auto& row : kRows) {
    const auto got = RunIn({"get", row.Path});
    EXPECT_EQ(got.Out, row.Out) << row.Path;
    EXPECT_EQ(got.Status, 0) << got.Err;
  }
  const auto json = nlohmann::json::parse(RunIn({"get", "PageTemplates", "--json"}).Out);
  EXPECT_EQ(json[0]["PageLayouts"], nlohmann::json({{"Class", "PageLayouts"}, {"Count", 2}}));
}

TEST_F(MembersTest, TellsWhatIsNotThere) {
  const struct {
    std::vector<std::string> Arguments;
    int Status;
    const char* Message;
  } kRows[] = {
      {{"get", "PageTemplates[1].Nam"},
       1,
       "column 18 of 'PageTemplates[1].Nam': there is no member 'Nam' of PageTemplate; did you mean 'Name'?"},
      {{"get", "PageTemplates[Smal/er one]"}, 1, "did you mean 'Small/er one'?"},
      {{"get", "PageTemplates[0]"},
       1,
       "column 15 of 'PageTemplates[0]': there is no item 0 in PageTemplates, which has 1"},
      {{"get", "PageTemplates[1].Name.Text"}, 1, "PageTemplates[1].Name is not an object and has no members"},
      {{"get", "PageTemplates[1].Name[1]"}, 1, "PageTemplates[1].Name is not an object"},
      {{"get", "PageTemplates[1].TOCDefinitions[1].NodeDefs[1].ParentNodeDef.Key"},
       1,
       "ParentNodeDef is null"},
      {{"get", "VBOptions[1]"}, 1, "VBOptions is a VBOptions, which has no items"},
      {{"get", "PageTemplates.Save"}, 2, "Save is a method; 'lwconfig call' calls it"},
      {{"get", "PageTemplates[1].Phrase"}, 2, "(Name) is missing"},
      {{"get", "PageTemplates[1].Name(1)"}, 2, "takes no arguments"},
      {{"get", "PageTemplates["}, 2, "expected, the path ends here"},
      {{"ls", "PageTemplates[1].Name"}, 1, "is not an object"},
  };
  for (const auto& row : kRows) {
    const auto failed = RunIn(row.Arguments);
    EXPECT_EQ(failed.Status, row.Status) << row.Message;
    EXPECT_EQ(failed.Out, "");
    EXPECT_THAT(failed.Err, HasSubstr(row.Message));
  }
  // Failures inside the model arrive with number and source, and what could be loaded is still there.
  Folder.Write("config/ExternalDocs.xml", "<e><ExternalDoc Namespace=\"A\"/><ExternalDoc/></e>");
  const auto partly = RunIn({"get", "ExternalDocs"});
  EXPECT_EQ(partly.Out, "A\n");
  EXPECT_EQ(partly.Status, 3);
  EXPECT_THAT(partly.Err,
              ::testing::ContainsRegex(
                  "^<test>/config/ExternalDocs.xml:1:[0-9]+: error: .*error 5 of LWConfigObjects in "
                  "Root.ExternalDocs"));
}

TEST_F(MembersTest, TheNameOfACommandCanBeAnArgument) {
  EXPECT_THAT(RunIn({"show", "options"}).Out, ::testing::StartsWith("options"));
  EXPECT_EQ(RunIn({"get", "VBOptions.Grouped", "show"}).Status, 2);
}

TEST_F(MembersTest, ListsMembersAndItems) {
  const auto listed = RunIn({"ls", "PageTemplates[1].TOCDefinitions"});
  EXPECT_EQ(listed.Status, 0) << listed.Err;
  EXPECT_THAT(listed.Out, HasSubstr("Add(obj, [Key], [Before], [After])  method"));
  EXPECT_THAT(listed.Out, HasSubstr("\nPOSITION  KEY   ITEM\n1         Main  TOCDefinition\n"));
  const auto json = nlohmann::json::parse(RunIn({"ls", "PageTemplates[1].VariableDefs[1]", "--json"}).Out);
  EXPECT_EQ(json["Members"][2], nlohmann::json({{"Name", "VariableDefType"},
                                                {"Kind", "property"},
                                                {"Type", "VariableDefTypeEnum"},
                                                {"Value", 4}}));
}

TEST_F(MembersTest, CompletesWhatIsBeingTyped) {
  Folder.Write("registry/machine.reg",
               "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Corvantis\\Lexiwend4]\n\"ConfigPath\"=\"" +
                   Below("config") + "\"\n");
  const struct {
    std::vector<std::string> Words;
    const char* Out;
  } kRows[] = {
      {{"ge"}, "get"},
      {{"set", "--dry"}, "--dry-run"},
      {{"get", "pagetem"}, "PageTemplates|PageTemplates["},
      {{"remove", "pagetem"}, "PageTemplates["},
      {{"get", "PageTemplates["}, "PageTemplates[Small/er one]|PageTemplates[Small/er one]."},
      {{"get", "PageTemplates['sm"}, "PageTemplates['Small/er one']|PageTemplates['Small/er one']."},
      {{"get", "PageTemplates[1].PageLayouts[m"},
       "PageTemplates[1].PageLayouts[method.html]|PageTemplates[1].PageLayouts[method.html]."},
      {{"call", "PageTemplates.Sa"}, "PageTemplates.Save|PageTemplates.SaveTemplate"},
      {{"set", "PageTemplates[1].DiagramB"}, "PageTemplates[1].DiagramBold"},
      {{"set", "PageTemplates[1].DiagramBold", ""}, "True|False"},
      {{"set", "-n", "PageTemplates[1].VariableDefs[1].VariableDefType", "vdth"}, "vdtHTML"},
      {{"add", "PageTemplates[1].VariableDefs", "Def"}, "DefaultValue="},
      {{"add", "PageTemplates[1].VariableDefs", "VariableDefType=vdtd"}, "VariableDefType=vdtDate"},
      {{"options", "set", "VBOptions.WrapW"}, "VBOptions.WrapWhitespace"},
      {{"completion", "z"}, "zsh"},
      {{"get", "No.Such.Thing["}, ""},
      {{"get", "A[[(\"'"}, ""},
  };
  for (const auto& row : kRows) {
    std::vector<std::string> arguments{"complete", "--"};
    arguments.insert(arguments.end(), row.Words.begin(), row.Words.end());
    const auto completed = Run(arguments);
    std::string texts;
    std::istringstream lines(completed.Out);
    for (std::string line; std::getline(lines, line);)
      texts += (texts.empty() ? "" : "|") + line.substr(0, line.find('\t'));
    EXPECT_EQ(texts, row.Out) << row.Words.back();
    EXPECT_EQ(completed.Err, "");
    EXPECT_EQ(completed.Status, 0);
  }
  // bash sets aside what stands before a colon that is not quoted, and the scripts are those that are
  // installed.
  const std::string config = " --config " + Below("config");
  const char* const path = " PageTemplates[1].NamespaceDefs[";
  EXPECT_EQ(Run({"complete", "--shell", "bash", "--line", "lwconfig get" + config + path + "LW:P"}).Out,
            "Project]\nProject].\n");
  EXPECT_EQ(Run({"complete", "--shell", "bash", "--line", "lwconfig get" + config + path + "LW\\:P"}).Out,
            "PageTemplates[1].NamespaceDefs[LW:Project]\nPageTemplates[1].NamespaceDefs[LW:Project].\n");
  EXPECT_THAT(Run({"completion", "bash"}).Out, HasSubstr("complete -o default -F _lwconfig lwconfig"));
}

}  // namespace
}  // namespace lwconfig::testing
