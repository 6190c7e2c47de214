#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/registry_text/registry_text.h>
#include <lwconfig/platform/registry.h>

namespace lwconfig {

/// The change of one registry value; the old or new value is absent where there is none.
struct ValueChange {
  Hive Root;
  std::string Key;
  std::string Name;
  std::optional<RegistryValue> Old;
  std::optional<RegistryValue> New;
};

/// A registry over another one: written values are kept in memory, where reads see them. The old value of a
/// change is the one first read.
class OverlayRegistry final : public platform::Registry {
 public:
  explicit OverlayRegistry(platform::Registry& base) : mBase(base) {}

  /// The keys that were created as such, in order.
  const std::vector<RegistryPath>& CreatedKeys() const { return mKeys; }
  /// The values that are not what they were, in the order in which they were first written.
  std::vector<ValueChange> Changes() const;

  std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) override;
  /// As in the registry below: nothing in the library examines whole keys.
  std::optional<RegistryKey> List(Hive hive, std::string_view key) override { return mBase.List(hive, key); }
  /// A key is created with its first value. Deleting whole keys is not supported.
  void Apply(const std::vector<RegistryChange>& changes) override;

 private:
  ValueChange& Obtain(Hive hive, std::string_view key, std::string_view name);

  platform::Registry& mBase;
  std::vector<RegistryPath> mKeys;
  std::vector<ValueChange> mValues;  // also those that were only read
};

}  // namespace lwconfig
