// Names that come near a mistyped one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// At most five of the names, the nearest first: those whose part behind the last "/" is that of the typed one, as
/// "parts/screw" for "screw", and those that are up to three strokes away from it, and no more than half its length.
std::vector<std::string> NearestNames(std::string_view typed, const std::vector<std::string>& names);

}  // namespace tool
