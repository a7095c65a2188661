// The walk of a code pattern along a code: forward only, with a stack of its own for nested groups.
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "datacard/CodePattern.h"
#include "platform/base/KORInlineStack.h"
#include "platform/base/KORNumberText.h"

namespace datacard {
namespace {

using Type = PatternTokenType;

std::size_t PrintedLength(int number) {
  std::size_t length = number < 0 ? 2 : 1;
  for (number /= 10; number != 0; number /= 10) ++length;
  return length;
}

/// A real number of a code: its value, and the length of its text as "%g" prints it.
struct PrintedReal {
  double Value;
  std::size_t Length;
};

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

/// Reads a number that stands in its printed form already, so that it need not be printed and read again: up to six
/// digits, of which neither the first of several whole ones nor the last of a fraction is 0. Nothing for any other
/// number.
std::optional<PrintedReal> ReadPrintedReal(std::string_view text) {
  constexpr std::array powers_of_ten{1.0, 10.0, 100.0, 1000.0, 10000.0, 100000.0};
  constexpr std::size_t most_digits = 6;
  std::size_t length = 0;
  int digits = 0;
  const auto take_digits = [&] {
    const std::size_t first = length;
    for (; length < text.size() && length <= most_digits && IsDigit(text[length]); ++length) {
      digits = digits * 10 + (text[length] - '0');
    }
    return length - first;
  };
  const std::size_t whole_digits = take_digits();
  if (whole_digits == 0 || text.front() == '0') return std::nullopt;
  std::size_t fraction_digits = 0;
  if (length < text.size() && text[length] == '.') {
    ++length;
    fraction_digits = take_digits();
    if (fraction_digits == 0 || text[length - 1] == '0') return std::nullopt;
  }
  if (whole_digits + fraction_digits > most_digits) return std::nullopt;
  constexpr std::string_view continuations = ".eE0123456789";
  if (length < text.size() && continuations.find(text[length]) != std::string_view::npos) return std::nullopt;
  return PrintedReal{digits / powers_of_ten[fraction_digits], length};
}

/// One level of the pattern under way: the whole of it, or the inside of a group.
struct Level {
  std::size_t First;     // its first token
  std::size_t Token;     // the token under way
  std::size_t Position;  // in the code; behind its end after a number shorter than its printed form
  std::size_t Consumed;  // bytes matched so far
  bool Alternatives;
  bool Matched;
  double Real;  // the real number last read; kept where nothing can be read

  static Level Begin(std::size_t token, std::size_t position) { return {token, token, position, 0, false, false, 0.0}; }
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
    while (!_Finished) {
      if (_Left) {
        LeaveGroup(*std::exchange(_Left, std::nullopt));
      } else {
        TakeToken();
      }
    }
    return _Result;
  }

 private:
  void TakeToken();
  void TakeClose();
  void TakeInteger();
  void TakeReal();
  void TakeLiteral();
  void LeaveGroup(const PatternWalk& group);

  bool AtEndOfCode() const { return _Level.Position >= _Code.size(); }
  std::string_view Rest() const { return _Code.substr(_Level.Position); }

  /// On to the next token, which may be the end.
  void Next() { _Level.Token = std::min(_Level.Token + 1, _Pattern.Size()); }

  /// After a token: among alternatives one that has matched ends the level.
  void After() {
    if (_Level.Alternatives && _Level.Matched) return Return(ClosingSkip(_Level.Token, 1));
    Next();
  }

  void FailUnlessAlternative() {
    if (_Level.Alternatives) return After();
    Fail();
  }

  void Mark() {
    _Level.Matched = true;
    _Matches[_Level.Token].Matched = true;
    _MarkedEnd = std::max(_MarkedEnd, _Level.Token + 1);
  }

  void Advance(std::size_t length) {
    _Level.Position += length;
    _Level.Consumed += length;
  }

  void TakeNumber(std::size_t length) {
    _Matches[_Level.Token].HoldsNumber = true;
    Mark();
    Advance(length);
    After();
  }

  std::size_t ClosingSkip(std::size_t from, int depth) const;
  bool SequenceIsComplete(std::size_t first) const;

  /// Ends the innermost level at a token, or without one.
  void Return(std::optional<std::size_t> stop) {
    const PatternWalk walk{stop, _Level.Consumed};
    if (_Outer.IsEmpty()) {
      _Result = walk;
      _Finished = true;
    } else {
      _Level = _Outer.Pop();
      _Left = walk;
    }
  }

  /// Clears the marks from the first token of the level to the end of the pattern. Marks stand below _MarkedEnd only.
  void Fail() {
    for (std::size_t token = _Level.First; token < _MarkedEnd; ++token) _Matches[token].Matched = false;
    _MarkedEnd = std::min(_MarkedEnd, _Level.First);
    Return(std::nullopt);
  }

  const CodePattern& _Pattern;
  std::string_view _Code;
  bool _Chained;
  std::vector<TokenMatch>& _Matches;
  std::size_t _MarkedEnd;
  Level _Level = Level::Begin(0, 0);  // the innermost level
  KORInlineStack<Level, 8> _Outer;    // the levels around it
  std::optional<PatternWalk> _Left;   // the group that has just ended
  bool _Finished = false;
  PatternWalk _Result;
  NumberAt<int> _Integer;
  NumberAt<double> _Real;
};

/// Deals with the token under way. Whatever it calls last may end the level.
void Walker::TakeToken() {
  switch (_Pattern[_Level.Token].Type) {
    case Type::GroupOpen:
      _Outer.Push(_Level);
      _Level = Level::Begin(_Level.Token + 1, _Level.Position);
      return;
    case Type::GroupClose:
      return TakeClose();
    case Type::Alternative:
      _Level.Alternatives = true;
      return After();
    case Type::EmptyLiteral:
      Mark();
      return After();
    case Type::IntegerParameter:
      return TakeInteger();
    case Type::RealParameter:
      return TakeReal();
    case Type::Literal:
      return TakeLiteral();
    case Type::End:
      return Return(_Level.Token);
    case Type::Unknown:
      return Fail();
  }
}

/// Goes on behind a group.
void Walker::LeaveGroup(const PatternWalk& group) {
  if (group.Stop) Advance(group.Consumed);
  if (_Level.Alternatives) {
    _Level.Matched = _Level.Matched || group.Stop.has_value();
    _Level.Token = ClosingSkip(_Level.Token + 1, _Level.Matched ? 2 : 1);
    return After();
  }
  if (!group.Stop) return Return(std::nullopt);
  _Level.Token = *group.Stop;  // a matched group does not count as a match of this level
  Next();
}

void Walker::TakeClose() {
  const bool passes = _Level.Alternatives ? _Level.Matched : !_Level.Matched || SequenceIsComplete(_Level.First);
  if (!passes) return Fail();
  Return(_Level.Token);
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

void Walker::TakeInteger() {
  if (AtEndOfCode()) return FailUnlessAlternative();
  const std::optional<int> number = _Integer.Read(_Level.Position, Rest(), kornumber::ReadInteger);
  if (!number) return After();
  const PatternToken& token = _Pattern[_Level.Token];
  _Matches[_Level.Token].Integer = *number;
  if (*number < token.Min || *number > token.Max) {
    if (_Level.Alternatives) return After();
    return Next();
  }
  TakeNumber(PrintedLength(*number));
}

void Walker::TakeReal() {
  if (AtEndOfCode()) return FailUnlessAlternative();
  std::optional<PrintedReal> number = ReadPrintedReal(Rest());
  if (!number) {
    _Level.Real = _Real.Read(_Level.Position, Rest(), kornumber::ReadReal).value_or(_Level.Real);
    const std::string printed = kornumber::PrintReal(_Level.Real);
    number = PrintedReal{kornumber::ReadReal(printed).value_or(_Level.Real), printed.size()};
  }
  _Level.Real = number->Value;
  const PatternToken& token = _Pattern[_Level.Token];
  _Matches[_Level.Token].Real = _Level.Real;
  if (_Level.Real < token.Min || _Level.Real > token.Max) return FailUnlessAlternative();
  TakeNumber(number->Length);
}

void Walker::TakeLiteral() {
  if (AtEndOfCode()) return FailUnlessAlternative();
  const std::string& literal = _Pattern[_Level.Token].Text;
  std::string_view rest = Rest();
  bool equal = rest.starts_with(literal);
  if (equal && _Chained) {  // the literal is one whole part of the chain
    rest.remove_prefix(literal.size());
    equal = literal.find('+') == std::string::npos && (rest.empty() || rest.front() == '+');
  }
  if (!equal) return FailUnlessAlternative();
  Mark();
  Advance(literal.size());
  if (_Chained && !rest.empty()) Advance(1);
  After();
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
