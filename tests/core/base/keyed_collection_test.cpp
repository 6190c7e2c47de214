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

TEST(KeyedCollection, RefusesWhatHasNoPlaceOrASecondKey) {
  Things things;
  for (int id = 1; id <= 3; ++id) things.Add(std::make_shared<Thing>(id), "K" + std::to_string(id));
  const auto add = [&](std::string_view key, const ItemKey& before, const ItemKey& after) {
    things.Add(std::make_shared<Thing>(9), key, before, after);
  };
  EXPECT_ERROR(kDuplicateKey, add("k3", 1, {}));
  EXPECT_ERROR(kInvalidCall, add("new", "none", {}));
  EXPECT_ERROR(kInvalidCall, add("new", {}, "none"));
  EXPECT_ERROR(kInvalidCall, add("new", "", 1));
  EXPECT_ERROR(kSubscriptOutOfRange, add("new", 0, {}));
  EXPECT_ERROR(kSubscriptOutOfRange, add("new", {}, 4));
  EXPECT_ERROR(kSubscriptOutOfRange, add("new", 9, 1));
  EXPECT_ERROR(kObjectNotSet, things.Add(nullptr, "new"));
  EXPECT_ERROR(kInvalidCall, things.Remove("new"));
  EXPECT_ERROR(kSubscriptOutOfRange, things.Remove(4));
  EXPECT_THAT(Ids(things), ElementsAre(1, 2, 3));
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
  // Keys, and a number for those of the same meaning.
  std::vector<std::pair<std::string, int>> spellings{{"Straße", 0}, {"STRAẞE", 0},  {"Äpfel", 1},
                                                     {"äPFEL", 1},  {"Σίσυφος", 2}, {"ΣΊΣΥΦΟΣ", 2}};
  for (int i = 0; i < 40; ++i)
    spellings.emplace_back((i % 2 == 0 ? "Key" : "KEY") + std::to_string(i / 2), 3 + i / 2);
  std::vector<std::pair<int, int>> list;  // identity and meaning, -1 for no key
  Things things;
  std::mt19937 random(20040901);
  const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  const auto placeOf = [&](int meaning) {
    return static_cast<std::size_t>(std::ranges::find(list, meaning, &std::pair<int, int>::second) -
                                    list.begin());
  };
  const auto fails = [](auto change) {
    try {
      change();
      return false;
    } catch (const Error&) {
      return true;
    }
  };
  for (int step = 0; step < 6000; ++step) {
    // Some item by key or position, which may name none.
    const auto& [name, meaningOfName] = spellings[below(spellings.size())];
    const bool byKey = below(2) == 0;
    const std::size_t position = below(list.size() + 2);
    const ItemKey key = byKey ? ItemKey(name) : ItemKey(position);
    const std::size_t place = byKey ? placeOf(meaningOfName) : position - 1;
    const bool exists = place < list.size();
    if (below(list.size() > 30 ? 2 : 4) == 0) {
      ASSERT_EQ(fails([&] { things.Remove(key); }), !exists) << step;
      if (exists) list.erase(list.begin() + static_cast<std::ptrdiff_t>(place));
    } else {
      const auto fresh = below(4) == 0 ? std::pair(std::string(), -1) : spellings[below(spellings.size())];
      const std::size_t where = below(3);  // at the end, before or after
      const bool isRefused = fails([&] {
        things.Add(std::make_shared<Thing>(step), fresh.first, where == 1 ? key : ItemKey(),
                   where == 2 ? key : ItemKey());
      });
      const bool duplicate = fresh.second >= 0 && placeOf(fresh.second) < list.size();
      ASSERT_EQ(isRefused, duplicate || (where != 0 && !exists)) << step;
      const std::size_t target = where == 0 ? list.size() : place + (where == 2 ? 1 : 0);
      if (!isRefused) list.emplace(list.begin() + static_cast<std::ptrdiff_t>(target), step, fresh.second);
    }
    std::vector<int> expected;
    for (const auto& [id, meaning] : list) expected.push_back(id);
    ASSERT_EQ(Ids(things), expected) << step;
    for (const auto& [text, meaning] : spellings) {
      const std::size_t at = placeOf(meaning);
      const auto found = things.Item(text);
      ASSERT_EQ(found ? found->Id : -1, at < list.size() ? list[at].first : -1) << step << ' ' << text;
    }
  }
}

}  // namespace
}  // namespace lwconfig::testing
