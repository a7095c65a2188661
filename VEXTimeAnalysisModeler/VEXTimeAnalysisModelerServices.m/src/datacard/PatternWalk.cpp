// The walk of a code pattern along a code: forward only, with a stack of its own for nested groups.
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "datacard/CodePattern.h"
#include "platform/base/KORNumberText.h"

namespace datacard {
namespace {

using Type = PatternTokenType;

std::size_t PrintedLength(int number) {
  char digits[12];
  const auto printed = std::to_chars(std::begin(digits), std::end(digits), number);
  return static_cast<std::size_t>(printed.ptr - digits);
}

/// One level of the pattern under way: the whole of it, or the inside of a group.
struct Level {
  std::size_t First;         // its first token
  std::size_t Token;         // the token under way
  std::size_t Position;      // in the code; behind its end after a number shorter than its printed form
  std::size_t Consumed = 0;  // bytes matched so far
  bool Alternatives = false;
  bool Matched = false;
  double Real = 0.0;  // the real number last read; kept where nothing can be read
};

/// A number of the code. Kept, since many alternatives may try to read one long number.
template <class Number>
struct NumberAt {
  std::size_t Position = std::string_view::npos;
  std::optional<Number> Value;

  const std::optional<Number>& Read(std::size_t position, std::string_view text, auto reader) {
    if (Position != position) Value = reader(text);
    Position = position;
    return Value;
  }
};

class Walker {
 public:
  Walker(const CodePattern& pattern, std::string_view code, bool chained, std::vector<TokenMatch>& matches)
      : _Pattern(pattern), _Code(code), _Chained(chained), _Matches(matches), _MarkedEnd(matches.size()) {}

  PatternWalk Run() {
    _Levels.push_back({.First = 0, .Token = 0, .Position = 0});
    while (!_Levels.empty()) {
      if (_Ended) {
        LeaveGroup(_Levels.back(), *std::exchange(_Ended, std::nullopt));
      } else {
        TakeToken(_Levels.back());
      }
    }
    return *_Ended;
  }

 private:
  void TakeToken(Level& level);
  void TakeClose(Level& level);
  void TakeInteger(Level& level);
  void TakeReal(Level& level);
  void TakeLiteral(Level& level);
  void LeaveGroup(Level& level, const PatternWalk& group);

  bool AtEndOfCode(const Level& level) const { return level.Position >= _Code.size(); }
  std::string_view RestOf(const Level& level) const { return _Code.substr(level.Position); }

  /// On to the next token, which may be the end.
  void Next(Level& level) { level.Token = std::min(level.Token + 1, _Pattern.Size()); }

  /// After a token: among alternatives one that has matched ends the level.
  void After(Level& level) {
    if (level.Alternatives && level.Matched) return Return(ClosingSkip(level.Token, 1));
    Next(level);
  }

  void FailUnlessAlternative(Level& level) {
    if (level.Alternatives) return After(level);
    Fail(level);
  }

  void Mark(Level& level) {
    level.Matched = true;
    _Matches[level.Token].Matched = true;
    _MarkedEnd = std::max(_MarkedEnd, level.Token + 1);
  }

  void Advance(Level& level, std::size_t length) {
    level.Position += length;
    level.Consumed += length;
  }

  std::size_t ClosingSkip(std::size_t from, int depth) const;
  bool SequenceIsComplete(std::size_t first) const;

  /// Ends the innermost level at a token, or without one.
  void Return(std::optional<std::size_t> stop) {
    _Ended = PatternWalk{stop, _Levels.back().Consumed};
    _Levels.pop_back();
  }

  /// Clears the marks from the first token of the level to the end of the pattern. Marks stand below _MarkedEnd only.
  void Fail(const Level& level) {
    for (std::size_t token = level.First; token < _MarkedEnd; ++token) _Matches[token].Matched = false;
    _MarkedEnd = std::min(_MarkedEnd, level.First);
    Return(std::nullopt);
  }

  const CodePattern& _Pattern;
  std::string_view _Code;
  bool _Chained;
  std::vector<TokenMatch>& _Matches;
  std::size_t _MarkedEnd;
  std::vector<Level> _Levels;
  std::optional<PatternWalk> _Ended;  // the level that has just ended
  NumberAt<int> _Integer;
  NumberAt<double> _Real;
};

/// Deals with the token under way. Whatever it calls last may end the level, which is then gone.
void Walker::TakeToken(Level& level) {
  switch (_Pattern[level.Token].Type) {
    case Type::GroupOpen:
      _Levels.push_back({.First = level.Token + 1, .Token = level.Token + 1, .Position = level.Position});
      return;
    case Type::GroupClose:
      return TakeClose(level);
    case Type::Alternative:
      level.Alternatives = true;
      return After(level);
    case Type::EmptyLiteral:
      Mark(level);
      return After(level);
    case Type::IntegerParameter:
      return TakeInteger(level);
    case Type::RealParameter:
      return TakeReal(level);
    case Type::Literal:
      return TakeLiteral(level);
    case Type::End:
      return Return(level.Token);
    case Type::Unknown:
      return Fail(level);
  }
}

/// Goes on behind a group.
void Walker::LeaveGroup(Level& level, const PatternWalk& group) {
  if (group.Stop) Advance(level, group.Consumed);
  if (level.Alternatives) {
    level.Matched = level.Matched || group.Stop.has_value();
    level.Token = ClosingSkip(level.Token + 1, level.Matched ? 2 : 1);
    return After(level);
  }
  if (!group.Stop) return Return(std::nullopt);
  level.Token = *group.Stop;  // a matched group does not count as a match of this level
  Next(level);
}

void Walker::TakeClose(Level& level) {
  const bool passes = level.Alternatives ? level.Matched : !level.Matched || SequenceIsComplete(level.First);
  if (!passes) return Fail(level);
  Return(level.Token);
}

/// All tokens of a sequence must have taken part; inner groups answer for themselves.
bool Walker::SequenceIsComplete(std::size_t first) const {
  const std::size_t closing = _Pattern.ClosingOf(first);
  for (std::size_t token = first; token < closing; ++token) {
    if (_Pattern[token].Type == Type::GroupOpen) {
      token = _Pattern.ClosingOf(token + 1);
    } else if (!_Matches[token].Matched) {
      return false;
    }
  }
  return true;
}

/// The ")" that brings `depth` open groups to their end, reading from `from` on; the last token if it is missing.
std::size_t Walker::ClosingSkip(std::size_t from, int depth) const {
  std::size_t closing = from;
  for (; depth > 0 && closing < _Pattern.Size(); --depth) {
    closing = _Pattern.ClosingOf(closing);
    if (depth > 1) ++closing;
  }
  return std::min(closing, _Pattern.Size() - 1);
}

void Walker::TakeInteger(Level& level) {
  if (AtEndOfCode(level)) return FailUnlessAlternative(level);
  const std::optional<int> number = _Integer.Read(level.Position, RestOf(level), kornumber::ReadInteger);
  if (!number) return After(level);
  const PatternToken& token = _Pattern[level.Token];
  TokenMatch& match = _Matches[level.Token];
  match.Integer = *number;
  if (*number < token.Min || *number > token.Max) {
    if (level.Alternatives) return After(level);
    return Next(level);
  }
  match.HoldsNumber = true;
  Mark(level);
  Advance(level, PrintedLength(*number));
  After(level);
}

void Walker::TakeReal(Level& level) {
  if (AtEndOfCode(level)) return FailUnlessAlternative(level);
  level.Real = _Real.Read(level.Position, RestOf(level), kornumber::ReadReal).value_or(level.Real);
  const std::string printed = kornumber::PrintReal(level.Real);
  level.Real = kornumber::ReadReal(printed).value_or(level.Real);
  const PatternToken& token = _Pattern[level.Token];
  TokenMatch& match = _Matches[level.Token];
  match.Real = level.Real;
  if (level.Real < token.Min || level.Real > token.Max) return FailUnlessAlternative(level);
  match.HoldsNumber = true;
  Mark(level);
  Advance(level, printed.size());
  After(level);
}

void Walker::TakeLiteral(Level& level) {
  if (AtEndOfCode(level)) return FailUnlessAlternative(level);
  const std::string& literal = _Pattern[level.Token].Text;
  std::string_view rest = RestOf(level);
  bool equal = rest.starts_with(literal);
  if (equal && _Chained) {  // the literal is one whole part of the chain
    rest.remove_prefix(literal.size());
    equal = literal.find('+') == std::string::npos && (rest.empty() || rest.front() == '+');
  }
  if (!equal) return FailUnlessAlternative(level);
  Mark(level);
  Advance(level, literal.size());
  if (_Chained && !rest.empty()) Advance(level, 1);
  After(level);
}

}  // namespace

PatternWalk CodePattern::Walk(std::string_view code, bool chained, std::vector<TokenMatch>& matches) const {
  if (Size() == 0) return {0, 0};
  return Walker(*this, code, chained, matches).Run();
}

bool MatchesWhole(const CodePattern& pattern, std::string_view code, bool chained, std::vector<TokenMatch>& matches) {
  // Most codes fail at the first literal.
  if (pattern[0].Type == Type::Literal && !code.starts_with(pattern[0].Text)) return false;
  matches.assign(pattern.Size(), TokenMatch{});
  const PatternWalk walk = pattern.Walk(code, chained, matches);
  return walk.Stop && walk.Consumed == code.size();
}

}  // namespace datacard
