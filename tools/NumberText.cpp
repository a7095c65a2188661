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

std::string PlainNumberText(double number) {
  constexpr double largest = 1e15;
  if (!(std::fabs(number) < largest)) return NumberText(number);
  std::array<char, 400> text{};  // the smallest number has more than 300 digits
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
  return {text.data(), end};
}

double NearestDecimal(double number, int decimals) {
  std::array<char, 400> text{};
  char* const start = text.data();
  const auto printed = std::to_chars(start, start + text.size(), number, std::chars_format::fixed, decimals);
  std::from_chars(start, printed.ptr, number);
  return number;
}

}  // namespace tool
