// Patterns and codes matched by the services, with the room that a pattern of any length needs.
#pragma once

#include <string_view>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"

namespace tool {

/// Outcome of matching one code: one value and one flag per token of the pattern.
struct PatternMatch {
  bool Matches = false;
  int Count = 0;  // of tokens; 0 if the code does not match
  std::vector<double> Values;
  std::vector<int> Flags;
};

/// The length of the arrays that lookups use; SubstParameterCode counts on it, so both lists are at least as long.
inline constexpr int LookupArrayLength = 2000;

/// A pattern that codes are matched against.
class MatchablePattern {
 public:
  MatchablePattern(VEXSTMTimeAnalysisDlgServices& service, std::string_view pattern);

  /// Number of its tokens.
  int GetTokenCount() const { return _TokenCount; }

  PatternMatch Match(std::string_view code) const;

  /// Number of bytes of the code that the pattern takes from its head; -1 if it fails.
  int TakenFromHead(std::string_view code) const;

 private:
  VEXSTMTimeAnalysisDlgServices& _Service;
  KORUnicodeString _Pattern;
  int _TokenCount = 0;
};

}  // namespace tool
