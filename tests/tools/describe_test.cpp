#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class DescribeTest : public ToolTest {};

TEST_F(DescribeTest, TellsAboutClassesMembersAndValues) {
  const struct {
    std::vector<std::string> Arguments;
    const char* Part;
  } kRows[] = {
      {{}, "\nNodeTypeEnum           enumeration  Kinds of node.\n"},
      {{"pagelayouts"}, "PageLayouts  class; programs can create it; collection\n"},
      {{"PageLayouts"}, "\n  Item(Key As Variant) As PageLayout  get, default\n      The item"},
      {{"PageLayouts"}, "\n  ContentsChange()  event\n"},
      {{"NamespaceDefs"}, "\n  AllNamespaceDefs([ByRef col As NamespaceDefs]) As NamespaceDefs  method\n"},
      {{"DiskFile"}, "\n  Extension As Text  let\n"},
      {{"ModelComment"}, "\n  Tag As Variant  get, let, set\n"},
      {{"pagetypeenum"}, "\n  pgMethod = 3  a method\n"},
      {{"Root.getdefaulttemplate", "--width", "60"},
       "Root.GetDefaultTemplate(NamespaceProfile As Text, [Supports\n"
       "As Text]) As PageTemplate  method\n"
       "  The first template, in catalogue order, that lists the\n"},
      {{"PageTypeEnum.pgMethod"}, "PageTypeEnum.pgMethod = 3\n  a method\n"}};
  for (const auto& row : kRows) {
    std::vector<std::string> arguments{"describe"};
    arguments.insert(arguments.end(), row.Arguments.begin(), row.Arguments.end());
    const auto told = Run(arguments);
    EXPECT_EQ(told.Status, 0) << told.Err;
    EXPECT_THAT(told.Out, HasSubstr(row.Part));
  }
  EXPECT_THAT(RunOnTerminal({"describe", "Root"}, 80), StartsWith("\x1b[1mRoot\x1b[0m"));
}

TEST_F(DescribeTest, WritesJson) {
  const auto member = nlohmann::json::parse(Run({"describe", "TOCDefinition.Clone", "--json"}).Out);
  EXPECT_EQ(member["Signature"], "Clone(PageTemplate As PageTemplate) As TOCDefinition");
  EXPECT_EQ(member["Parameters"][0], nlohmann::json({{"Name", "PageTemplate"},
                                                     {"Type", "PageTemplate"},
                                                     {"IsOptional", false},
                                                     {"IsByReference", false}}));
  EXPECT_EQ(nlohmann::json::parse(Run({"describe", "--json"}).Out).size(), 64U);
}

TEST_F(DescribeTest, SuggestsNamesThatThereAre) {
  const auto type = Run({"describe", "PageTemplat"});
  EXPECT_EQ(type.Status, 1);
  EXPECT_THAT(type.Err, HasSubstr("there is no 'PageTemplat'; did you mean 'PageTemplate"));
  const auto member = Run({"describe", "Root.ConfigPat"});
  EXPECT_EQ(member.Status, 1);
  EXPECT_THAT(member.Err, HasSubstr("did you mean 'ConfigPath'?"));
  EXPECT_EQ(Run({"describe", "Root", "--idl"}).Status, 2);
  EXPECT_EQ(Run({"describe", "--stubs", "--idl"}).Status, 2);
}

}  // namespace
}  // namespace lwconfig::testing
