// The plain two-readings formula machine: tokens, grammar rules and calls over one mutable text.
#include "FormulaOracle.h"

#include <cctype>
#include <cwchar>
#include <vector>

namespace oracle {
namespace {

constexpr int FailedName = 0;
constexpr int OpenParenthesis = 1;
constexpr int CloseParenthesis = 2;
constexpr int MultiplicativeOperator = 3;
constexpr int AdditiveOperator = 4;
constexpr int Number = 5;
constexpr int Separator = 6;
constexpr int EndOfText = 7;

constexpr double Plus = 8.0;
constexpr double Minus = 9.0;
constexpr double Times = 10.0;
constexpr double Divide = 11.0;

constexpr int DeepestNesting = 2000;

struct FormulaToken {
  int Kind = FailedName;
  double Value = 0.0;
};

struct GivesUp {};

bool IsSpace(wchar_t c) {
  return c >= 0 && c <= 255 && std::isspace(static_cast<int>(c)) != 0;
}
bool IsAlpha(wchar_t c) {
  return c >= 0 && c <= 255 && std::isalpha(static_cast<int>(c)) != 0;
}
bool IsAlphaNumeric(wchar_t c) {
  return c >= 0 && c <= 255 && std::isalnum(static_cast<int>(c)) != 0;
}

class Machine {
 public:
  Machine(std::span<const Function> table, long step_limit) : _Table(table), _StepsLeft(step_limit) {}

  double Evaluate(wchar_t* formula, int& status);

 private:
  // What one reading found: a token, or a character that starts none.
  enum class Reading { Token, NoToken };

  // Counts the levels of parentheses and calls that stand on the stack.
  class Level {
   public:
    explicit Level(int& depth) : _Depth(depth) {
      if (++_Depth > DeepestNesting) {
        --_Depth;
        throw GivesUp{};
      }
    }
    ~Level() { --_Depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    int& _Depth;
  };

  Reading ReadToken(wchar_t*& position, FormulaToken& token);
  int NextToken(wchar_t*& cursor);
  int ParseExpression(wchar_t*& cursor, double& value);
  int ParseAdditiveTail(wchar_t*& cursor, double& value);
  int ParseTerm(wchar_t*& cursor, double& value);
  int ParseMultiplicativeTail(wchar_t*& cursor, double& value);
  int ParseFactor(wchar_t*& cursor, double& value);
  double CallNamedFunction(wchar_t*& cursor, int& failed);
  bool ReadArguments(wchar_t*& cursor, Arguments& arguments);
  bool EvaluateArgument(wchar_t*& cursor, double& value);
  const Function* FindFunction(const std::wstring& name) const;

  std::span<const Function> _Table;
  long _StepsLeft;
  int _Depth = 0;
  FormulaToken _CurrentToken;
  FormulaToken _LookaheadToken;
};

double Machine::Evaluate(wchar_t* formula, int& status) {
  // The copy serves only to read the first two tokens: a call that fails there writes into the copy.
  std::vector<wchar_t> scratch(formula, formula + std::wcslen(formula) + 1);
  wchar_t* scratch_cursor = scratch.data();
  if (NextToken(scratch_cursor) == 0) {
    status = -2;
    return 0.0;
  }
  _LookaheadToken = _CurrentToken;

  status = 0;
  wchar_t* cursor = formula;
  double value = 0.0;
  const int code = ParseExpression(cursor, value);
  status = code > 0 ? static_cast<int>(cursor - formula) + 1 : code;
  return status == 0 ? value : 0.0;
}

// Reads one token from the position and moves the position behind it. A terminator doesn't move it. On NoToken neither
// the token nor the position means anything.
Machine::Reading Machine::ReadToken(wchar_t*& position, FormulaToken& token) {
  if (--_StepsLeft < 0) throw GivesUp{};
  while (IsSpace(*position)) ++position;
  const wchar_t c = *position;
  if (c >= L'0' && c <= L'9') {
    wchar_t* behind = nullptr;
    token = {Number, std::wcstod(position, &behind)};
    position = behind;
    return Reading::Token;
  }
  if (IsAlpha(c)) {
    const FormulaToken remembered = _CurrentToken;
    int failed = 0;
    const double result = CallNamedFunction(position, failed);
    _CurrentToken = remembered;
    token = failed != 0 ? FormulaToken{FailedName, 0.0} : FormulaToken{Number, result};
    return Reading::Token;
  }
  switch (c) {
    case L'\0':
      token = {EndOfText, 0.0};
      return Reading::Token;
    case L'(':
      token = {OpenParenthesis, 0.0};
      break;
    case L')':
      token = {CloseParenthesis, 0.0};
      break;
    case L'*':
      token = {MultiplicativeOperator, Times};
      break;
    case L'/':
      token = {MultiplicativeOperator, Divide};
      break;
    case L'+':
      token = {AdditiveOperator, Plus};
      break;
    case L'-':
      token = {AdditiveOperator, Minus};
      break;
    case L',':
    case L'_':
      token = {Separator, 0.0};
      break;
    default:
      return Reading::NoToken;
  }
  ++position;
  return Reading::Token;
}

// Advances by one token: the first reading gives the current token and moves the cursor, the second the look-ahead.
// A reading that finds no token returns 0 at once and leaves what it would have written.
int Machine::NextToken(wchar_t*& cursor) {
  FormulaToken token;
  wchar_t* position = cursor;
  if (ReadToken(position, token) == Reading::NoToken) return 0;
  _CurrentToken = token;
  cursor = position;

  if (ReadToken(position, token) == Reading::NoToken) return 0;
  _LookaheadToken = token;
  if (_LookaheadToken.Kind == FailedName) return 0;
  return _CurrentToken.Kind;
}

int Machine::ParseExpression(wchar_t*& cursor, double& value) {
  const Level level(_Depth);
  double sign = 1.0;
  if (_LookaheadToken.Kind != OpenParenthesis && _LookaheadToken.Kind != Number) {
    if (_LookaheadToken.Kind != AdditiveOperator) return 1;
    if (_LookaheadToken.Value == Minus) sign = -1.0;
    if (NextToken(cursor) == 0) return -2;
  }
  const int code = ParseTerm(cursor, value);
  if (code != 0) return code;
  value *= sign;
  return ParseAdditiveTail(cursor, value);
}

// The rule's recursion stands last, so it is a loop here.
int Machine::ParseAdditiveTail(wchar_t*& cursor, double& value) {
  while (_LookaheadToken.Kind == AdditiveOperator) {
    if (NextToken(cursor) == 0) return -2;
    const double mark = _CurrentToken.Value;
    const double so_far = value;
    const int code = ParseTerm(cursor, value);
    if (code != 0) return code;
    value = mark == Minus ? so_far - value : so_far + value;
  }
  return _LookaheadToken.Kind == EndOfText || _LookaheadToken.Kind == CloseParenthesis ? 0 : 2;
}

int Machine::ParseTerm(wchar_t*& cursor, double& value) {
  if (_LookaheadToken.Kind == Number) {
    if (NextToken(cursor) == 0) return -2;
    value = _CurrentToken.Value;
  } else if (_LookaheadToken.Kind == OpenParenthesis) {
    if (NextToken(cursor) == 0) return -2;
    const int code = ParseExpression(cursor, value);
    if (code != 0) return code;
    if (_LookaheadToken.Kind != CloseParenthesis) return 5;
    if (NextToken(cursor) == 0) return -2;
  } else {
    return _LookaheadToken.Kind == AdditiveOperator ? 5 : 3;
  }
  return ParseMultiplicativeTail(cursor, value);
}

int Machine::ParseMultiplicativeTail(wchar_t*& cursor, double& value) {
  while (_LookaheadToken.Kind == MultiplicativeOperator) {
    if (NextToken(cursor) == 0) return -2;
    const int mark = static_cast<int>(_CurrentToken.Value);
    const double so_far = value;
    const int code = ParseFactor(cursor, value);
    if (code != 0) return code;
    if (mark == 10) {
      value = so_far * value;
    } else {
      if (value == 0.0) return -1;
      value = so_far / value;
    }
  }
  const int kind = _LookaheadToken.Kind;
  return kind == CloseParenthesis || kind == AdditiveOperator || kind == EndOfText ? 0 : 4;
}

int Machine::ParseFactor(wchar_t*& cursor, double& value) {
  if (_LookaheadToken.Kind == Number) {
    if (NextToken(cursor) == 0) return -2;
    value = _CurrentToken.Value;
    return 0;
  }
  if (_LookaheadToken.Kind != OpenParenthesis) return 5;
  if (NextToken(cursor) == 0) return -2;
  const int code = ParseExpression(cursor, value);
  if (code != 0) return code;
  if (_LookaheadToken.Kind != CloseParenthesis) return 5;
  return NextToken(cursor) == 0 ? -2 : 0;
}

const Function* Machine::FindFunction(const std::wstring& name) const {
  for (const Function& function : _Table) {
    if (function.Call == nullptr) return nullptr;
    if (name == function.Name) return &function;
  }
  return nullptr;
}

double Machine::CallNamedFunction(wchar_t*& cursor, int& failed) {
  const Level level(_Depth);
  failed = 0;
  Arguments arguments{};
  std::wstring name;
  while (IsAlphaNumeric(*cursor)) name += *cursor++;
  const Function* const function = FindFunction(name);
  if (function == nullptr) {
    failed = 1;
    return 0.0;
  }
  // What the advance returns is not looked at: a reading that found no token leaves the current token of before.
  NextToken(cursor);
  if (_CurrentToken.Kind != OpenParenthesis) {
    failed = 1;
    return 0.0;
  }
  if (_LookaheadToken.Kind == CloseParenthesis) {
    NextToken(cursor);
  } else if (!ReadArguments(cursor, arguments)) {
    failed = 1;
    return 0.0;
  }
  return function->Call(arguments);
}

bool Machine::ReadArguments(wchar_t*& cursor, Arguments& arguments) {
  for (std::size_t n = 0;; ++n) {
    if (_LookaheadToken.Kind == Separator) return false;
    double value = 0.0;
    if (!EvaluateArgument(cursor, value)) return false;
    if (n < arguments.size()) arguments[n] = value;
    NextToken(cursor);
    if (_CurrentToken.Kind == CloseParenthesis) return true;
    if (_CurrentToken.Kind != Separator) return false;
  }
}

// Scans the argument for its end, cuts the text there, and evaluates it. On failure the cut stays in the text.
bool Machine::EvaluateArgument(wchar_t*& cursor, double& value) {
  wchar_t* const start = cursor;
  double thrown_away = 0.0;
  ParseExpression(cursor, thrown_away);
  wchar_t* const end = cursor;
  const wchar_t noted = *end;
  *end = L'\0';

  cursor = start;
  if (NextToken(cursor) == 0) return false;
  _LookaheadToken = _CurrentToken;
  cursor = start;
  if (ParseExpression(cursor, value) != 0) return false;

  cursor = end;
  *end = noted;
  return true;
}

}  // namespace

Result EvaluateFormula(const std::wstring& text, std::span<const Function> table, long step_limit) {
  std::vector<wchar_t> formula(text.begin(), text.end());
  formula.push_back(L'\0');
  Machine machine(table, step_limit);
  Result result{0.0, 0, false};
  try {
    result.Value = machine.Evaluate(formula.data(), result.Status);
  } catch (const GivesUp&) {
    result = {0.0, 0, true};
  }
  return result;
}

}  // namespace oracle
