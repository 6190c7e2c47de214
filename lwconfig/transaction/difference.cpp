#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include <lwconfig/transaction/difference.h>

namespace lwconfig {
namespace {

using Lines = std::vector<std::string_view>;

/// The lines with their line feeds.
Lines SplitLines(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const auto length = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, length));
    text.remove_prefix(length);
  }
  return lines;
}

/// One line of a diff: in both texts, in the old one or in the new one only.
struct Edit {
  char Mark;
  std::string_view Line;
};

constexpr std::ptrdiff_t kMostEdits = 2000;

/// The shortest edit path between the texts. `furthest[d]` holds, for each diagonal, the furthest position
/// that `d` edits reach; empty where more than `kMostEdits` are needed.
std::vector<std::vector<std::ptrdiff_t>> FurthestReached(const Lines& before, const Lines& after) {
  const auto oldCount = static_cast<std::ptrdiff_t>(before.size());
  const auto newCount = static_cast<std::ptrdiff_t>(after.size());
  std::vector<std::vector<std::ptrdiff_t>> furthest;
  for (std::ptrdiff_t edits = 0; edits <= std::min(kMostEdits, oldCount + newCount); ++edits) {
    std::vector<std::ptrdiff_t> reached(static_cast<std::size_t>(2 * edits + 1));
    for (std::ptrdiff_t diagonal = -edits; diagonal <= edits; diagonal += 2) {
      std::ptrdiff_t at = 0;
      if (edits > 0) {
        const auto& last = furthest.back();
        const auto from = [&](std::ptrdiff_t k) { return last[static_cast<std::size_t>(k + edits - 1)]; };
        const bool isInsertion =
            diagonal == -edits || (diagonal != edits && from(diagonal - 1) < from(diagonal + 1));
        at = isInsertion ? from(diagonal + 1) : from(diagonal - 1) + 1;
      }
      while (at < oldCount && at - diagonal < newCount &&
             before[static_cast<std::size_t>(at)] == after[static_cast<std::size_t>(at - diagonal)])
        ++at;
      reached[static_cast<std::size_t>(diagonal + edits)] = at;
      if (at >= oldCount && at - diagonal >= newCount) {
        furthest.push_back(std::move(reached));
        return furthest;
      }
    }
    furthest.push_back(std::move(reached));
  }
  return {};
}

std::vector<Edit> Replaced(const Lines& before, const Lines& after) {
  std::vector<Edit> edits;
  for (const auto line : before) edits.push_back({'-', line});
  for (const auto line : after) edits.push_back({'+', line});
  return edits;
}

std::vector<Edit> Edits(const Lines& before, const Lines& after) {
  const auto furthest = FurthestReached(before, after);
  if (furthest.empty()) return Replaced(before, after);
  std::vector<Edit> edits;
  auto oldAt = static_cast<std::ptrdiff_t>(before.size());
  auto newAt = static_cast<std::ptrdiff_t>(after.size());
  for (auto count = static_cast<std::ptrdiff_t>(furthest.size()) - 1; count >= 0; --count) {
    std::ptrdiff_t oldFrom = 0;
    std::ptrdiff_t newFrom = 0;
    if (count > 0) {
      const auto& last = furthest[static_cast<std::size_t>(count - 1)];
      const auto from = [&](std::ptrdiff_t k) { return last[static_cast<std::size_t>(k + count - 1)]; };
      const std::ptrdiff_t diagonal = oldAt - newAt;
      const bool isInsertion =
          diagonal == -count || (diagonal != count && from(diagonal - 1) < from(diagonal + 1));
      const std::ptrdiff_t came = diagonal + (isInsertion ? 1 : -1);
      oldFrom = from(came);
      newFrom = oldFrom - came;
    }
    while (oldAt > oldFrom && newAt > newFrom) {
      edits.push_back({' ', before[static_cast<std::size_t>(--oldAt)]});
      --newAt;
    }
    if (count == 0) break;
    if (oldAt > oldFrom)
      edits.push_back({'-', before[static_cast<std::size_t>(--oldAt)]});
    else
      edits.push_back({'+', after[static_cast<std::size_t>(--newAt)]});
  }
  std::reverse(edits.begin(), edits.end());
  return edits;
}

std::string Range(std::size_t first, std::size_t count) {
  // Name an empty range by the line before it.
  return std::to_string(count == 0 ? first : first + 1) + (count == 1 ? "" : "," + std::to_string(count));
}

}  // namespace

std::string UnifiedDifference(std::string_view before, std::string_view after) {
  constexpr std::size_t kAround = 3;
  const auto edits = Edits(SplitLines(before), SplitLines(after));
  const auto isChange = [](const Edit& edit) { return edit.Mark != ' '; };
  std::string text;
  std::size_t oldLine = 0;
  std::size_t newLine = 0;
  std::size_t at = 0;
  while (true) {
    auto next = static_cast<std::size_t>(
        std::find_if(edits.begin() + static_cast<std::ptrdiff_t>(at), edits.end(), isChange) - edits.begin());
    if (next == edits.size()) return text;
    const std::size_t start = next - std::min(next - at, kAround);
    oldLine += start - at;
    newLine += start - at;
    // Extend the hunk as long as the next change is near.
    std::size_t end = next;
    for (std::size_t same = 0; end < edits.size() && same <= 2 * kAround; ++end)
      same = isChange(edits[end]) ? 0 : same + 1;
    while (!isChange(edits[end - 1])) --end;
    end = std::min(end + kAround, edits.size());
    std::string hunk;
    std::size_t oldCount = 0;
    std::size_t newCount = 0;
    for (at = start; at < end; ++at) {
      const Edit& edit = edits[at];
      oldCount += edit.Mark == '+' ? 0 : 1;
      newCount += edit.Mark == '-' ? 0 : 1;
      (hunk += edit.Mark) += edit.Line;
      if (!edit.Line.ends_with('\n')) hunk += "\n\\ No newline at end of file\n";
    }
    text += "@@ -" + Range(oldLine, oldCount) + " +" + Range(newLine, newCount) + " @@\n" + hunk;
    oldLine += oldCount;
    newLine += newCount;
  }
}

}  // namespace lwconfig
