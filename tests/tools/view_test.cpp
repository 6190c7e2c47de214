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

TEST(TreePath, TheLongestOfSeveralMatchesCounts) {
  Node root{"root", "root"};
  std::vector<Node> things{{"thing", "a"}, {"thing", "a/b"}, {"thing", ""}};
  things[0].Groups.push_back({"b", "B"});
  root.Groups.push_back({"things", "Things", std::move(things)});
  const auto found = FollowPath(root, "things/A/B");
  ASSERT_EQ(found.Targets.size(), 1u);
  EXPECT_EQ(std::get<Node>(found.Targets[0]).Title, "a/b");
  EXPECT_EQ(std::get<Node>(FollowPath(root, "//").Targets[0]).Title, "root");
}

TEST(TreeText, AlignsNeighboursAndLeavesLongNamesAlone) {
  std::vector<Node> things;
  for (const char* title : {"short", "longer", "a name that is much too long to align the others with it"}) {
    things.push_back({"thing", title});
    things.back().Summary = {{"x"}};
  }
  things.push_back({"thing", ""});
  std::string drawn;
  TreeText text({}, [&](std::string_view part) { drawn += part; });
  text.Add(Group{"things", "Things", std::move(things)});
  text.End();
  EXPECT_EQ(drawn,
            "things (4)\n"
            "├─ short   x\n"
            "├─ longer  x\n"
            "├─ a name that is much too long to align the others with it  x\n"
            "└─ (no name)\n");
}

TEST(WriteJson, WritesValuesAndWhatHasNoneUnderItsNamesAndReplacesBytesThatAreNotUtf8) {
  Node node{"thing", "t"};
  node.Value = std::string("a\xff\nb");
  Node whole{"whole", "w"};
  whole.Groups = {{"empty", "Empty"}, {"one", "One", std::vector{node}, true}};
  std::string written;
  WriteJson(
      {whole, Group{"things", "Things", std::vector{node}}},
      [](const Variant& value) { return Json(std::get<std::string>(value)); },
      [&](auto part) { written += part; });
  const Json object{{"Empty", Json::array()}, {"One", "a\uFFFD\nb"}};
  EXPECT_EQ(written, JsonText(Json::array({object, {{"t", "a\uFFFD\nb"}}})));
}

}  // namespace
}  // namespace lwconfig::tool
