#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/platform/service.h>

namespace lwconfig::platform {

/// What the host tells about the running process and its surroundings.
class Environment {
 public:
  virtual ~Environment() = default;
  static Environment& Native();

  /// Horizontal resolution of the display in pixels; 0 where there is no display or it is not known.
  virtual int DisplayWidth() = 0;
  /// The arguments of the process without the program name; empty where they cannot be had.
  virtual std::vector<std::string> ProcessArguments() = 0;
};

/// `bytes` in the encoding with this name (as XML declarations write it) as UTF-8; nothing where the encoding
/// is unknown or the bytes are not valid in it.
std::optional<std::string> DecodeAs(std::string_view bytes, const std::string& encoding);

}  // namespace lwconfig::platform
