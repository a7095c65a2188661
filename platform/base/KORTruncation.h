// Real numbers cut to integers, with one outcome for every value.
#pragma once

#include <cstdint>
#include <limits>

namespace kornumber {

/// `value` cut toward zero; a value that the type does not hold, or no number, gives the least value of the type.
template <class Integer>
constexpr Integer Truncate(double value) {
  constexpr double least = static_cast<double>(std::numeric_limits<Integer>::min());
  // The least value is a power of two, so that both bounds are exact.
  if (value > least - 1.0 && value < -least) return static_cast<Integer>(value);
  return std::numeric_limits<Integer>::min();
}

constexpr std::int32_t TruncateToInt32(double value) {
  return Truncate<std::int32_t>(value);
}
constexpr std::int64_t TruncateToInt64(double value) {
  return Truncate<std::int64_t>(value);
}

}  // namespace kornumber
