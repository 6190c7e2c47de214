#include <gmock/gmock.h>

#include <lwconfig/core/keyed_list.h>

namespace lwconfig {
namespace {

using ::testing::ElementsAre;

TEST(KeyedList, AppendsInPlaceOfOlderValues) {
  KeyedList<int> list;
  list.AddReplacing({{1, "A"}, {2, ""}, {3, "Ä"}});
  list.Add(4, "D");
  EXPECT_THAT(std::vector<int>(list.begin(), list.end()), ElementsAre(1, 2, 3, 4));
  list.AddReplacing({{5, "ä"}, {6, ""}, {7, "E"}, {8, "a"}, {9, "e"}, {10, "A"}});
  list.Remove("D");
  list.Add(11, "D");
  EXPECT_THAT(std::vector<int>(list.begin(), list.end()), ElementsAre(2, 5, 6, 9, 10, 11));
  for (const auto& [key, value] : {std::pair("a", 10), {"Ä", 5}, {"d", 11}, {"E", 9}})
    EXPECT_THAT(list.Find(key), ::testing::Pointee(value)) << key;
}

}  // namespace
}  // namespace lwconfig
