#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// Text and collection helpers.
class StringTools {
 public:
  /// Whether the collection holds an item under the key.
  static bool KeyExists(const Collection& collection, std::string_view key) {
    return collection.Item(key) != nullptr;
  }
  /// The items joined with the separator, in order.
  static std::string JoinCollection(const Collection& collection, std::string_view separator);
  /// The `index`-th piece, from 1, of the text split at the separator; empty where there is none.
  static std::string Piece(std::string_view text, std::string_view separator, std::int32_t index);
  /// Whether a collection object yields an item for the key.
  template <class T>
  static bool ObjectKeyExists(const KeyedCollection<T>& collection, std::string_view key) {
    return collection.Item(key) != nullptr;
  }
  static bool ObjectKeyExists(const XMLAttributes& attributes, std::string_view key) {
    return attributes.Find(key).has_value();
  }
  /// The pieces of the text split at the separator, in order, without keys.
  static std::shared_ptr<Collection> SplitToCollection(std::string_view text, std::string_view separator);
  /// Replaces each placeholder, a name between two delimiters, by the value under that name. A name without a
  /// value and a lone delimiter are copied unchanged; values are not expanded again.
  static std::string ExpandPlaceholders(std::string_view Format, const Collection& Values,
                                        std::string_view delimiter);
};

}  // namespace lwconfig
