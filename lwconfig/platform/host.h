#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/platform/service.h>

namespace lwconfig::platform {

/// The running process and its environment.
class Environment {
 public:
  virtual ~Environment() = default;
  static Environment& Native();

  /// Horizontal resolution of the display in pixels; 0 where there is no display or it is not known.
  virtual int DisplayWidth() = 0;
  /// The arguments of the process without the program name; empty where they are not available.
  virtual std::vector<std::string> ProcessArguments() = 0;
};

/// `bytes` in the encoding with this name (as written in XML declarations) as UTF-8; nothing where the
/// encoding is unknown or the bytes are not valid in it.
std::optional<std::string> DecodeAs(std::string_view bytes, const std::string& encoding);

}  // namespace lwconfig::platform
