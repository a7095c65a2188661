// Remembers compiled patterns by their text.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "datacard/CodePattern.h"

namespace datacard {

/// Bounded: once the texts remembered exceed the bound, all are forgotten.
class PatternMemory {
 public:
  /// The memory of the calling thread.
  static PatternMemory& OfThread();

  static constexpr std::size_t MostBytes = std::size_t{4} << 20;

  /// The compiled pattern; valid until the next call.
  const CodePattern& PatternOf(std::string_view text);

  /// Room for the matches of one walk, kept between walks.
  std::vector<TokenMatch>& Matches() { return _Matches; }

 private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  std::unordered_map<std::string, CodePattern, Hash, std::equal_to<>> _Patterns;
  const std::pair<const std::string, CodePattern>* _Last = nullptr;  // the pattern asked for last
  std::size_t _Bytes = 0;
  std::vector<TokenMatch> _Matches;
};

}  // namespace datacard
