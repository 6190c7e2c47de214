#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class DescribeTest : public ToolTest {};

TEST_F(DescribeTest, TellsAboutClassesMembersAndValues) {
  const std::pair<const char*, const char*> kRows[] = {
      {"", "\nNodeTypeEnum           enumeration  Kinds of node.\n"},
      {"pagelayouts", "PageLayouts  class; programs can create it; collection\n"},
      {"PageLayouts", "\n  Item(Key As Variant) As PageLayout  get, default\n      The item"},
      {"PageLayouts", "\n  ContentsChange()  event\n"},
      {"NamespaceDefs", "\n  AllNamespaceDefs([ByRef col As NamespaceDefs]) As NamespaceDefs  method\n"},
      {"DiskFile", "\n  Extension As Text  let\n"},
      {"ModelComment", "\n  Tag As Variant  get, let, set\n"},
      {"pagetypeenum", "\n  pgMethod = 3  a method\n"},
      {"Root.getdefaulttemplate --width 60",
       "Root.GetDefaultTemplate(NamespaceProfile As Text, [Supports\n"
       "As Text]) As PageTemplate  method\n"
       "  The first template, in catalogue order, that lists the\n"},
      {"PageTypeEnum.pgMethod", "PageTypeEnum.pgMethod = 3\n  a method\n"}};
  for (const auto& [arguments, part] : kRows) {
    const auto told = Run("describe " + std::string(arguments));
    EXPECT_EQ(told.Status, 0) << told.Err;
    EXPECT_THAT(told.Out, HasSubstr(part));
  }
  EXPECT_THAT(RunOnTerminal("describe Root", 80), StartsWith("\x1b[1mRoot\x1b[0m"));
}

TEST_F(DescribeTest, WritesJson) {
  const auto member = nlohmann::json::parse(Run("describe TOCDefinition.Clone --json").Out);
  EXPECT_EQ(member["Signature"], "Clone(PageTemplate As PageTemplate) As TOCDefinition");
  EXPECT_EQ(member["Parameters"][0].dump(),
            R"({"IsByReference":false,"IsOptional":false,"Name":"PageTemplate","Type":"PageTemplate"})");
  EXPECT_EQ(nlohmann::json::parse(Run("describe --json").Out).size(), 65U);
}

TEST_F(DescribeTest, RefusesWhatThereIsNot) {
  for (const auto& [line, status, message] :
       {Refusal{"PageTemplat", 1, "there is no 'PageTemplat'; did you mean 'PageTemplate"},
        {"Root.ConfigPat", 1, "did you mean 'ConfigPath'?"},
        {"Root --idl", 2, ""},
        {"--stubs --idl", 2, ""}}) {
    const auto refused = Run("describe " + line);
    EXPECT_EQ(refused.Status, status) << line;
    EXPECT_THAT(refused.Err, HasSubstr(message));
  }
}

}  // namespace
}  // namespace lwconfig::testing
