#include <algorithm>

#include <lwconfig/platform/path_parts.h>

namespace lwconfig::platform {

void AppendParts(std::string& path, std::size_t least, std::string_view parts, std::string_view separators,
                 char separator, Above above) {
  path.reserve(path.size() + parts.size() + 1);
  while (!parts.empty()) {
    const std::size_t end = std::min(parts.find_first_of(separators), parts.size());
    const std::string_view part = parts.substr(0, end);
    parts.remove_prefix(std::min(end + 1, parts.size()));
    if (part.empty() || part == ".") continue;
    const bool isUp = part == "..";
    if (isUp && path.size() > least) {
      path.resize(path.rfind(separator));
    } else if (!isUp || above == Above::IsKept) {
      path += separator;
      path += part;
      if (isUp) least = path.size();
    }
  }
}

}  // namespace lwconfig::platform
