// The evaluator of time formulas: one pass over the tokens, with a stack of its own instead of recursion.
#include "formula/FormulaEvaluator.h"

#include <algorithm>
#include <cstdint>
#include <memory_resource>
#include <optional>
#include <vector>

#include "formula/FormulaScanner.h"

namespace formula {
namespace {

using Kind = FormulaTokenKind;

constexpr int DivisionByZero = -1;
constexpr int Unreadable = -2;

/// An expression under way: the whole formula, the inside of a pair of parentheses, or one argument of a call.
struct Level {
  enum class Place : std::uint8_t { Formula, Group, Argument };
  enum class Expected : std::uint8_t { FirstArgument, Expression, Term, Factor, Operator };

  Place Where = Place::Formula;
  Expected Next = Expected::Expression;
  bool First = true;            // the term under way is the first
  bool Negative = false;        // the sign ahead of the term under way
  double Multiplication = 0.0;  // mark of the operator ahead of the factor under way, 0.0 for none
  double Sum = 0.0;             // of the terms before
  double Product = 0.0;         // of the factors of the term under way

  /// Takes a factor in; false if it is a divisor of zero.
  bool TakeFactor(double factor) {
    if (Multiplication == 0.0) {
      Product = factor;
    } else if (Multiplication == MultiplyMark) {
      Product *= factor;
    } else if (factor == 0.0) {
      return false;
    } else {
      Product /= factor;
    }
    Next = Expected::Operator;
    return true;
  }

  /// Takes the term under way into the sum.
  void EndTerm() {
    if (First) {
      Sum = Product * (Negative ? -1.0 : 1.0);
    } else {
      Sum = Negative ? Sum - Product : Sum + Product;
    }
    First = false;
    Multiplication = 0.0;
  }
};

/// A call under way.
struct Call {
  const FormulaFunction* Function;
  std::size_t FirstArgument;  // where its arguments begin in the stack of arguments
};

/// One evaluation.
///
/// The reading runs one token ahead: a token is consumed only once the one behind it can be read, and a call
/// is one token. So what follows a token counts before the grammar does, which is why a verdict found on a token
/// (division by zero, or a first token that starts no expression) waits until the next token has been read.
class Evaluation {
 public:
  explicit Evaluation(const wchar_t* text) : _Text(text), _Scanner(text) {}

  double Run(int& status) {
    while (!_Status) Take(_Scanner.Next());
    status = *_Status;
    return status == 0 ? _Level.Sum : 0.0;
  }

 private:
  void Take(const Scanned& scanned);
  void TakeName(const FormulaFunction* function);
  void TakeUnreadable();
  void TakeToken(const FormulaToken& token);
  void TakeOperator(const FormulaToken& token);
  void TakeOperand(double value);
  void Open(Level::Place where, Level::Expected next);
  void CloseGroup();
  void EndArgument();
  void EndCall();

  void Consume(Kind kind) {
    _Consumed = kind;
    if (_Calls.empty()) _ConsumedEnd = _Scanner.Position();
  }
  void SyntaxError();
  void CallFailed() { _Status = Unreadable; }
  void CallCountsAsNumber();
  int PositionBehindConsumed() const { return static_cast<int>(_ConsumedEnd - _Text) + 1; }

  const wchar_t* _Text;
  FormulaScanner _Scanner;
  std::optional<int> _Status;            // the end of the evaluation
  std::optional<int> _Verdict;           // the end once the next token has been read
  Level _Level;                          // the innermost level
  Kind _Consumed = Kind::End;            // the token last consumed; End before the first
  Kind _ConsumedBeforeCall = Kind::End;  // the same when the outermost call began
  Level::Expected _ExpectedAtCall{};     // what was expected where the outermost call began
  const wchar_t* _ConsumedEnd = _Text;   // just behind the token last consumed outside any call

  // The stacks of short formulas stay in this block.
  std::array<std::byte, 1536> _Block;
  std::pmr::monotonic_buffer_resource _Memory{_Block.data(), _Block.size()};
  std::pmr::vector<Level> _Levels{&_Memory};  // the levels around the innermost one
  std::pmr::vector<Call> _Calls{&_Memory};
  std::pmr::vector<double> _Arguments{&_Memory};  // of all calls under way
};

void Evaluation::Take(const Scanned& scanned) {
  switch (scanned.Found) {
    case Scanned::Sort::Token:
      return TakeToken(scanned.Token);
    case Scanned::Sort::Name:
      return TakeName(scanned.Function);
    case Scanned::Sort::Unreadable:
      return TakeUnreadable();
  }
}

void Evaluation::TakeName(const FormulaFunction* function) {
  if (function == nullptr || !_Scanner.SkipOpenParenthesis()) return CallFailed();
  if (_Calls.empty()) {
    _ConsumedBeforeCall = _Consumed;
    _ExpectedAtCall = _Level.Next;
  } else if (_Level.Next == Level::Expected::Operator) {
    return CallFailed();  // whatever the inner call gives, it stands in the wrong place
  }
  _Calls.push_back({function, _Arguments.size()});
  Open(Level::Place::Argument, Level::Expected::FirstArgument);
  _Consumed = Kind::OpenParenthesis;
}

/// A character that starts no token. Behind two ends of an argument list the reading goes on with the token before it,
/// a closing parenthesis, as if it closed the list: the call then counts as a number, which can't be consumed.
void Evaluation::TakeUnreadable() {
  const bool in_outermost_call = _Calls.size() == 1 && _Level.Where == Level::Place::Argument;
  const bool list_is_empty = _Level.Next == Level::Expected::FirstArgument;
  const bool behind_group = _Level.Next == Level::Expected::Operator && _Consumed == Kind::CloseParenthesis;
  if (in_outermost_call && (behind_group || (list_is_empty && _ConsumedBeforeCall == Kind::CloseParenthesis))) {
    return CallCountsAsNumber();
  }
  _Status = Unreadable;
}

void Evaluation::CallCountsAsNumber() {
  if (_Verdict) {
    _Status = _Verdict;
  } else if (_ExpectedAtCall == Level::Expected::Operator) {
    _Status = PositionBehindConsumed();
  } else {
    _Status = Unreadable;
  }
}

void Evaluation::SyntaxError() {
  if (!_Calls.empty()) return CallFailed();
  const bool nothing_consumed = _ConsumedEnd == _Text;
  (nothing_consumed ? _Verdict : _Status) = PositionBehindConsumed();
}

void Evaluation::TakeToken(const FormulaToken& token) {
  if (_Verdict && _Calls.empty()) {
    _Status = _Verdict;
    return;
  }
  switch (_Level.Next) {
    case Level::Expected::FirstArgument:
      if (token.Kind == Kind::CloseParenthesis) return EndCall();
      [[fallthrough]];
    case Level::Expected::Expression:
      if (token.Kind == Kind::AdditiveOperator) {
        Consume(token.Kind);
        _Level.Negative = token.Value == MinusMark;
        _Level.Next = Level::Expected::Term;
        return;
      }
      [[fallthrough]];
    case Level::Expected::Term:
    case Level::Expected::Factor:
      if (token.Kind == Kind::Number) {
        Consume(token.Kind);
        return TakeOperand(token.Value);
      }
      if (token.Kind != Kind::OpenParenthesis) return SyntaxError();
      Consume(token.Kind);
      return Open(Level::Place::Group, Level::Expected::Expression);
    case Level::Expected::Operator:
      return TakeOperator(token);
  }
}

void Evaluation::TakeOperator(const FormulaToken& token) {
  switch (token.Kind) {
    case Kind::MultiplicativeOperator:
      Consume(token.Kind);
      _Level.Multiplication = token.Value;
      _Level.Next = Level::Expected::Factor;
      return;
    case Kind::AdditiveOperator:
      Consume(token.Kind);
      _Level.EndTerm();
      _Level.Negative = token.Value == MinusMark;
      _Level.Next = Level::Expected::Term;
      return;
    case Kind::CloseParenthesis:
      if (_Level.Where == Level::Place::Group) return CloseGroup();
      [[fallthrough]];
    case Kind::End:
    case Kind::Separator:
      if (_Level.Where == Level::Place::Formula && token.Kind != Kind::Separator) {
        _Level.EndTerm();
        _Status = 0;
      } else if (_Level.Where == Level::Place::Argument && token.Kind != Kind::End) {
        EndArgument();
        if (token.Kind == Kind::CloseParenthesis) EndCall();
      } else {
        SyntaxError();
      }
      return;
    default:
      return SyntaxError();
  }
}

void Evaluation::TakeOperand(double value) {
  if (_Level.TakeFactor(value)) return;
  if (_Calls.empty()) {
    _Verdict = DivisionByZero;
  } else {
    CallFailed();
  }
}

void Evaluation::Open(Level::Place where, Level::Expected next) {
  _Levels.push_back(_Level);
  _Level = Level{.Where = where, .Next = next};
}

void Evaluation::CloseGroup() {
  Consume(Kind::CloseParenthesis);
  _Level.EndTerm();
  const double value = _Level.Sum;
  _Level = _Levels.back();
  _Levels.pop_back();
  TakeOperand(value);
}

void Evaluation::EndArgument() {
  _Level.EndTerm();
  if (_Arguments.size() - _Calls.back().FirstArgument < FormulaArgumentCount) _Arguments.push_back(_Level.Sum);
  _Level = Level{.Where = Level::Place::Argument};
  _Consumed = Kind::Separator;
}

void Evaluation::EndCall() {
  const Call call = _Calls.back();
  _Calls.pop_back();
  FormulaArguments arguments{};
  std::copy(_Arguments.begin() + static_cast<std::ptrdiff_t>(call.FirstArgument), _Arguments.end(), arguments.begin());
  _Arguments.resize(call.FirstArgument);
  _Level = _Levels.back();
  _Levels.pop_back();
  TakeToken({Kind::Number, call.Function->Function(arguments)});
}

}  // namespace
}  // namespace formula

double EvaluateFormula(const wchar_t* formula, int& status) {
  if (formula == nullptr) return 0.0;
  return formula::Evaluation(formula).Run(status);
}
