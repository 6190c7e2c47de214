#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace lwconfig::platform {

/// A foreign automation component, as far as this library uses it.
class Component {
 public:
  virtual ~Component() = default;
  /// Sends a text to the component, such as the report of a failure.
  virtual void Receive(std::string_view text) = 0;
};

using ComponentFactory = std::function<std::unique_ptr<Component>()>;

/// Creates the component registered under `progId` (letter case ignored); null when there is none or it
/// cannot be created.
std::unique_ptr<Component> CreateComponent(std::string_view progId);

/// Registers a component for this process; an empty factory unregisters it. Returns the previous factory.
ComponentFactory RegisterComponent(const std::string& progId, ComponentFactory factory);

}  // namespace lwconfig::platform
