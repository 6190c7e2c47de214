#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace lwconfig::platform {

/// An automation component of somebody else, as far as this library uses one.
class Component {
 public:
  virtual ~Component() = default;
  /// Hands the component one text, such as the report of a failure.
  virtual void Receive(std::string_view text) = 0;
};

using ComponentFactory = std::function<std::unique_ptr<Component>()>;

/// Creates the component registered under `progId` (letter case ignored); null when there is none or it
/// cannot be created.
std::unique_ptr<Component> CreateComponent(std::string_view progId);

/// Registers a component for this process; an empty factory takes the registration back. Returns the factory
/// registered before.
ComponentFactory RegisterComponent(const std::string& progId, ComponentFactory factory);

}  // namespace lwconfig::platform
