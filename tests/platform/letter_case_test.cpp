#include <gtest/gtest.h>

#include <lwconfig/platform/letter_case.h>

namespace lwconfig {
namespace {

TEST(LetterCase, ComparesAsAReaderWould) {
  using Row = std::tuple<const char*, const char*, int>;
  for (const auto& [left, right, expected] : {
           Row{"", "", 0},
           Row{"Alpha", "aLPHA", 0},
           Row{"alpha", "Alphab", -1},
           Row{"b", "A", 1},
           Row{"a_", "AB", -1},  // '_' stands between the capitals and the small letters
           Row{"Zebra", "Ähre", -1},
           Row{"ÄHRE", "ähre", 0},
           Row{"STRASSE", "straße", 0},
           Row{"straße", "strasso", -1},
           Row{"σ", "ς", 0},                 // the two small sigmas
           Row{"\u212Aelvin", "kelvin", 0},  // folds to an ASCII letter
           Row{"a\xff", "A\xff", 0},
           Row{"a\xff", "a\xfe", 1},
       }) {
    const auto order = CompareIgnoringCase(left, right);
    EXPECT_EQ(order < 0 ? -1 : order > 0 ? 1 : 0, expected) << left << " | " << right;
    EXPECT_EQ(CompareIgnoringCase(right, left) < 0, order > 0) << left << " | " << right;
    EXPECT_EQ(EqualIgnoringCase(left, right), expected == 0) << left << " | " << right;
    EXPECT_EQ(FoldCase(left) == FoldCase(right), expected == 0) << left << " | " << right;
    if (expected == 0) {
      EXPECT_EQ(HashIgnoringCase(left), HashIgnoringCase(right)) << left << " | " << right;
    }
  }
}

}  // namespace
}  // namespace lwconfig
