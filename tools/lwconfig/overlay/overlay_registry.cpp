#include <algorithm>

#include <tools/lwconfig/overlay/overlay_registry.h>

#include <lwconfig/platform/letter_case.h>

namespace lwconfig::tool {

std::vector<ValueChange> OverlayRegistry::Changes() const {
  std::vector<ValueChange> changes = mValues;
  std::erase_if(changes, [](const ValueChange& change) { return change.Old == change.New; });
  return changes;
}

ValueChange* OverlayRegistry::Find(platform::Hive hive, std::string_view key, std::string_view name) {
  const auto found = std::ranges::find_if(mValues, [&](const ValueChange& value) {
    return value.Hive == hive && EqualIgnoringCase(value.Key, key) && EqualIgnoringCase(value.Name, name);
  });
  return found == mValues.end() ? nullptr : &*found;
}

std::optional<platform::RegistryValue> OverlayRegistry::Read(platform::Hive hive, std::string_view key,
                                                             std::string_view name) {
  if (const ValueChange* written = Find(hive, key, name)) return written->New;
  return mBase.Read(hive, key, name);
}

void OverlayRegistry::Write(platform::Hive hive, std::string_view key, std::string_view name,
                            const platform::RegistryValue& value) {
  if (ValueChange* written = Find(hive, key, name)) {
    written->New = value;
    return;
  }
  mValues.push_back({hive, std::string(key), std::string(name), mBase.Read(hive, key, name), value});
}

}  // namespace lwconfig::tool
