#include <array>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/file_name.h>
#include <lwconfig/paths/collection_items.h>

namespace lwconfig {

using automation::ClassInfo;
using automation::ClassOf;
using automation::kPropertyGet;

std::int32_t CountOf(ObjectModel& model, const AnyObject& collection) {
  return automation::ToInteger32(model.Invoke(collection, "Count", kPropertyGet));
}

Variant KeyArgument(ObjectModel& model, const AnyObject& collection, const KeyOrPosition& key) {
  if (const auto* text = std::get_if<std::string>(&key)) return *text;
  const auto position = std::get<std::int32_t>(key);
  return position < 0 ? position + 1 + CountOf(model, collection) : position;
}

namespace {

/// The property by which people know an item besides its key: of a template the folder, of an item whose key
/// is made up, such as a plug-in, the one in its file. Null where there is none.
const ClassInfo::Member* OtherName(const ClassInfo& item) {
  const ClassInfo::Member* key = item.Key();
  if (key == nullptr) return nullptr;
  const ClassInfo::Member* other =
      item.Find(&item == &ClassOf<PageTemplate>() ? "RootFolder" : key->Attribute());
  return other != key ? other : nullptr;
}

Variant FindByOtherName(ObjectModel& model, const AnyObject& collection, std::string_view name) {
  const ClassInfo* item = collection.Class->ItemClass();
  const ClassInfo::Member* other = item != nullptr ? OtherName(*item) : nullptr;
  if (other == nullptr) return {};
  const auto enumerator = automation::Enumerate(collection);
  for (Variant value; enumerator->Next(value);) {
    const auto text =
        std::get<std::string>(model.Invoke(std::get<AnyObject>(value), other->Name, kPropertyGet));
    if (EqualIgnoringCase(item == &ClassOf<PageTemplate>() ? FolderName(text) : text, name)) return value;
  }
  return {};
}

}  // namespace

Variant FindItem(ObjectModel& model, const AnyObject& collection, const KeyOrPosition& key) {
  std::array<Variant, 1> argument{KeyArgument(model, collection, key)};
  // Some collections answer with another item where there is none such.
  const auto contains = collection.Class->Collection().Contains;
  if (contains == nullptr || contains(collection.Pointer, automation::ToItemKey(argument[0]))) {
    Variant item = model.Invoke(collection, "Item", kPropertyGet, argument);
    if (ObjectIn(item) != nullptr || std::holds_alternative<std::string>(item)) return item;
  }
  const auto* name = std::get_if<std::string>(&key);
  return name != nullptr ? FindByOtherName(model, collection, *name) : Variant();
}

std::vector<CollectionItem> ItemsOf(const AnyObject& collection) {
  std::vector<CollectionItem> items;
  const auto keyAt = collection.Class->Collection().KeyAt;
  const auto enumerator = automation::Enumerate(collection);
  for (Variant value; enumerator && enumerator->Next(value);) {
    const auto position = static_cast<std::int32_t>(items.size()) + 1;
    items.push_back({position, keyAt != nullptr ? keyAt(collection.Pointer, position) : "", value});
  }
  return items;
}

}  // namespace lwconfig
