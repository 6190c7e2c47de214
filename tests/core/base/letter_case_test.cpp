#include <gtest/gtest.h>

#include <lwconfig/core/base/letter_case.h>

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
           Row{"Masse", "Maße", -1},  // one character is one
           Row{"MA\u1E9EE", "maße", 0},
           Row{"σ", "ς", 0},                 // the two small sigmas
           Row{"\u212Aelvin", "kelvin", 0},  // folds to an ASCII letter
           Row{"S", "ſ", 0},
           Row{"\u00B5", "\u03BC", 0},  // micro sign, small mu
           Row{"i", "İ", -1},
           Row{"I", "ı", -1},
           Row{"\u1F88", "\u1F80", 0},        // a capital whose full folding has two characters
           Row{"\u1F80", "\u1F00\u03B9", 1},  // and that folding
           Row{"\u13A0", "\uAB70", 0},        // Cherokee folds to capitals
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
