#pragma once

#include <string>
#include <vector>

#include <lwconfig/paths/object_model.h>

namespace lwconfig {

/// One item of a collection.
struct CollectionItem {
  std::int32_t Position;
  std::string Key;  // empty where there is none
  Variant Value;
};
std::int32_t CountOf(ObjectModel& model, const AnyObject& collection);
std::vector<CollectionItem> ItemsOf(const AnyObject& collection);
/// The argument that names an item: positions from the end become those from the start.
Variant KeyArgument(ObjectModel& model, const AnyObject& collection, const KeyOrPosition& key);
/// The item with the key or position, else the one that people know by the name: a template by its folder, a
/// plug-in by its name. An empty value where there is none.
Variant FindItem(ObjectModel& model, const AnyObject& collection, const KeyOrPosition& key);

}  // namespace lwconfig
