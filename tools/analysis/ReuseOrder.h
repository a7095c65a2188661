// An order in which each analysis stands behind those that it reuses, and the circles that leave none.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace tool {

/// A row that closes a circle.
struct ReuseCircleFound {
  std::size_t Member = 0;
  std::size_t Row = 0;            // from 0
  std::vector<std::size_t> Path;  // from the analysis that the row reuses down to it again
};

/// All members, those of lower position first where reuse does not tell otherwise, as if the rows that close circles
/// reused nothing. Takes time linear in the rows and the lengths of the circles, and no stack.
///
/// reused     by member, by row: the member that the row reuses, or `nothing`
/// on_circle  called with each row that closes a circle, as it is met on the way down
std::vector<std::size_t> OrderByReuse(const std::vector<std::vector<std::size_t>>& reused, std::size_t nothing,
                                      const std::function<void(const ReuseCircleFound&)>& on_circle);

}  // namespace tool
