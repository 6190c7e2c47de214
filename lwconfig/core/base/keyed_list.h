#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig {

/// Names an item of a collection by position (from 1) or by key; default-constructed, it names none. A text
/// is always a key, even one that looks like a number. Refers to the caller's text without copying it.
class ItemKey {
 public:
  ItemKey() = default;
  template <class T>
  requires(std::is_integral_v<T> && !std::is_same_v<T, bool>) ItemKey(T position)
      : mKind(Kind::Position),
        mPosition(std::in_range<std::int32_t>(position) ? static_cast<std::int32_t>(position) : -1) {}
  ItemKey(std::string_view key) : mKind(Kind::Key), mKey(key) {}
  ItemKey(const std::string& key) : mKind(Kind::Key), mKey(key) {}
  ItemKey(const char* key) : mKind(Kind::Key), mKey(key) {}
  /// A key of another type, which names no item. `description` is its text in messages.
  static ItemKey OfOtherType(std::string_view description) {
    ItemKey key;
    key.mKind = Kind::OtherType;
    key.mKey = description;
    return key;
  }

  bool IsGiven() const { return mKind != Kind::None; }
  bool IsPosition() const { return mKind == Kind::Position; }
  bool IsText() const { return mKind == Kind::Key; }
  std::int32_t Position() const { return mPosition; }
  std::string_view Text() const { return mKey; }
  /// The text for messages: `position 3`, `key "Name"`, or the description of a key of another type.
  std::string Description() const;

 private:
  enum class Kind { None, Position, Key, OtherType };
  Kind mKind = Kind::None;
  std::int32_t mPosition = 0;
  std::string_view mKey;
};

/// Hash table from keys to positions in a list. It stores no keys; the list compares them.
class KeyIndex {
 public:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  /// The position with this hash for which `isMatch(place)` holds, or `kNone`.
  template <class IsMatch>
  std::uint32_t Find(std::uint32_t hash, IsMatch isMatch) const {
    if (mBuckets.empty()) return kNone;
    for (std::size_t at = hash & mMask; mBuckets[at].Place != kNone; at = (at + 1) & mMask) {
      if (mBuckets[at].Hash == hash && isMatch(mBuckets[at].Place)) return mBuckets[at].Place;
    }
    return kNone;
  }
  void Insert(std::uint32_t hash, std::uint32_t place);
  void Erase(std::uint32_t hash, std::uint32_t place);
  /// Adds `by` to every position from `from` on.
  void Shift(std::uint32_t from, std::int32_t by);

 private:
  struct Bucket {
    std::uint32_t Hash = 0;
    std::uint32_t Place = kNone;
  };
  void Grow();

  std::vector<Bucket> mBuckets;  // a power of two, at most three quarters full
  std::size_t mMask = 0;
  std::size_t mUsed = 0;
};

/// Ordered values, each with a key or none: the storage of every collection. Keys are unique without regard
/// to letter case; an empty key is none. Look-up by key or position and appending take constant time. Removed
/// values are destroyed after the list is consistent, so their destructors may use it.
template <class V>
class KeyedList {
 public:
  std::int32_t Count() const { return static_cast<std::int32_t>(mEntries.size()); }
  bool Empty() const { return mEntries.empty(); }
  /// The value, or null where the key names none.
  const V* Find(const ItemKey& key) const {
    const std::uint32_t place = Place(key);
    return place == KeyIndex::kNone ? nullptr : &mEntries[place].Value;
  }
  /// The value at a position from 1 to `Count()`.
  const V& At(std::int32_t position) const { return mEntries[static_cast<std::size_t>(position - 1)].Value; }
  /// The key of the value at that position; empty where it has none.
  const std::string& KeyAt(std::int32_t position) const {
    return mEntries[static_cast<std::size_t>(position - 1)].Key;
  }

  /// Inserts before the item that `before` names, else after the one that `after` names, else at the
  /// end. Error 457 for a key that is present, 5 or 9 where `before` or `after` names no item; nothing
  /// is then added.
  void Add(V value, std::string_view key = {}, const ItemKey& before = {}, const ItemKey& after = {}) {
    std::uint32_t place = static_cast<std::uint32_t>(mEntries.size());
    if (before.IsGiven()) {
      place = ExistingPlace(before);
    } else if (after.IsGiven()) {
      place = ExistingPlace(after) + 1;
    }
    std::uint32_t hash = 0;
    if (!key.empty()) {
      hash = Hash(key);
      if (FindKey(key, hash) != KeyIndex::kNone) throw DuplicateKeyError(key);
    }
    if (place == mEntries.size()) {
      mEntries.push_back(Entry{std::move(value), std::string(key)});
    } else {
      mIndex.Shift(place, 1);
      mEntries.insert(mEntries.begin() + place, Entry{std::move(value), std::string(key)});
    }
    if (!key.empty()) mIndex.Insert(hash, place);
  }

  /// Appends values with their keys, in order. A value whose key appears again is removed. Takes time
  /// proportional to the length of both lists, however many values are removed.
  void AddReplacing(std::vector<std::pair<V, std::string>> added) {
    std::vector<bool> leaves(mEntries.size() + added.size());
    bool anyLeaves = false;
    for (auto& [value, key] : added) {
      const auto place = static_cast<std::uint32_t>(mEntries.size());
      mEntries.push_back(Entry{std::move(value), std::move(key)});
      const std::string& last = mEntries.back().Key;
      if (last.empty()) continue;
      const std::uint32_t hash = Hash(last);
      if (const std::uint32_t older = FindKey(last, hash); older != KeyIndex::kNone) {
        mIndex.Erase(hash, older);
        leaves[older] = anyLeaves = true;
      }
      mIndex.Insert(hash, place);
    }
    if (!anyLeaves) return;
    KeyedList kept;
    for (std::size_t place = 0; place < mEntries.size(); ++place) {
      Entry& entry = mEntries[place];
      if (leaves[place]) continue;
      if (!entry.Key.empty())
        kept.mIndex.Insert(Hash(entry.Key), static_cast<std::uint32_t>(kept.mEntries.size()));
      kept.mEntries.push_back(std::move(entry));
    }
    std::swap(*this, kept);
  }

  /// Error 5 for a key, 9 for a position that names no item.
  void Remove(const ItemKey& key) {
    const std::uint32_t place = ExistingPlace(key);
    const auto entry = mEntries.begin() + place;
    if (!entry->Key.empty()) mIndex.Erase(Hash(entry->Key), place);
    if (place + 1 < mEntries.size()) mIndex.Shift(place + 1, -1);
    const Entry removed = std::move(*entry);
    mEntries.erase(entry);
  }

  void Clear() {
    KeyedList removed;
    std::swap(*this, removed);
  }

  /// Walks the values in order. The list may change during the walk; a change invalidates
  /// references to values.
  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = V;
    Iterator() = default;
    Iterator(const KeyedList* list, std::size_t place) : mList(list), mPlace(place) {}
    const V& operator*() const { return mList->mEntries[mPlace].Value; }
    Iterator& operator++() {
      ++mPlace;
      return *this;
    }
    Iterator operator++(int) { return Iterator(mList, mPlace++); }
    /// Compares with the current end of the list.
    bool operator==(const Iterator& other) const {
      return AtEnd() == other.AtEnd() && (AtEnd() || mPlace == other.mPlace);
    }

   private:
    bool AtEnd() const { return mList == nullptr || mPlace >= mList->mEntries.size(); }
    const KeyedList* mList = nullptr;
    std::size_t mPlace = 0;
  };
  Iterator begin() const { return Iterator(this, 0); }
  Iterator end() const { return Iterator(); }

 private:
  struct Entry {
    V Value;
    std::string Key;
  };

  static std::uint32_t Hash(std::string_view key) {
    return static_cast<std::uint32_t>(HashIgnoringCase(key));
  }
  static Error DuplicateKeyError(std::string_view key) {
    return Error(kDuplicateKey, "The key \"" + std::string(key) +
                                    "\" is already associated with an element of this collection");
  }
  std::uint32_t FindKey(std::string_view key, std::uint32_t hash) const {
    return mIndex.Find(hash,
                       [&](std::uint32_t place) { return EqualIgnoringCase(mEntries[place].Key, key); });
  }
  std::uint32_t Place(const ItemKey& key) const {
    if (key.IsText()) return key.Text().empty() ? KeyIndex::kNone : FindKey(key.Text(), Hash(key.Text()));
    if (!key.IsPosition() || key.Position() < 1 || key.Position() > Count()) return KeyIndex::kNone;
    return static_cast<std::uint32_t>(key.Position() - 1);
  }
  std::uint32_t ExistingPlace(const ItemKey& key) const {
    const std::uint32_t place = Place(key);
    if (place != KeyIndex::kNone) return place;
    throw Error(
        key.IsPosition() ? kSubscriptOutOfRange : kInvalidCall,
        "The collection has no item with " + key.Description() + "; it holds " + std::to_string(Count()));
  }

  std::vector<Entry> mEntries;
  KeyIndex mIndex;
};

}  // namespace lwconfig
