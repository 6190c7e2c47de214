#include <algorithm>
#include <system_error>
#include <utility>

#include <tools/lwconfig/overlay/overlay_registry.h>

#include <lwconfig/core/base/letter_case.h>

namespace lwconfig::tool {

std::vector<ValueChange> OverlayRegistry::Changes() const {
  std::vector<ValueChange> changes = mValues;
  std::erase_if(changes, [](const ValueChange& change) { return change.Old == change.New; });
  return changes;
}

ValueChange* OverlayRegistry::Find(Hive hive, std::string_view key, std::string_view name) {
  const auto found = std::ranges::find_if(mValues, [&](const ValueChange& value) {
    return value.Hive == hive && EqualIgnoringCase(value.Key, key) && EqualIgnoringCase(value.Name, name);
  });
  return found == mValues.end() ? nullptr : &*found;
}

std::optional<RegistryValue> OverlayRegistry::Read(Hive hive, std::string_view key, std::string_view name) {
  if (const ValueChange* written = Find(hive, key, name)) return written->New;
  return mBase.Read(hive, key, name);
}

void OverlayRegistry::Apply(const std::vector<RegistryChange>& changes) {
  using Kinds = RegistryChange::Kinds;
  for (const RegistryChange& change : changes) {
    if (change.Kind == Kinds::Key) continue;
    if (change.Kind == Kinds::DeletedKey)
      throw std::system_error(std::make_error_code(std::errc::operation_not_supported), change.Key);
    std::optional<RegistryValue> wanted;
    if (change.Kind == Kinds::Value) wanted = change.Value;
    if (ValueChange* written = Find(change.Root, change.Key, change.Name)) {
      written->New = std::move(wanted);
    } else {
      mValues.push_back({change.Root, change.Key, change.Name,
                         mBase.Read(change.Root, change.Key, change.Name), std::move(wanted)});
    }
  }
}

}  // namespace lwconfig::tool
