#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_list.h>

namespace lwconfig {

/// An ordered collection of objects of one class, each filed under a key or none. Keys are compared without
/// regard to letter case; positions count from 1. The collection shares ownership of its items.
template <class T>
class KeyedCollection {
 public:
  using ItemClass = T;
  using Pointer = std::shared_ptr<T>;

  KeyedCollection() = default;
  virtual ~KeyedCollection() = default;
  KeyedCollection(const KeyedCollection&) = delete;
  KeyedCollection& operator=(const KeyedCollection&) = delete;

  /// The item at that position or under that key, or null.
  virtual Pointer Item(const ItemKey& Key) const {
    const Pointer* item = mCol.Find(Key);
    return item != nullptr ? *item : nullptr;
  }
  /// Whether the key names an item.
  virtual bool Contains(const ItemKey& Key) const { return mCol.Find(Key) != nullptr; }
  /// Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
  /// out of range.
  virtual void Remove(const ItemKey& Key) { mCol.Remove(Key); }
  /// Inserts the object before the item that `Before` names, else after the one that `After` names, else at
  /// the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or `After`
  /// names no item, 91 for no object; nothing is then added.
  virtual void Add(Pointer obj, std::string_view Key = {}, const ItemKey& Before = {},
                   const ItemKey& After = {}) {
    if (!obj) throw Error(kObjectNotSet, "No object was given to add to the collection");
    mCol.Add(std::move(obj), Key, Before, After);
  }
  /// The number of items.
  std::int32_t Count() const { return mCol.Count(); }
  /// The key of the item at a position from 1 to `Count`; empty where it has none.
  const std::string& KeyAt(std::int32_t position) const { return mCol.KeyAt(position); }

  /// The items, from the first to the last.
  auto begin() const { return mCol.begin(); }
  auto end() const { return mCol.end(); }

 protected:
  KeyedList<Pointer> mCol;
};

/// The plain keyed collection of strings.
class Collection : public Counted<Collection> {
 public:
  static constexpr const char* kClassName = "Collection";

  /// The string at that position or under that key, or null. A reference lasts until the collection changes.
  const std::string* Item(const ItemKey& Key) const { return mCol.Find(Key); }
  bool Contains(const ItemKey& Key) const { return Item(Key) != nullptr; }
  /// As of every collection.
  void Remove(const ItemKey& Key) { mCol.Remove(Key); }
  /// Inserts `Item` before the item that `Before` names, else after the one that `After` names, else at the
  /// end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or `After` names
  /// no item; nothing is then added.
  void Add(std::string Item, std::string_view Key = {}, const ItemKey& Before = {},
           const ItemKey& After = {}) {
    mCol.Add(std::move(Item), Key, Before, After);
  }
  /// The number of items.
  std::int32_t Count() const { return mCol.Count(); }
  /// As of `KeyedCollection`.
  const std::string& KeyAt(std::int32_t position) const { return mCol.KeyAt(position); }

  /// The items, from the first to the last.
  auto begin() const { return mCol.begin(); }
  auto end() const { return mCol.end(); }

 private:
  KeyedList<std::string> mCol;
};

}  // namespace lwconfig
