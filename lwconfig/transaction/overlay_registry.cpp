#include <algorithm>
#include <system_error>
#include <utility>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/transaction/overlay_registry.h>

namespace lwconfig {

std::vector<ValueChange> OverlayRegistry::Changes() const {
  std::vector<ValueChange> changes = mValues;
  std::erase_if(changes, [](const ValueChange& change) { return change.Old == change.New; });
  return changes;
}

ValueChange& OverlayRegistry::Obtain(Hive hive, std::string_view key, std::string_view name) {
  const auto found = std::ranges::find_if(mValues, [&](const ValueChange& value) {
    return value.Root == hive && EqualIgnoringCase(value.Key, key) && EqualIgnoringCase(value.Name, name);
  });
  if (found != mValues.end()) return *found;
  const auto value = mBase.Read(hive, key, name);
  return mValues.emplace_back(ValueChange{hive, std::string(key), std::string(name), value, value});
}

std::optional<RegistryValue> OverlayRegistry::Read(Hive hive, std::string_view key, std::string_view name) {
  return Obtain(hive, key, name).New;
}

void OverlayRegistry::Apply(const std::vector<RegistryChange>& changes) {
  using Kinds = RegistryChange::Kinds;
  for (const RegistryChange& change : changes) {
    if (change.Kind == Kinds::Key) {
      if (!mBase.List(change.Root, change.Key)) mKeys.push_back({change.Root, change.Key});
      continue;
    }
    if (change.Kind == Kinds::DeletedKey)
      throw std::system_error(std::make_error_code(std::errc::operation_not_supported), change.Key);
    Obtain(change.Root, change.Key, change.Name).New =
        change.Kind == Kinds::Value ? std::optional(change.Value) : std::nullopt;
  }
}

}  // namespace lwconfig
