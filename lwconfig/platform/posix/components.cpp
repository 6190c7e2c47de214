#include <lwconfig/platform/internal/host_defaults.h>

namespace lwconfig::platform {

std::unique_ptr<Component> CreateHostComponent(std::string_view /*progId*/) {
  return nullptr;
}

}  // namespace lwconfig::platform
