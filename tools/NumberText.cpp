// Numbers as the tool prints them.
#include "tools/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tool {

std::string NumberText(double number) {
  if (std::isnan(number)) return "nan";
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

}  // namespace tool
