// Draws texts from an alphabet, with a fixed seed, so that a failing text comes again in the next run.
#pragma once

#include <random>
#include <string>
#include <string_view>

namespace support {

class RandomText {
 public:
  explicit RandomText(unsigned seed) : _Generator(seed) {}

  std::mt19937& Generator() { return _Generator; }

  int Below(int bound) { return static_cast<int>(_Generator() % static_cast<unsigned>(bound)); }
  bool OneIn(int count) { return Below(count) == 0; }

  template <class Values>
  const auto& AnyOf(const Values& values) {
    return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
  }

  /// Up to `longest` pieces, each one of `pieces`.
  template <class Pieces>
  std::string Draw(const Pieces& pieces, int longest) {
    std::string text;
    for (int left = Below(longest + 1); left > 0; --left) text += AnyOf(pieces);
    return text;
  }

 private:
  std::mt19937 _Generator;
};

}  // namespace support
