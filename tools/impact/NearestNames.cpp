// Names that come near a mistyped one.
#include "tools/impact/NearestNames.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "tools/NearestCodes.h"

namespace tool {

namespace {

constexpr std::size_t MostNearest = 5;
constexpr std::size_t MostStrokes = 3;
constexpr std::size_t LongestCompared = 64;

std::string_view LastPart(std::string_view name) {
  return name.substr(name.rfind('/') + 1);
}

// Strokes from one name to the other; more than MostStrokes, whatever the number, for names that are far apart.
std::size_t StrokesBetween(std::string_view left, std::string_view right) {
  const auto start = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  left.remove_prefix(static_cast<std::size_t>(start.first - left.begin()));
  right.remove_prefix(static_cast<std::size_t>(start.second - right.begin()));
  while (!left.empty() && !right.empty() && left.back() == right.back()) {
    left.remove_suffix(1);
    right.remove_suffix(1);
  }
  const bool is_comparable = left.size() <= LongestCompared && right.size() <= LongestCompared;
  return is_comparable ? EditDistance(left, right) : MostStrokes + 1;
}

}  // namespace

std::vector<std::string> NearestNames(std::string_view typed, const std::vector<std::string>& names) {
  const std::size_t farthest = std::clamp<std::size_t>(typed.size() / 2, 1, MostStrokes);
  std::vector<std::pair<std::size_t, std::string>> candidates;
  for (const std::string& name : names) {
    const std::size_t strokes = StrokesBetween(typed, name);
    const bool is_same_part = !LastPart(typed).empty() && LastPart(typed) == LastPart(name);
    if (is_same_part || strokes <= farthest) candidates.emplace_back(is_same_part ? 0 : strokes, name);
  }
  std::sort(candidates.begin(), candidates.end());
  std::vector<std::string> nearest;
  for (auto& [strokes, name] : candidates) {
    if (nearest.size() < MostNearest) nearest.push_back(std::move(name));
  }
  return nearest;
}

}  // namespace tool
