// The walk of a code pattern along a code: forward only, with a stack of its own for nested groups.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
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

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

/// Literals are short: a loop in place beats a call.
bool BeginsWith(std::string_view text, std::string_view beginning) {
  if (text.size() < beginning.size()) return false;
  for (std::size_t index = 0; index < beginning.size(); ++index) {
    if (text[index] != beginning[index]) return false;
  }
  return true;
}

/// A number of a code, and the length of its text as it is printed.
template <class Number>
struct Printed {
  Number Value;
  std::size_t Length;
};

/// Reads a number that stands in its printed form already, so that it need not be printed and read again: up to six
/// digits, of which neither the first whole one nor the last of a fraction is 0. Nothing for any other number.
class PrintedNumberReader {
 public:
  explicit PrintedNumberReader(std::string_view text) : _Text(text) {}

  std::optional<Printed<int>> ReadInteger() {
    const std::size_t digits = TakeDigits();
    if (digits == 0 || digits > MostDigits || _Text.front() == '0') return std::nullopt;
    return Printed<int>{static_cast<int>(_Digits), _Length};
  }

  std::optional<Printed<double>> ReadReal() {
    constexpr std::array powers_of_ten{1.0, 10.0, 100.0, 1000.0, 10000.0, 100000.0};
    const std::size_t whole_digits = TakeDigits();
    if (whole_digits == 0 || _Text.front() == '0') return std::nullopt;
    std::size_t fraction_digits = 0;
    if (NextIs('.')) {
      ++_Length;
      fraction_digits = TakeDigits();
      if (fraction_digits == 0 || _Text[_Length - 1] == '0') return std::nullopt;
    }
    if (whole_digits + fraction_digits > MostDigits || NextIs('.') || NextIs('e') || NextIs('E')) return std::nullopt;
    return Printed<double>{static_cast<double>(_Digits) / powers_of_ten[fraction_digits], _Length};
  }

 private:
  static constexpr std::size_t MostDigits = 6;

  bool NextIs(char character) const { return _Length < _Text.size() && _Text[_Length] == character; }

  /// Takes one digit more than may be, so that too long a number is seen.
  std::size_t TakeDigits() {
    const std::size_t first = _Length;
    for (; _Length < _Text.size() && _Length - first <= MostDigits && IsDigit(_Text[_Length]); ++_Length) {
      _Digits = _Digits * 10 + (_Text[_Length] - '0');
    }
    return _Length - first;
  }

  std::string_view _Text;
  std::size_t _Length = 0;
  std::int64_t _Digits = 0;  // up to twice as many digits as may be
};

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

/// The number last read of the code. Kept, since many parameters may try to read one long number, or may each take one
/// "0" off the head of it.
template <class Number>
class KeptNumber {
 public:
  std::optional<Number> Read(std::size_t position, std::string_view code, auto reader) {
    if (!IsStillAhead(position, code)) _Value = reader(code.substr(position));
    _Position = position;
    return _Value;
  }

 private:
  /// True if nothing but zeros that do not change the number lies between the place where it was read and `position`.
  bool IsStillAhead(std::size_t position, std::string_view code) const {
    if (position == _Position) return true;
    if (_Position == NowhereRead || position < _Position || !IsDigit(code[position])) return false;
    const std::string_view passed = code.substr(_Position, position - _Position);
    const bool hexadecimal = code[position] == '0' && position + 1 < code.size() && (code[position + 1] | 0x20) == 'x';
    return passed.find_first_not_of('0') == std::string_view::npos && !hexadecimal;
  }

  static constexpr std::size_t NowhereRead = std::string_view::npos;
  std::size_t _Position = NowhereRead;
  std::optional<Number> _Value;
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
  KeptNumber<int> _Integer;
  KeptNumber<double> _Real;
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
  std::optional<Printed<int>> number = PrintedNumberReader(Rest()).ReadInteger();
  if (!number) {
    const std::optional<int> read = _Integer.Read(_Level.Position, _Code, kornumber::ReadInteger);
    if (!read) return After();
    number = Printed<int>{*read, PrintedLength(*read)};
  }
  const PatternToken& token = _Pattern[_Level.Token];
  _Matches[_Level.Token].Integer = number->Value;
  if (number->Value < token.Min || number->Value > token.Max) {
    if (_Level.Alternatives) return After();
    return Next();
  }
  TakeNumber(number->Length);
}

void Walker::TakeReal() {
  if (AtEndOfCode()) return FailUnlessAlternative();
  std::optional<Printed<double>> number = PrintedNumberReader(Rest()).ReadReal();
  if (!number) {
    _Level.Real = _Real.Read(_Level.Position, _Code, kornumber::ReadReal).value_or(_Level.Real);
    const std::string printed = kornumber::PrintReal(_Level.Real);
    number = Printed<double>{kornumber::ReadReal(printed).value_or(_Level.Real), printed.size()};
  }
  _Level.Real = number->Value;
  const PatternToken& token = _Pattern[_Level.Token];
  _Matches[_Level.Token].Real = _Level.Real;
  if (_Level.Real < token.Min || _Level.Real > token.Max) return FailUnlessAlternative();
  TakeNumber(number->Length);
}

void Walker::TakeLiteral() {
  if (AtEndOfCode()) return FailUnlessAlternative();
  const std::string_view literal = _Pattern[_Level.Token].Text;
  const std::string_view rest = Rest();
  bool equal = BeginsWith(rest, literal);
  const bool joined = rest.size() > literal.size();
  // In a chain the literal is one whole part.
  if (_Chained && joined) equal = equal && rest[literal.size()] == '+';
  if (_Chained) equal = equal && literal.find('+') == std::string_view::npos;
  if (!equal) return FailUnlessAlternative();
  Mark();
  Advance(literal.size() + (_Chained && joined ? 1 : 0));
  After();
}

}  // namespace

PatternWalk CodePattern::Walk(std::string_view code, bool chained, std::vector<TokenMatch>& matches) const {
  if (Size() == 0) return {0, 0};
  return Walker(*this, code, chained, matches).Run();
}

bool MatchesWhole(const CodePattern& pattern, std::string_view code, bool chained, std::vector<TokenMatch>& matches) {
  // Most codes fail at the first literal.
  if (pattern[0].Type == Type::Literal && !BeginsWith(code, pattern[0].Text)) return false;
  matches.assign(pattern.Size(), TokenMatch{});
  const PatternWalk walk = pattern.Walk(code, chained, matches);
  return walk.Stop && walk.Consumed == code.size();
}

}  // namespace datacard
