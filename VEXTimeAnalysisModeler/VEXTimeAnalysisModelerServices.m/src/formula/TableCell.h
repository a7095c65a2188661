// Reading of a flat table of constants.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace formula {

/// The cell at `index` (from 0); 0.0 outside the table.
inline double CellOf(std::span<const double> cells, std::int64_t index) {
  return index >= 0 && index < std::ssize(cells) ? cells[static_cast<std::size_t>(index)] : 0.0;
}

}  // namespace formula
