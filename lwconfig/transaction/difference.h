#pragma once

#include <string>
#include <string_view>

namespace lwconfig {

/// The hunks of a unified diff, with three lines around each change; empty for equal texts. Of texts that
/// differ in thousands of lines the part that differs is shown as a whole.
std::string UnifiedDifference(std::string_view before, std::string_view after);

}  // namespace lwconfig
