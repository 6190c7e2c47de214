#include <tests/configuration.h>

#include <lwconfig/namespaces/element_attributes.h>
#include <lwconfig/namespaces/namespace_provider.h>

namespace lwconfig::testing {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

Pairs All(const ElementAttributes& attributes) {
  Pairs pairs;
  for (int i = 1; i <= attributes.Count(); ++i)
    pairs.emplace_back(attributes.AttributeName(i), attributes.AttributeData(i));
  return pairs;
}

TEST(ElementAttributes, AreSplitAtBlanks) {
  using Row = std::pair<const char*, Pairs>;
  // Where there is a "=", the end of the text adds an empty attribute.
  for (const auto& [text, pairs] :
       {Row{"Title=Hello", {{"Title", "Hello"}, {"", ""}}},
        Row{"Title=Hello ", {{"Title", "Hello"}, {"", ""}}},
        Row{" a=1  b=2", {{"", ""}, {"a", "1"}, {"", ""}, {"b", "2"}, {"", ""}}},
        Row{"=", {{"", ""}, {"", ""}}},
        Row{"-a=-1 /b=2=3 --c=4 /d", {{"a", "-1"}, {"b", "2=3"}, {"-c", "4"}, {"d", "/d"}, {"", ""}}},
        Row{"/s /t", {{"s /t", "/s /t"}}}, Row{" ", {{" ", " "}}}, Row{"-", {{"", "-"}}},
        Row{"-\"a b\" \"c\"", {{"\"a b\" \"c\"", "-a b c"}}},
        Row{"Caption=\"A B\"", {{"Caption", "A B"}, {"", ""}}},
        Row{"\"x y\"=1\"2 3\"4", {{"x y", "12 34"}, {"", ""}}},
        Row{"a=\" A \" b=\"\"", {{"a", " A"}, {"b", ""}, {"", ""}}},
        Row{"a\"\"\"b=c\"\"\"d", {{"a\"b", "cd"}, {"", ""}}},
        Row{"a=\"\"\"\"x y\"", {{"a", "x y"}, {"", ""}}}, Row{"a=\"x\"\"\"y\" b", {{"a", "xy b"}}},
        Row{"a=1 b=\"2 3", {{"a", "1"}, {"b", "2 3"}}}, Row{"a=1 \"", {{"a", "1"}, {"", ""}}},
        Row{"a=\"x=y\tü\"", {{"a", "x=y\tü"}, {"", ""}}}}) {
    ElementAttributes attributes;
    EXPECT_EQ(attributes.Parse(text), static_cast<int>(pairs.size())) << text;
    EXPECT_EQ(All(attributes), pairs) << text;
  }
}

TEST(ElementAttributes, AreFoundByPositionOrName) {
  ElementAttributes attributes;
  EXPECT_EQ(attributes.AttributeData(1) + attributes.AttributeName("") + attributes.AttributeData(0), "");
  attributes.Parse("Title=a TITLE=b 0=zero 2x=c größe=d 0.4=e --5=f =g");
  using Row = std::pair<ItemKey, const char*>;
  for (const auto& [index, value] :
       {Row{1, "a"},      Row{2, "b"},      Row{9, ""},      Row{10, ""},       Row{-1, ""},
        Row{0, "zero"},   Row{"0", "zero"}, Row{"00", ""},   Row{"title", "a"}, Row{"GRÖẞE", "d"},
        Row{"none", ""},  Row{"2", "b"},    Row{" 2 ", "b"}, Row{"1.5", "b"},   Row{"2x", ""},
        Row{"-5", ""},    Row{"0.4", ""},   Row{40000, ""},  Row{"40000", ""},  Row{"99999999999", ""},
        Row{"1e999", ""}, Row{"", "g"},     Row{{}, "g"}}) {
    EXPECT_EQ(attributes.AttributeData(index), value) << index.Description();
  }
  EXPECT_EQ(attributes.AttributeName("TITLE"), "Title");
}

class ProcessAttributes : public ConfigurationTest {};

TEST_F(ProcessAttributes, AreUsedWhereThereIsNoText) {
  ElementAttributes attributes;
  EXPECT_EQ(attributes.Parse(), 0);
  attributes.Parse("/a");
  EXPECT_EQ(attributes.Parse(""), 1);
  EXPECT_EQ(All(attributes), (Pairs{{"a", "/a"}}));
  Surroundings.Arguments = {"/x=1 2", "", "y"};
  EXPECT_EQ(attributes.Parse(), 5);
  EXPECT_EQ(All(attributes), (Pairs{{"x", "1"}, {"2", "2"}, {"", ""}, {"y", "y"}, {"", ""}}));
}

TEST(ElementAttributes, AreNoMoreThanTheirCountCanTell) {
  ElementAttributes attributes;
  EXPECT_EQ(attributes.Parse("a=" + std::string(32'765, ' ') + "b"), 32'767);
  EXPECT_EQ(attributes.AttributeData(32'766), "b");
  EXPECT_ERROR(kOverflow, attributes.Parse("a=" + std::string(32'766, ' ') + "b"));
  EXPECT_EQ(attributes.AttributeName("B"), "b");
  EXPECT_EQ(attributes.Parse("c"), 1);
}

}  // namespace
}  // namespace lwconfig::testing
