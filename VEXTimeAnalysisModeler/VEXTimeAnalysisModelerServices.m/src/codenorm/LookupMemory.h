// Remembers what the lookups of codes have found.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "codenorm/CodeTime.h"

namespace codenorm {

/// The answers for one table, system and decimal character: an analysis uses few codes, and each many times. Bounded:
/// once the answers exceed the bound, all are forgotten.
class LookupMemory {
 public:
  static constexpr std::size_t MostAnswers = 16384;
  static constexpr std::size_t MostCodeBytes = 64;

  /// Forgets everything that was found in other circumstances.
  void Enter(std::uint64_t table_number, std::string_view system, wchar_t decimal_character);

  /// The answer for a code; null if it is not remembered. Valid until the next call.
  const CodeTime* Find(std::string_view code) const;

  void Remember(std::string_view code, const CodeTime& answer);

 private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  std::uint64_t _TableNumber = 0;
  std::string _System;
  wchar_t _DecimalCharacter = L'\0';
  std::unordered_map<std::string, CodeTime, Hash, std::equal_to<>> _Answers;
};

}  // namespace codenorm
