#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lwconfig {

/// The number of bytes to change, insert, remove or swap with the next to turn one text into the other.
/// Letter case counts.
std::size_t EditDistance(std::string_view a, std::string_view b);

/// The candidate that `name` was most likely meant to be, the first of the nearest ones from which at most a
/// third of the letters differ, else the first that begins with it; empty where there is none.
std::string Nearest(std::string_view name, const std::vector<std::string>& candidates);

/// "; did you mean 'show'?" where one of the names is near: it then becomes the first of `existing`. Else
/// empty.
std::string Suggestion(std::string_view wanted, std::vector<std::string>& existing,
                       const std::vector<std::string>& otherNames = {});

}  // namespace lwconfig
