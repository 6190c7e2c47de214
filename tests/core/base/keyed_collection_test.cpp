#include <random>

#include <tests/configuration.h>

#include <lwconfig/core/base/keyed_collection.h>

namespace lwconfig::testing {
namespace {

struct Thing {
  explicit Thing(int id) : Id(id) {}
  int Id;
};
using Things = KeyedCollection<Thing>;

std::vector<int> Ids(const Things& things) {
  return Each(things, &Thing::Id);
}

TEST(KeyedCollection, FindsByKeyInAnyLetterCaseAndByPosition) {
  Things things;
  int id = 0;
  for (const char* key : {"Module", "Straße", "Ärger", "1", "", ""})
    things.Add(std::make_shared<Thing>(++id), key);
  using Row = std::pair<ItemKey, int>;
  for (const auto& [key, found] :
       {Row{"module", 1}, Row{"STRAẞE", 2}, Row{"äRGER", 3}, Row{"1", 4}, Row{1, 1}, Row{6, 6}, Row{0, 0},
        Row{-1, 0}, Row{7, 0}, Row{INT64_C(4294967297), 0}, Row{"", 0}, Row{"5", 0}, Row{"Modul", 0},
        Row{{}, 0}}) {
    const auto item = things.Item(key);
    EXPECT_EQ(item ? item->Id : 0, found) << key.Description();
  }
  EXPECT_EQ(things.KeyAt(2), "Straße");
  EXPECT_EQ(things.KeyAt(5), "");
}

TEST(KeyedCollection, InsertsBeforeOrAfterOrNotAtAll) {
  Things things;
  for (int id = 1; id <= 3; ++id) things.Add(std::make_shared<Thing>(id), "K" + std::to_string(id));
  things.Add(std::make_shared<Thing>(4), "K4", {}, "k2");
  things.Add(std::make_shared<Thing>(5), "", 1);
  EXPECT_THAT(Ids(things), ElementsAre(5, 1, 2, 4, 3));
  const auto add = [&](std::string_view key, const ItemKey& before, const ItemKey& after) {
    things.Add(std::make_shared<Thing>(9), key, before, after);
  };
  EXPECT_ERROR(kDuplicateKey, add("k3", 1, {}));
  EXPECT_ERROR(kInvalidCall, add("new", "none", {}));
  EXPECT_ERROR(kInvalidCall, add("new", {}, "none"));
  EXPECT_ERROR(kInvalidCall, add("new", "", 1));
  EXPECT_ERROR(kSubscriptOutOfRange, add("new", 0, {}));
  EXPECT_ERROR(kSubscriptOutOfRange, add("new", {}, 6));
  EXPECT_ERROR(kSubscriptOutOfRange, add("new", 9, 1));
  EXPECT_ERROR(kObjectNotSet, things.Add(nullptr, "new"));
  EXPECT_ERROR(kInvalidCall, things.Remove("new"));
  EXPECT_ERROR(kSubscriptOutOfRange, things.Remove(6));
  EXPECT_EQ(things.Count(), 5);
}

TEST(KeyedCollection, MayChangeWhileItIsWalked) {
  Things things;
  for (int id = 1; id <= 4; ++id) things.Add(std::make_shared<Thing>(id));
  std::vector<int> seen;
  for (auto thing : things) {
    seen.push_back(thing->Id);
    if (thing->Id == 2) things.Remove(4);
    if (thing->Id == 3) things.Add(std::make_shared<Thing>(5));
    if (thing->Id == 5) things.Remove(1);
  }
  EXPECT_THAT(seen, ElementsAre(1, 2, 3, 5));
}

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

// The end of a value may run code that looks at the list and changes it.
TEST(KeyedList, IsWholeWhenAValueEnds) {
  using List = KeyedList<std::shared_ptr<void>>;
  using Change = void (*)(List&);
  const auto checkKeys = [](const List& list) {
    for (std::int32_t at = 1; at <= list.Count(); ++at) EXPECT_EQ(list.Find(list.KeyAt(at)), &list.At(at));
  };
  for (const Change change : {Change([](List& list) { list.Remove("a"); }),
                              Change([](List& list) { list.Clear(); }), Change([](List& list) {
                                list.AddReplacing({{nullptr, "c"}, {nullptr, "A"}});
                              })}) {
    List list;
    int ends = 0;
    list.Add(nullptr, "before");
    list.Add({&ends,
              [&](void*) {
                ++ends;
                EXPECT_TRUE(list.Find("a") == nullptr || *list.Find("a") == nullptr);
                for (int at = 0; at < 20; ++at) list.Add(nullptr, "new " + std::to_string(at));
                list.Remove(1);
                checkKeys(list);
              }},
             "a");
    list.Add(nullptr, "b");
    change(list);
    EXPECT_EQ(ends, 1);
    EXPECT_NE(list.Find("new 19"), nullptr);
    checkKeys(list);
  }
}

// The same random steps on the collection and on a plain list of what should be in it.
TEST(KeyedCollection, AgreesWithAPlainListOverManySteps) {
  // Keys, two of each meaning.
  std::vector<std::string> keys{"Straße", "STRAẞE", "Äpfel", "äPFEL", "Σίσυφος", "ΣΊΣΥΦΟΣ"};
  for (int i = 0; i < 40; ++i) keys.push_back((i % 2 == 0 ? "Key" : "KEY") + std::to_string(i / 2));
  std::vector<std::pair<int, int>> list;  // identity and meaning
  Things things;
  std::mt19937 random(20040901);
  const auto below = [&](std::size_t n) { return static_cast<int>(random() % n); };
  const auto placeOf = [&](int meaning) {
    return std::ranges::find(list, meaning, &std::pair<int, int>::second);
  };
  for (int step = 0; step < 6000; ++step) {
    const int key = below(keys.size());
    const auto& name = keys[static_cast<std::size_t>(key)];
    const auto place = placeOf(key / 2);
    if (place != list.end()) {
      // Now and then by its position, and a new item in its place.
      const ItemKey item = below(2) == 0 ? ItemKey(name) : ItemKey(place - list.begin() + 1);
      if (below(3) == 0) {
        things.Add(std::make_shared<Thing>(step), "", item);
        list.insert(place, {step, -1});
      } else {
        things.Remove(item);
        list.erase(place);
      }
    } else {
      things.Add(std::make_shared<Thing>(step), name);
      list.emplace_back(step, key / 2);
    }
    while (list.size() > 40) {
      things.Remove(1);
      list.erase(list.begin());
    }
    std::vector<int> expected;
    for (const auto& [id, meaning] : list) expected.push_back(id);
    ASSERT_EQ(Ids(things), expected) << step;
    for (std::size_t at = 0; at < keys.size(); ++at) {
      const auto found = placeOf(static_cast<int>(at / 2));
      const auto item = things.Item(keys[at]);
      ASSERT_EQ(item ? item->Id : -1, found != list.end() ? found->first : -1) << step << ' ' << keys[at];
    }
  }
}

}  // namespace
}  // namespace lwconfig::testing
