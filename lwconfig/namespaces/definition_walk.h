#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include <lwconfig/namespaces/namespace_def.h>

namespace lwconfig {

/// Calls `visit(definition)` for the definitions of `top`, which may be null, and everything nested in them:
/// each before those nested in it, and those before its next sibling. Nesting of any depth is safe. A
/// definition that a client has nested in itself is not entered again.
template <class Visit>
void WalkDefinitions(const NamespaceDefs* top, Visit visit) {
  struct Level {
    const NamespaceDefs* Definitions;
    std::int32_t Next = 1;
  };
  std::vector<Level> levels;
  std::unordered_set<const NamespaceDefs*> entered;  // those in `levels`
  const auto enter = [&](const NamespaceDefs* definitions) {
    if (definitions != nullptr && entered.insert(definitions).second) levels.push_back({definitions});
  };
  enter(top);
  while (!levels.empty()) {
    auto& level = levels.back();
    const auto definition = level.Definitions->Item(level.Next);
    if (!definition) {
      entered.erase(level.Definitions);
      levels.pop_back();
      continue;
    }
    ++level.Next;
    visit(definition);
    enter(definition->ExistingChildren());
  }
}

}  // namespace lwconfig
