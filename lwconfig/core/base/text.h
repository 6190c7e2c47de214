#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lwconfig {

/// The pieces of `text` between separators, in order: at least one, including empty ones. An empty separator
/// leaves the text whole.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

/// Whether `text` contains `part` without regard to letter case; an empty part is contained in every text.
bool ContainsIgnoringCase(std::string_view text, std::string_view part);

/// Whether the whole of `name` matches a file name pattern: "*" for any run of characters, "?" for one,
/// letter case ignored. "*.*" matches every name.
bool MatchesFilePattern(std::string_view name, std::string_view pattern);

}  // namespace lwconfig
