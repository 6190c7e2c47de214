#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include <lwconfig/core/nearest.h>
#include <lwconfig/platform/letter_case.h>

namespace lwconfig {

std::size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

std::string Nearest(std::string_view name, const std::vector<std::string>& candidates) {
  constexpr std::size_t kLongestName = 200;
  if (name.empty() || name.size() > kLongestName) return {};
  const std::string wanted = FoldCase(name);
  std::string nearest;
  std::size_t least = std::max<std::size_t>(2, wanted.size() / 3) + 1;
  for (const std::string& candidate : candidates) {
    if (candidate.size() > kLongestName) continue;
    const std::string folded = FoldCase(candidate);
    // The beginning of a name, or a part of a long one, is as good as one slip of the finger.
    const bool isPart = wanted.size() >= 3 && folded.find(wanted) != std::string::npos;
    const std::size_t distance = isPart ? 1 : EditDistance(wanted, folded);
    if (distance < least && distance < folded.size()) {
      least = distance;
      nearest = candidate;
    }
  }
  return nearest;
}

}  // namespace lwconfig
