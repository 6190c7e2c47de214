#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/styled_text.h>
#include <tools/lwconfig/view/tree_path.h>
#include <tools/lwconfig/view/tree_text.h>

namespace lwconfig::tool {
namespace {

std::vector<std::string> Wrapped(const StyledText& text, std::size_t columns) {
  std::vector<std::string> lines;
  for (const auto& line : Wrap(text, columns)) lines.push_back(Unpainted(line));
  return lines;
}

TEST(StyledText, WidthsAreColumns) {
  EXPECT_EQ(Width("grün"), 4u);
  EXPECT_EQ(Width("日本"), 4u);
  EXPECT_EQ(Width("e\u0301"), 1u);
  EXPECT_EQ(Width("\xff"), 1u);
}

TEST(StyledText, WhatATerminalWouldObeyIsSpelledOut) {
  EXPECT_EQ(Printable("a\nb\t\x1b[31m\x7f"), "a\\nb\\t\\x1b[31m\\x7f");
  EXPECT_EQ(Printable("\u0085\u202e\u2028"), "\\x85\\u202e\\u2028");
  EXPECT_EQ(Printable("\xff ü"), "\uFFFD ü");
}

TEST(StyledText, CutsToColumns) {
  const StyledText text{{"日本語", Tone::Title}, {" und mehr", Tone::Quiet}};
  EXPECT_EQ(Unpainted(Cut(text, 15, "…")), "日本語 und mehr");
  EXPECT_EQ(Unpainted(Cut(text, 9, "…")), "日本語 u…");
  // Half of a wide character does not fit.
  EXPECT_EQ(Unpainted(Cut(text, 4, "…")), "日…");
  EXPECT_EQ(Unpainted(Cut(text, 2, "...")), "..");
  EXPECT_EQ(Unpainted(Cut(text, 0, "…")), "");
}

TEST(StyledText, WrapsAtBlanksElseInsideWords) {
  using ::testing::ElementsAre;
  EXPECT_THAT(Wrapped({{"one two"}, {" three", Tone::Link}}, 9), ElementsAre("one two", "three"));
  EXPECT_THAT(Wrapped({{"a  b"}}, 9), ElementsAre("a  b"));
  EXPECT_THAT(Wrapped({{"to abcdefgh"}}, 4), ElementsAre("to", "abcd", "efgh"));
  EXPECT_THAT(Wrapped({{"日本"}}, 1), ElementsAre("日", "本"));
  EXPECT_THAT(Wrapped({}, 4), ElementsAre(""));
}

TEST(TreePath, SuggestsOnlyWhatIsNear) {
  const std::vector<std::string> names{"Platform SDK", "VBTechDoc", "layouts"};
  EXPECT_EQ(Nearest("VBTechDok", names), "VBTechDoc");
  EXPECT_EQ(Nearest("platform", names), "Platform SDK");
  EXPECT_EQ(Nearest("layotus", names), "layouts");
  EXPECT_EQ(Nearest("something", names), "");
  EXPECT_EQ(Nearest("", names), "");
}

TEST(TreePath, TheLongestOfSeveralMatchesCounts) {
  Node root{"root", "root"};
  Group group{"things", "Things", {{"thing", "a"}, {"thing", "a/b"}, {"thing", ""}}};
  group.Nodes[0].Groups.push_back({"b", "B"});
  root.Groups.push_back(std::move(group));
  const auto found = FollowPath(root, "things/A/B");
  ASSERT_EQ(found.Targets.size(), 1u);
  EXPECT_EQ(std::get<const Node*>(found.Targets[0])->Title, "a/b");
  EXPECT_EQ(std::get<const Node*>(FollowPath(root, "//").Targets[0]), &root);
}

TEST(TreeText, AlignsNeighboursAndLeavesLongNamesAlone) {
  Group group{"things", "Things"};
  for (const char* title : {"short", "longer", "a name that is much too long to align the others with it"}) {
    group.Nodes.push_back(Node{"thing", title});
    group.Nodes.back().Summary = {{"x"}};
  }
  group.Nodes.push_back(Node{"thing", ""});
  TreeText text({});
  text.Add(group);
  EXPECT_EQ(text.Text(),
            "things (4)\n"
            "├─ short   x\n"
            "├─ longer  x\n"
            "├─ a name that is much too long to align the others with it  x\n"
            "└─ (no name)\n");
}

TEST(JsonText, BytesThatAreNotUtf8DoNotStopIt) {
  Node node{"thing", "t"};
  node.Properties = {Valued("Name", std::string("a\xff"), ""), {"", 1, "label", {"only for people"}}};
  EXPECT_EQ(JsonText(ToJson(node)), "{\n  \"Name\": \"a\uFFFD\"\n}\n");
}

}  // namespace
}  // namespace lwconfig::tool
