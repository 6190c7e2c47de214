#pragma once

#include <cstdint>
#include <vector>

#include <lwconfig/namespaces/namespace_def.h>

namespace lwconfig {

/// Calls `visit(definition)` for the definitions of `top`, which may be null, and everything nested in them:
/// each before those nested in it, and those before its next sibling. Nesting of any depth is safe.
template <class Visit>
void WalkDefinitions(const NamespaceDefs* top, Visit visit) {
  struct Level {
    const NamespaceDefs* Definitions;
    std::int32_t Next = 1;
  };
  std::vector<Level> levels;
  if (top != nullptr) levels.push_back({top});
  while (!levels.empty()) {
    auto& level = levels.back();
    const auto definition = level.Definitions->Item(level.Next);
    if (!definition) {
      levels.pop_back();
      continue;
    }
    ++level.Next;
    visit(definition);
    if (const auto* children = definition->ExistingChildren()) levels.push_back({children});
  }
}

}  // namespace lwconfig
