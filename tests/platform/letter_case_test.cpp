#include <gtest/gtest.h>

#include <lwconfig/platform/letter_case.h>

namespace lwconfig {
namespace {

TEST(LetterCase, ComparesAsAReaderWould) {
  struct Row {
    const char* Left;
    const char* Right;
    int Order;
  };
  for (const Row& row : {
           Row{"", "", 0},
           Row{"Alpha", "aLPHA", 0},
           Row{"alpha", "Alphab", -1},
           Row{"b", "A", 1},
           Row{"a_", "AB", -1},  // '_' stands between the capitals and the small letters
           Row{"Zebra", "\xc3\x84hre", -1},
           Row{"\xc3\x84HRE", "\xc3\xa4hre", 0},
           Row{"STRASSE",
               "stra\xc3\x9f"
               "e",
               0},
           Row{"stra\xc3\x9f"
               "e",
               "strasso", -1},
           Row{"\xcf\x83", "\xcf\x82", 0},  // the two small sigmas
           Row{"\xe2\x84\xaa"
               "elvin",
               "kelvin", 0},  // folds to an ASCII letter
           Row{"a\xff", "A\xff", 0},
           Row{"a\xff", "a\xfe", 1},
       }) {
    const auto order = CompareIgnoringCase(row.Left, row.Right);
    EXPECT_EQ(order < 0 ? -1 : order > 0 ? 1 : 0, row.Order) << row.Left << " | " << row.Right;
    EXPECT_EQ(CompareIgnoringCase(row.Right, row.Left) < 0, order > 0) << row.Left << " | " << row.Right;
    EXPECT_EQ(EqualIgnoringCase(row.Left, row.Right), row.Order == 0) << row.Left << " | " << row.Right;
    EXPECT_EQ(FoldCase(row.Left) == FoldCase(row.Right), row.Order == 0) << row.Left << " | " << row.Right;
    if (row.Order == 0) {
      EXPECT_EQ(HashIgnoringCase(row.Left), HashIgnoringCase(row.Right)) << row.Left << " | " << row.Right;
    }
  }
}

}  // namespace
}  // namespace lwconfig
