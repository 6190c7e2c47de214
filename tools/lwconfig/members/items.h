#pragma once

#include <string>
#include <vector>

#include <tools/lwconfig/members/model.h>

namespace lwconfig::tool {

/// One item of a collection.
struct Item {
  std::int32_t Position;
  std::string Key;  // empty where there is none
  Variant Value;
};
std::int32_t CountOf(Model& model, const AnyObject& collection);
std::vector<Item> ItemsOf(const AnyObject& collection);
/// The argument that names an item: positions from the end become those from the start.
Variant KeyArgument(Model& model, const AnyObject& collection, const KeyOrPosition& key);
/// The item; an empty value where there is none.
Variant FindItem(Model& model, const AnyObject& collection, const KeyOrPosition& key);

}  // namespace lwconfig::tool
