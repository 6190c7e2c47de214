#include <regex>

#include <tests/tools/tool_test.h>
#include <tools/lwconfig/members/path.h>
#include <tools/lwconfig/members/words.h>

#include <lwconfig/checking/model_path.h>

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
  const std::pair<const char*, const char*> kRows[] = {
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
  for (const auto& [path, steps] : kRows) EXPECT_EQ(Steps(path), steps);
}

TEST(MemberPath, FaultsNameTheirPlace) {
  const std::tuple<const char*, std::size_t, const char*> kRows[] = {
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
  for (const auto& [path, offset, problem] : kRows) {
    try {
      ParsePath(path);
      ADD_FAILURE() << path;
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.Status(), tool::ExitStatus::Usage);
      EXPECT_EQ(fault.Offset(), offset) << path;
      EXPECT_THAT(fault.what(), HasSubstr(problem)) << path;
    }
  }
}

TEST(MemberPath, KeysAreWrittenAsTheyAreRead) {
  for (const char* key : {"plain", "two words", " x", "1", "-1", "a\"b", "a'b", "a]b", "", "LW:x"}) {
    for (const char quote : {'\0', '"', '\''}) {
      const auto path = ParsePath("A[" + WrittenKey(key, quote) + "]");
      EXPECT_EQ(path.Steps[1].Arguments[0].Value, tool::KeyOrPosition(std::string(key)));
    }
  }
  EXPECT_EQ(WrittenKey("two words"), "two words");
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

class MembersTest : public ToolTest {};

TEST_F(MembersTest, GetsAnyMember) {
  const std::pair<const char*, const char*> kRows[] = {
      {"PageTemplates[1].Name", "Small/er one\n"},
      {"pagetemplates['small/ER ONE'].usedropshadow", "False\n"},
      {"PageTemplates[small].PageLayouts[method.html].PageType", "pgMethod\n"},
      {"PageTemplates[1].TOCDefinitions.Item(1).NodeDefs('N2').ParentNodeDef.Key", "N1\n"},
      {"PageTemplates[1].TOCDefinitions[Main].NodeDefs[1].ParentNodeDef", "null\n"},
      {"PageTemplates[1].TOCDefinitions[1].NodeDefs", "N1\nN2\nN3\n"},
      {"PageTemplates[1].TOCDefinitions[1].NodeDefs[-1].ActualIconIndex(True)", "7\n"},
      {"PageTemplates[1].SupportsItemType(Source)", "True\n"},
      {"PageTemplates[1].SupportedItemTypes[2]", "source\n"},
      {"PageTemplates[1].objFillColor", "#ff00ff\n"},
      {"NamespaceProfiles[1].ElementDefs[1].Name", "LW:Value\n"},
      {"VBOptions.WrapCharacters", "90\n"},
      {"Languages.Count", "0\n"},
  };
  for (const auto& [path, out] : kRows) {
    const auto got = RunIn("get \"" + std::string(path) + '"');
    EXPECT_EQ(got.Out, out) << path;
    EXPECT_EQ(got.Status, 0) << got.Err;
  }
  const auto json = Json("get PageTemplates");
  EXPECT_EQ(json[0]["PageLayouts"], nlohmann::json({{"Class", "PageLayouts"}, {"Count", 2}}));
}

TEST_F(MembersTest, TellsWhatIsNotThere) {
  ExpectRefusals({
      {"get PageTemplates[1].Nam", 1,
       "column 18 of 'PageTemplates[1].Nam': there is no member 'Nam' of PageTemplate; did you mean 'Name'?"},
      {"get 'PageTemplates[Smal/er one]'", 1, "did you mean 'Small/er one'?"},
      {"get PageTemplates[0]", 1,
       "column 15 of 'PageTemplates[0]': there is no item 0 in PageTemplates, which has 1"},
      {"get PageTemplates[1].Name.Text", 1, "PageTemplates[1].Name is not an object and has no members"},
      {"get PageTemplates[1].Name[1]", 1, "PageTemplates[1].Name is not an object"},
      {"get PageTemplates[1].TOCDefinitions[1].NodeDefs[1].ParentNodeDef.Key", 1, "ParentNodeDef is null"},
      {"get VBOptions[1]", 1, "VBOptions is a VBOptions, which has no items"},
      {"get PageTemplates.Save", 2, "Save is a method; 'lwconfig call' calls it"},
      {"get PageTemplates[1].Phrase", 2, "(Name) is missing"},
      {"get PageTemplates[1].Name(1)", 2, "takes no arguments"},
      {"get PageTemplates[", 2, "expected, the path ends here"},
      {"ls PageTemplates[1].Name", 1, "is not an object"},
      {"get VBOptions.Grouped show", 2, ""},  // the name of a command as an argument
  });
  // Failures inside the model arrive with number and source, and what could be loaded is still there.
  Folder.Write("config/ExternalDocs.xml", "<e><ExternalDoc Namespace=\"A\"/><ExternalDoc/></e>");
  const auto partly = RunIn("get ExternalDocs");
  EXPECT_EQ(partly.Out, "A\n");
  EXPECT_EQ(partly.Status, 3);
  EXPECT_THAT(partly.Err,
              ::testing::ContainsRegex(
                  "^<test>/config/ExternalDocs.xml:1:[0-9]+: error: .*error 5 of LWConfigObjects in "
                  "Root.ExternalDocs"));
}

TEST_F(MembersTest, ListsMembersAndItems) {
  const auto listed = RunIn("ls PageTemplates[1].TOCDefinitions");
  EXPECT_EQ(listed.Status, 0) << listed.Err;
  EXPECT_THAT(listed.Out, HasSubstr("Add(obj, [Key], [Before], [After])  method"));
  EXPECT_THAT(listed.Out, HasSubstr("\nPOSITION  KEY   ITEM\n1         Main  TOCDefinition\n"));
  const auto json = Json("ls PageTemplates[1].VariableDefs[1]");
  EXPECT_EQ(json["Members"][2].dump(),
            R"({"Kind":"property","Name":"VariableDefType","Type":"VariableDefTypeEnum","Value":4})");
}

TEST_F(MembersTest, CompletesWhatIsBeingTyped) {
  Folder.Write("registry/machine.reg",
               "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Corvantis\\Lexiwend4]\n\"ConfigPath\"=\"" +
                   Below("config") + "\"\n");
  const std::pair<const char*, const char*> kRows[] = {
      {"ge", "get\n"},
      {"set --dry", "--dry-run\n"},
      {"get pagetem", "PageTemplates\nPageTemplates[\n"},
      {"remove pagetem", "PageTemplates[\n"},
      {"get PageTemplates[", "PageTemplates[Small/er one]\nPageTemplates[Small/er one].\n"},
      {"get \"PageTemplates['sm\"", "PageTemplates['Small/er one']\nPageTemplates['Small/er one'].\n"},
      {"get PageTemplates[1].PageLayouts[m",
       "PageTemplates[1].PageLayouts[method.html]\nPageTemplates[1].PageLayouts[method.html].\n"},
      {"call PageTemplates.Sa", "PageTemplates.Save\nPageTemplates.SaveTemplate\n"},
      {"set PageTemplates[1].DiagramB", "PageTemplates[1].DiagramBold\n"},
      {"set PageTemplates[1].DiagramBold ''", "True\nFalse\n"},
      {"set PageTemplates[1].objFillColor ''", "#ff00ff\n"},
      {"set -n PageTemplates[1].VariableDefs[1].VariableDefType vdth", "vdtHTML\n"},
      {"add PageTemplates[1].VariableDefs Def", "DefaultValue=\n"},
      {"add PageTemplates[1].VariableDefs VariableDefType=vdtd", "VariableDefType=vdtDate\n"},
      {"options set VBOptions.WrapW", "VBOptions.WrapWhitespace\n"},
      {"completion z", "zsh\n"},
      {"help regis", "registry\n"},
      {"--color never regis", "registry\n"},
      {"get No.Such.Thing[", ""},
      {"get \"A[[(\\\"'\"", ""},
  };
  for (const auto& [words, out] : kRows) {
    const auto completed = Run("complete -- " + std::string(words));
    const std::string texts = std::regex_replace(completed.Out, std::regex("\t.*"), "");
    EXPECT_EQ(texts, out) << words;
    EXPECT_EQ(completed.Err, "");
    EXPECT_EQ(completed.Status, 0);
  }
  // bash sets aside what stands before a colon that is not quoted, and the scripts are those that are
  // installed.
  const std::string line = "complete --shell bash --line 'lwconfig get --config " + Below("config") +
                           " PageTemplates[1].NamespaceDefs[";
  EXPECT_EQ(Run(line + "LW:P'").Out, "Project]\nProject].\n");
  EXPECT_EQ(Run(line + "LW\\:P'").Out,
            "PageTemplates[1].NamespaceDefs[LW:Project]\nPageTemplates[1].NamespaceDefs[LW:Project].\n");
  EXPECT_THAT(Run("completion bash").Out, HasSubstr("complete -o default -F _lwconfig lwconfig"));
}

}  // namespace
}  // namespace lwconfig::testing
