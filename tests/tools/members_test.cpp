#include <gmock/gmock.h>
#include <tools/lwconfig/members/path.h>
#include <tools/lwconfig/members/words.h>

#include <lwconfig/checking/model_path.h>

namespace lwconfig::testing {
namespace {

using ::testing::ElementsAre;
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
  EXPECT_THROW(unclosed.Next(words), tool::Fault);
}

}  // namespace
}  // namespace lwconfig::testing
