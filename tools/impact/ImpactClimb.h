// The analyses above one: those that reuse it, those that reuse these, and so on.
#pragma once

#include <cstddef>
#include <vector>

namespace tool {

struct ClimbStep {
  std::size_t Analysis = 0;
  int Level = 0;  // 1: reuses the start, and nothing else above it; else one more than the highest level that it reuses
};

/// All analyses above one, lower levels first, those of a level in their order. The level is the longest way up, so
/// that each analysis stands behind all that it reuses.
///
/// reused   by analysis, by row: the analysis that the row reuses, which has a lower position, or `nothing`
std::vector<ClimbStep> ClimbFrom(std::size_t start, const std::vector<std::vector<std::size_t>>& reused,
                                 std::size_t nothing);

}  // namespace tool
