// Numbers in the cells of an analysis.
#include "tools/analysis/AnalysisNumber.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace tool {

std::optional<double> ReadFiniteNumber(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double number = 0.0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

}  // namespace tool
