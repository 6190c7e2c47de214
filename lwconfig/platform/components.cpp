#include <map>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/components.h>
#include <lwconfig/platform/internal/host_defaults.h>

namespace lwconfig::platform {
namespace {

std::map<std::string, ComponentFactory>& Factories() {
  static std::map<std::string, ComponentFactory> factories;
  return factories;
}

}  // namespace

std::unique_ptr<Component> CreateComponent(std::string_view progId) {
  const auto found = Factories().find(FoldCase(progId));
  if (found == Factories().end()) return CreateHostComponent(progId);
  try {
    // Copy the factory: it may register another one.
    const ComponentFactory factory = found->second;
    return factory();
  } catch (...) {
    return nullptr;
  }
}

ComponentFactory RegisterComponent(const std::string& progId, ComponentFactory factory) {
  const std::string name = FoldCase(progId);
  ComponentFactory previous;
  if (const auto found = Factories().find(name); found != Factories().end()) {
    previous = std::move(found->second);
    Factories().erase(found);
  }
  if (factory) Factories().emplace(name, std::move(factory));
  return previous;
}

}  // namespace lwconfig::platform
