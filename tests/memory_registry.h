#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/registry.h>

namespace lwconfig::testing {

/// A registry in memory. `Fault`, where set, is thrown by every operation.
class MemoryRegistry final : public platform::Registry {
 public:
  std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) override {
    if (Fault) Fault();
    const auto found = mValues.find({hive, FoldCase(key), FoldCase(name)});
    return found == mValues.end() ? std::nullopt : std::optional(found->second);
  }
  std::optional<RegistryKey> List(Hive hive, std::string_view key) override {
    if (Fault) Fault();
    RegistryKey listed;
    for (const auto& [id, value] : mValues) {
      if (std::get<0>(id) == hive && std::get<1>(id) == FoldCase(key))
        listed.Values.emplace_back(std::get<2>(id), value);
    }
    return listed.Values.empty() ? std::nullopt : std::optional(std::move(listed));
  }
  void Apply(const std::vector<RegistryChange>& changes) override {
    if (Fault) Fault();
    for (const auto& [kind, hive, key, name, value] : changes) {
      if (kind == RegistryChange::Kinds::Value) mValues[{hive, FoldCase(key), FoldCase(name)}] = value;
    }
  }

  std::function<void()> Fault;

 private:
  std::map<std::tuple<Hive, std::string, std::string>, RegistryValue> mValues;
};

}  // namespace lwconfig::testing
