#pragma once

#include <string>
#include <string_view>

namespace lwconfig {

/// The hunks of a unified diff, with three lines around each change; empty for equal texts. Where thousands
/// of lines differ, the whole differing part is one hunk.
std::string UnifiedDifference(std::string_view before, std::string_view after);

}  // namespace lwconfig
