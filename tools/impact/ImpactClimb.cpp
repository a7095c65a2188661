// The analyses above one.
#include "tools/impact/ImpactClimb.h"

#include <algorithm>

namespace tool {

namespace {

constexpr int Untouched = -1;

}  // namespace

std::vector<ClimbStep> ClimbFrom(std::size_t start, const std::vector<std::vector<std::size_t>>& reused,
                                 std::size_t nothing) {
  std::vector<int> levels(reused.size(), Untouched);
  std::vector<ClimbStep> steps;
  levels[start] = 0;
  for (std::size_t analysis = start + 1; analysis < reused.size(); ++analysis) {
    int& level = levels[analysis];
    for (const std::size_t of_row : reused[analysis]) {
      if (of_row != nothing && levels[of_row] != Untouched) level = std::max(level, levels[of_row] + 1);
    }
    if (level != Untouched) steps.push_back({analysis, level});
  }
  std::stable_sort(steps.begin(), steps.end(),
                   [](const ClimbStep& left, const ClimbStep& right) { return left.Level < right.Level; });
  return steps;
}

}  // namespace tool
