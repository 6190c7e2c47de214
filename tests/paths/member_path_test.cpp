#include <gtest/gtest.h>

#include <lwconfig/paths/member_path.h>

namespace lwconfig::testing {
namespace {

/// The steps, written again: `Name(a,2)`, `[key]`, `[#2]` for a position.
std::string Steps(std::string_view text) {
  const auto written = [](const PathValue& value) {
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
      EXPECT_EQ(path.Steps[1].Arguments[0].Value, KeyOrPosition(std::string(key)));
    }
  }
  EXPECT_EQ(WrittenKey("two words"), "two words");
}

}  // namespace
}  // namespace lwconfig::testing
