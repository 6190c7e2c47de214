#include <gmock/gmock.h>
#include <tools/lwconfig/command_words.h>

#include <lwconfig/paths/path_error.h>

namespace lwconfig::testing {
namespace {

using ::testing::ElementsAre;

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
  EXPECT_THROW(unclosed.Next(words), PathError);
}

}  // namespace
}  // namespace lwconfig::testing
