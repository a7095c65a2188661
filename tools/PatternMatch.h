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

/// How far a pattern comes in a code.
struct PatternProgress {
  bool Failed = false;
  std::size_t Taken = 0;  // bytes; more than the code has behind a number that prints longer than it was typed
  /// Position of the token, or of the group, that fails, or else of the first parameter behind the last token matched;
  /// -1 if it cannot be told: a pattern with alternatives outside of groups, or with groups that do not close.
  int Stopped = -1;
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

  /// How far the pattern comes in a code from its head.
  PatternProgress WalkFromHead(std::string_view code) const;

 private:
  int FindFailing(std::string_view code, const std::vector<int>& starts) const;

  VEXSTMTimeAnalysisDlgServices& _Service;
  KORUnicodeString _Pattern;
  int _TokenCount = 0;
};

}  // namespace tool
