#pragma once

#include <string>

#include <tools/lwconfig/check/report.h>

namespace lwconfig::tool {

/// Loads everything there is of a configuration, as `Configuration` finds it, and says what is wrong with it.
Report CheckConfiguration(const std::string& folder, Reporter& reporter);

}  // namespace lwconfig::tool
