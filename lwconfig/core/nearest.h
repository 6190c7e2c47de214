#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lwconfig {

/// The candidate that `name` was most likely meant to be, or empty where none is near.
std::string Nearest(std::string_view name, const std::vector<std::string>& candidates);

}  // namespace lwconfig
