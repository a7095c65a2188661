// Numbers in the cells of an analysis.
#pragma once

#include <optional>
#include <string_view>

namespace tool {

/// A finite number, decimal, with a point, a sign and an exponent if wanted; nothing if the text is anything else or
/// beyond a double. Independent of the locale.
std::optional<double> ReadFiniteNumber(std::string_view text);

}  // namespace tool
