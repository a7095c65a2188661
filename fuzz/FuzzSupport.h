// What the fuzz targets share: cutting the input into texts, comparing numbers, and telling what differs.
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

namespace fuzz {

inline std::string_view BytesOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Takes the text up to `separator`, which goes away too, or the whole rest.
inline std::string_view TakeText(std::string_view& rest, char separator) {
  const std::size_t end = rest.find(separator);
  const std::string_view text = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return text;
}

/// The text ahead of the first NUL, where texts of the C library end.
inline std::string CText(std::string_view bytes) {
  return std::string(bytes.substr(0, bytes.find('\0')));
}

/// Equal bit for bit; all that are no number count as one.
inline bool IsSame(double left, double right) {
  if (std::isnan(left) || std::isnan(right)) return std::isnan(left) && std::isnan(right);
  return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

/// Ends the program, which is how a target reports a find, unless the two are equal.
template <class Value>
void RequireSame(const Value& expected, const Value& actual, std::string_view what) {
  if (expected == actual) return;
  std::cerr << what << ": expected <" << expected << ">, got <" << actual << ">\n";
  std::abort();
}

inline void RequireSameNumber(double expected, double actual, std::string_view what) {
  if (IsSame(expected, actual)) return;
  std::cerr.precision(17);
  std::cerr << what << ": expected <" << expected << ">, got <" << actual << ">\n";
  std::abort();
}

}  // namespace fuzz
