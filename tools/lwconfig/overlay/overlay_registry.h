#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/platform/registry.h>

namespace lwconfig::tool {

/// What is to become of one registry value. `Old` is nothing where there was none.
struct ValueChange {
  platform::Hive Hive;
  std::string Key;
  std::string Name;
  std::optional<platform::RegistryValue> Old;
  platform::RegistryValue New;
};

/// A registry over another one: values that are written are kept in memory, where reads see them.
class OverlayRegistry final : public platform::Registry {
 public:
  explicit OverlayRegistry(platform::Registry& base) : mBase(base) {}

  /// The values that are not what they were, in the order in which they were first written.
  std::vector<ValueChange> Changes() const;

  std::optional<platform::RegistryValue> Read(platform::Hive hive, std::string_view key,
                                              std::string_view name) override;
  /// A key comes into being with its first value.
  void CreateKey(platform::Hive, std::string_view) override {}
  void Write(platform::Hive hive, std::string_view key, std::string_view name,
             const platform::RegistryValue& value) override;

 private:
  ValueChange* Find(platform::Hive hive, std::string_view key, std::string_view name);

  platform::Registry& mBase;
  std::vector<ValueChange> mValues;
};

}  // namespace lwconfig::tool
