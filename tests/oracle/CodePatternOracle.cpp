// The plain recursive pattern walk: compilation of a pattern, the walk of one level, and the whole-code test.
#include "CodePatternOracle.h"

#include "OracleText.h"

namespace oracle {
namespace {

constexpr int GroupOpen = 0;
constexpr int GroupClose = 1;
constexpr int AlternativeMark = 2;
constexpr int EmptyLiteral = 3;
constexpr int IntegerParameter = 4;
constexpr int RealParameter = 5;
constexpr int Literal = 6;
constexpr int End = 7;
constexpr int Unknown = 8;

constexpr int Failed = -1;

// Reads a literal whose opening quote stands at i; i ends behind its closing quote or at the end of the pattern.
Token ReadLiteral(const std::string& pattern, std::size_t& i) {
  Token token;
  const std::size_t close = pattern.find('"', i + 1);
  if (close == std::string::npos) {
    token.Type = Literal;
    token.Text = pattern.substr(i + 1);
    i = pattern.size();
  } else {
    token.Text = pattern.substr(i + 1, close - i - 1);
    token.Type = token.Text.empty() ? EmptyLiteral : Literal;
    i = close + 1;
  }
  return token;
}

// Reads a parameter whose "%" or "$" stands at i, with the range directly behind it. A bound that can't be read takes
// the number read before it, in whatever range of the pattern that was.
Token ReadParameter(const std::string& pattern, std::size_t& i, int& last_number) {
  Token token;
  token.Type = pattern[i] == '%' ? IntegerParameter : RealParameter;
  token.Min = -1000000;
  token.Max = 1000000;
  ++i;
  if (i >= pattern.size() || pattern[i] != '[') return token;
  const std::size_t close = pattern.find(']', i);
  const std::string range = pattern.substr(i + 1, close == std::string::npos ? close : close - i - 1);
  i = close == std::string::npos ? pattern.size() : close + 1;
  const std::size_t comma = range.find(',');
  if (comma == std::string::npos) return token;
  ScanInteger(range.substr(0, comma).c_str(), last_number);
  token.Min = last_number;
  ScanInteger(range.substr(comma + 1).c_str(), last_number);
  token.Max = last_number;
  return token;
}

// One level of the walk: the whole pattern, or the inside of one group.
class LevelWalk {
 public:
  LevelWalk(const std::string& system, const std::string& code, std::vector<Token>& tokens, int first, int& consumed)
      : _System(system), _Code(code), _Tokens(tokens), _Consumed(consumed), _First(first), _T(first) {}

  int Walk();

 private:
  // How the walk goes on after one token was dealt with.
  enum class GoOn { AfterToken, NextToken, Stop };

  Token& At(int index) { return _Tokens[static_cast<std::size_t>(index)]; }
  bool AtEndOfCode() const { return _P >= _Code.size(); }

  GoOn Fail();
  GoOn FailOrGoOn() { return _Alternative ? GoOn::AfterToken : Fail(); }
  GoOn StopAt(int index);
  void Match(std::size_t length);
  int ClosingSkip(int from, int depth);
  bool IsSequenceComplete();
  GoOn Deal();
  GoOn DealGroupOpen();
  GoOn DealGroupClose();
  GoOn DealIntegerParameter();
  GoOn DealRealParameter();
  GoOn DealLiteral();

  const std::string& _System;
  const std::string& _Code;
  std::vector<Token>& _Tokens;
  int& _Consumed;
  int _First;
  int _T;
  std::size_t _P = 0;
  bool _Alternative = false;
  bool _Matched = false;
  double _Real = 0.0;
  int _Result = Failed;
};

int LevelWalk::Walk() {
  while (true) {
    switch (Deal()) {
      case GoOn::Stop:
        return _Result;
      case GoOn::AfterToken:
        if (_Alternative && _Matched) return ClosingSkip(_T, 1);
        break;
      case GoOn::NextToken:
        break;
    }
    // A group without its ")" hands back the end token: there is nothing behind it.
    if (At(_T).Type == End) return _T;
    ++_T;
    if (At(_T).Type == End) return _T;
  }
}

LevelWalk::GoOn LevelWalk::StopAt(int index) {
  _Result = index;
  return GoOn::Stop;
}

// Clears the marks of every token from the first of this level to the end, those behind the group included.
LevelWalk::GoOn LevelWalk::Fail() {
  for (std::size_t i = static_cast<std::size_t>(_First); i < _Tokens.size(); ++i) _Tokens[i].Matched = false;
  return StopAt(Failed);
}

void LevelWalk::Match(std::size_t length) {
  _Matched = true;
  At(_T).Matched = true;
  _P += length;
  _Consumed += static_cast<int>(length);
}

// The token, from the given one on, that brings the depth to 0; the last token if none does.
int LevelWalk::ClosingSkip(int from, int depth) {
  int t = from;
  for (; At(t).Type != End; ++t) {
    if (At(t).Type == GroupClose) --depth;
    if (At(t).Type == GroupOpen) ++depth;
    if (depth == 0) return t;
  }
  return t - 1;
}

// Whether each token of this level took part. The tokens of inner groups, parentheses included, are not asked.
bool LevelWalk::IsSequenceComplete() {
  int depth = 1;
  for (int t = _First; At(t).Type != End; ++t) {
    if (At(t).Type == GroupOpen) ++depth;
    if (At(t).Type == GroupClose) --depth;
    if (depth == 0) return true;
    if (depth == 1 && At(t).Type != GroupClose && !At(t).Matched) return false;
  }
  return true;
}

LevelWalk::GoOn LevelWalk::Deal() {
  switch (At(_T).Type) {
    case GroupOpen:
      return DealGroupOpen();
    case GroupClose:
      return DealGroupClose();
    case AlternativeMark:
      _Alternative = true;
      return GoOn::AfterToken;
    case EmptyLiteral:
      Match(0);
      return GoOn::AfterToken;
    case IntegerParameter:
      return DealIntegerParameter();
    case RealParameter:
      return DealRealParameter();
    case Literal:
      return DealLiteral();
    case End:
      return StopAt(_T);
    default:
      return Fail();
  }
}

LevelWalk::GoOn LevelWalk::DealGroupOpen() {
  int count = 0;
  const std::string rest = AtEndOfCode() ? std::string() : _Code.substr(_P);
  const int returned = GetCodeScan(_System, rest, _Tokens, _T + 1, count);
  if (returned != Failed) {
    _Consumed += count;
    _P += static_cast<std::size_t>(count);
    if (!_Alternative) {
      _T = returned;
      return GoOn::NextToken;
    }
    _Matched = true;
  } else if (!_Alternative) {
    return StopAt(Failed);
  }
  _T = ClosingSkip(_T + 1, _Matched ? 2 : 1);
  return GoOn::AfterToken;
}

LevelWalk::GoOn LevelWalk::DealGroupClose() {
  if (_Alternative) return _Matched ? StopAt(_T) : Fail();
  if (!_Matched) return StopAt(_T);
  return IsSequenceComplete() ? StopAt(_T) : Fail();
}

LevelWalk::GoOn LevelWalk::DealIntegerParameter() {
  if (AtEndOfCode()) return FailOrGoOn();
  int number = 0;
  if (!ScanInteger(_Code.c_str() + _P, number)) return GoOn::AfterToken;
  const std::string printed = PrintInteger(number);
  Token& token = At(_T);
  token.IntValue = number;
  if (number < token.Min || number > token.Max) return _Alternative ? GoOn::AfterToken : GoOn::NextToken;
  token.Text = printed;
  Match(printed.size());
  return GoOn::AfterToken;
}

LevelWalk::GoOn LevelWalk::DealRealParameter() {
  if (AtEndOfCode()) return FailOrGoOn();
  ScanReal(_Code.c_str() + _P, _Real);
  const std::string printed = PrintReal(_Real);
  ScanReal(printed.c_str(), _Real);
  Token& token = At(_T);
  token.RealValue = _Real;
  if (_Real < token.Min || _Real > token.Max) return FailOrGoOn();
  token.Text = printed;
  Match(printed.size());
  return GoOn::AfterToken;
}

LevelWalk::GoOn LevelWalk::DealLiteral() {
  if (AtEndOfCode()) return FailOrGoOn();
  const std::string& literal = At(_T).Text;
  std::string candidate;
  if (_System == "SAM") {
    const std::size_t plus = _Code.find('+', _P);
    candidate = _Code.substr(_P, plus == std::string::npos ? plus : plus - _P);
  } else {
    candidate = _Code.substr(_P, literal.size());
  }
  if (literal != candidate) return FailOrGoOn();
  Match(candidate.size());
  if (_System == "SAM" && _P < _Code.size() && _Code[_P] == '+') {
    ++_P;
    ++_Consumed;
  }
  return GoOn::AfterToken;
}

}  // namespace

std::vector<Token> CompilePattern(const std::string& pattern) {
  std::vector<Token> tokens;
  int last_number = 0;
  for (std::size_t i = 0; i < pattern.size();) {
    const char c = pattern[i];
    if (c == '"') {
      tokens.push_back(ReadLiteral(pattern, i));
    } else if (c == '%' || c == '$') {
      tokens.push_back(ReadParameter(pattern, i, last_number));
    } else {
      ++i;
      if (c == ' ' || c == '\n') continue;
      Token token;
      token.Type = c == '(' ? GroupOpen : c == ')' ? GroupClose : c == '|' ? AlternativeMark : Unknown;
      tokens.push_back(token);
    }
  }
  tokens.push_back(Token{});
  return tokens;
}

int GetCodeScan(const std::string& system, const std::string& code, std::vector<Token>& tokens, int first,
                int& consumed) {
  return LevelWalk(system, code, tokens, first, consumed).Walk();
}

bool CheckPattern(const std::string& system, const std::string& code, const std::string& pattern, int& count,
                  std::vector<double>& values, std::vector<int>& flags) {
  if (pattern.empty()) return false;
  std::vector<Token> tokens = CompilePattern(pattern);
  int consumed = 0;
  const int stopped = GetCodeScan(system, code, tokens, 0, consumed);
  if (stopped == Failed || consumed != static_cast<int>(code.size())) return false;
  count = 0;
  values.clear();
  flags.clear();
  for (const Token& token : tokens) {
    if (token.Type == End) break;
    flags.push_back(token.Matched ? 1 : 0);
    double value = 0.0;
    if (token.Type == IntegerParameter) value = token.IntValue;
    if (token.Type == RealParameter) value = token.RealValue;
    values.push_back(value);
    ++count;
  }
  return true;
}

}  // namespace oracle
