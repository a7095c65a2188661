// Codes built from a pattern, to try it with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/PatternText.h"

namespace tool {

/// Builds codes that a pattern seems to ask for: one alternative of each group, numbers within their ranges.
///
/// The first rounds take the alternatives of all groups in turn; later ones mix them, alike on every machine.
class SampleCodes {
 public:
  /// A pattern with open groups counts as closed at its end. `tokens` is only read here.
  SampleCodes(const std::vector<PatternToken>& tokens, bool parts_with_plus);

  std::string Build(std::size_t round);

  /// Number of rounds that take each alternative of each group at least once.
  std::size_t RoundsInTurn() const { return _RoundsInTurn; }

 private:
  // A token, or a group: its parts in sequence, or one of them.
  struct Part {
    std::vector<std::string> Texts;  // of a token: what it may take
    std::vector<Part> Parts;         // of a group
    bool Group = false;
    bool Choice = false;
  };

  Part ReadGroup(const std::vector<PatternToken>& tokens, std::size_t& position);
  Part ReadToken(const PatternToken& token) const;
  void Append(const Part& part, std::size_t round, std::string& code);
  std::size_t Choose(std::size_t count, std::size_t round);

  bool _PartsWithPlus;
  std::size_t _RoundsInTurn = 1;
  std::uint32_t _Random = 1;
  Part _Whole;
};

}  // namespace tool
