#include <algorithm>
#include <cstddef>
#include <numeric>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/base/nearest.h>

namespace lwconfig {

std::size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
      const bool isSwapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (isSwapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    beforeLast.swap(last);
    last.swap(row);
  }
  return last.back();
}

std::string Nearest(std::string_view name, const std::vector<std::string>& candidates) {
  constexpr std::size_t kLongestName = 200;
  constexpr std::size_t kLeastBeginning = 3;
  if (name.empty() || name.size() > kLongestName) return {};
  const std::string wanted = FoldCase(name);
  std::string nearest;
  std::string continued;
  std::size_t least = kLongestName;
  for (const std::string& candidate : candidates) {
    if (candidate.size() > kLongestName) continue;
    const std::string folded = FoldCase(candidate);
    const std::size_t distance = EditDistance(wanted, folded);
    if (continued.empty() && wanted.size() >= kLeastBeginning && folded.starts_with(wanted))
      continued = candidate;
    // A name with more than a third of its letters wrong is another name.
    if (distance < least && 3 * distance <= std::max(wanted.size(), folded.size())) {
      least = distance;
      nearest = candidate;
    }
  }
  return nearest.empty() ? continued : nearest;
}

std::string Suggestion(std::string_view wanted, std::vector<std::string>& existing,
                       const std::vector<std::string>& otherNames) {
  std::string nearest = Nearest(wanted, existing);
  if (nearest.empty()) nearest = Nearest(wanted, otherNames);
  if (nearest.empty()) return {};
  std::erase(existing, nearest);
  existing.insert(existing.begin(), nearest);
  return "; did you mean '" + nearest + "'?";
}

}  // namespace lwconfig
