#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <lwconfig/externaldocs/wildcard.h>

namespace lwconfig {
namespace {

TEST(Wildcard, MatchesTheWholeText) {
  using Row = std::tuple<const char*, std::vector<const char*>, std::vector<const char*>>;
  for (const auto& [pattern, matching, other] :
       {Row{"", {""}, {"a"}}, Row{"System", {"System"}, {"system", "System.Xml", "xSystem", ""}},
        Row{"System.*", {"System.", "System.Xml"}, {"System", "xSystem."}}, Row{"**", {"", "x"}, {}},
        Row{"*.Xml", {"System.Xml.Xml"}, {"System.Xml.XPath", "Xml"}}, Row{"*ab", {"aab"}, {"aba"}},
        Row{"*a*b*", {"xxaxxbxx", "ab"}, {"xxbxxaxx"}}, Row{"a?c", {"abc", "aüc"}, {"ac", "abbc"}},
        Row{"V#", {"V0", "V9"}, {"Vx", "V#", "V٣", "V"}},
        // Characters are not bytes, and bytes that are no characters stand for themselves.
        Row{"?", {"ü", "📘", "\xFF"}, {"", "üü"}}, Row{"*?n", {"ün"}, {"n"}}, Row{"Ü", {"Ü"}, {"ü"}},
        Row{"[\xFF]*", {"\xFFü"}, {"\xFE", "ÿ"}}, Row{"[ä-ü]", {"ä", "ö", "ü"}, {"z", "Ã"}},
        Row{"[a-cx]", {"a", "b", "c", "x"}, {"B", "d", "-", "", "ab"}}, Row{"[!a-c]", {"d"}, {"b", "", "dd"}},
        Row{"[-a]", {"-", "a"}, {"b"}}, Row{"[a-]", {"-", "a"}, {"b"}}, Row{"[!-]", {"!"}, {"-"}},
        Row{"[a-c-e]", {"b", "-", "e"}, {"d"}}, Row{"[a!]", {"!"}, {"b"}},
        Row{"[?*#[]", {"[", "*"}, {"x", "1"}}, Row{"*[0-9][0-9]", {"Win32"}, {"Win3x"}},
        // Brackets that do not close, lists that hold nothing.
        Row{"[ab", {"[ab"}, {"a", "b"}}, Row{"]*[", {"]x["}, {"x"}}, Row{"[a]]", {"a]"}, {"a", "]"}},
        Row{"[]", {}, {"", "[]", "x"}}, Row{"[!]", {"!", "x"}, {"", "[!]"}},
        Row{"[z-a]", {}, {"m", "z", "-"}}, Row{"[!z-a]", {"m"}, {""}}}) {
    for (const char* text : matching) EXPECT_TRUE(MatchesWildcard(text, pattern)) << pattern << text;
    for (const char* text : other) EXPECT_FALSE(MatchesWildcard(text, pattern)) << pattern << text;
  }
}

TEST(Wildcard, TakesNoLongerThanTextTimesPattern) {
  std::string stars;
  for (int i = 0; i < 1'000; ++i) stars += "*a";
  const std::string brackets(1'000, '[');
  for (const std::string& pattern :
       {std::string("*a*a*a*a*b"), stars + "*b", "*" + std::string(1'000, '?') + "b", "]*" + brackets + "x",
        "*" + brackets + "x"}) {
    for (const char character : {'a', '['}) {
      EXPECT_FALSE(MatchesWildcard(std::string(10'000, character), pattern));
    }
  }
}

}  // namespace
}  // namespace lwconfig
