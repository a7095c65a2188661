// The evaluator of time formulas: one pass over the tokens, with a stack of its own instead of recursion.
#include "formula/FormulaEvaluator.h"

#include <cstddef>
#include <cstdint>

#include "formula/FormulaScanner.h"
#include "platform/base/KORInlineStack.h"

namespace formula {
namespace {

constexpr int DivisionByZero = -1;
constexpr int Unreadable = -2;

/// An expression under way: the whole formula, the inside of a pair of parentheses, or one argument of a call.
struct Level {
  enum class Place : std::uint8_t { Formula, Group, Argument };
  enum class Expected : std::uint8_t { FirstArgument, Expression, Term, Factor, Operator };

  // No initial values, so that a stack of levels costs nothing until it is used.
  Place Where;
  Expected Next;
  bool First;             // the term under way is the first
  bool Negative;          // the sign ahead of the term under way
  Symbol Multiplication;  // the operator ahead of the factor under way; none of the two if there is none
  double Sum;             // of the terms before
  double Product;         // of the factors of the term under way

  static Level Begin(Place where, Expected next) { return {where, next, true, false, Symbol::End, 0.0, 0.0}; }

  /// Takes a factor in; false if it is a divisor of zero.
  bool TakeFactor(double factor) {
    if (Multiplication == Symbol::Multiply) {
      Product *= factor;
    } else if (Multiplication != Symbol::Divide) {
      Product = factor;
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
    Multiplication = Symbol::End;
  }
};

/// A call under way.
struct Call {
  const FormulaFunction* Function;
  std::size_t FirstArgument;  // where its arguments begin in the stack of arguments
};

/// One evaluation.
///
/// The reading runs one token ahead: a token is consumed only once the one behind it can be read, and a call is one
/// token. So what follows a token counts before the grammar does, which is why a verdict found on a token (division by
/// zero, or a first token that starts no expression) waits until the next token has been read.
class Evaluation {
 public:
  explicit Evaluation(const wchar_t* text) : _Text(text), _Scanner(text) {}

  double Run(int& status) {
    while (_Progress != Progress::Ended) {
      if (_Progress == Progress::Waiting && _Calls.IsEmpty()) {
        TakeBehindVerdict();
      } else if (_Level.Next == Level::Expected::Operator) {
        TakeOperator(_Scanner.Next());
      } else {
        TakeOperand(_Scanner.Next());
      }
    }
    status = _Status;
    return _Status == 0 ? _Level.Sum : 0.0;
  }

 private:
  enum class Progress : std::uint8_t {
    Running,
    Waiting,  // for the next token, after which the evaluation ends with the verdict
    Ended,
  };

  // What the last token consumed was, as far as it counts later.
  enum class Consumed : std::uint8_t { Nothing, CloseParenthesis, Other };

  void TakeOperand(Symbol symbol);
  void TakeOperator(Symbol symbol);
  void TakeBehindVerdict();
  void TakeSign(Symbol sign);
  void TakeNumber(double value);
  void TakeCall();
  void TakeUnreadable();
  void TakeFactor(double value);
  void Open(Level::Place where, Level::Expected next);
  void CloseExpression(Symbol symbol);
  void EndArgument();
  void EndCall();
  void SyntaxError(Symbol symbol);
  void CallCountsAsNumber();

  void Consume(Consumed what) {
    _Consumed = what;
    if (_Calls.IsEmpty()) _ConsumedEnd = _Scanner.Position();
  }
  void TakeAndConsume(Consumed what) {
    _Scanner.Take();
    Consume(what);
  }
  void End(int status) {
    _Progress = Progress::Ended;
    _Status = status;
  }
  void Wait(int verdict) {
    _Progress = Progress::Waiting;
    _Verdict = verdict;
  }
  int PositionBehindConsumed() const { return static_cast<int>(_ConsumedEnd - _Text) + 1; }

  const wchar_t* _Text;
  FormulaScanner _Scanner;
  Progress _Progress = Progress::Running;
  int _Status = 0;
  int _Verdict = 0;
  Level _Level = Level::Begin(Level::Place::Formula, Level::Expected::Expression);  // the innermost level
  Consumed _Consumed = Consumed::Nothing;                                           // the token last consumed
  Consumed _ConsumedBeforeCall = Consumed::Nothing;  // the same when the outermost call began
  Level::Expected _ExpectedAtCall{};                 // what was expected where the outermost call began
  const wchar_t* _ConsumedEnd = _Text;               // just behind the token last consumed outside any call

  // Sized so that the formulas of data cards need no memory beyond the object.
  KORInlineStack<Level, 8> _Levels;  // the levels around the innermost one
  KORInlineStack<Call, 4> _Calls;
  KORInlineStack<double, 24> _Arguments;  // of all calls under way
};

/// Where an expression, a term or a factor must begin.
void Evaluation::TakeOperand(Symbol symbol) {
  if (symbol == Symbol::Digit) return TakeNumber(_Scanner.TakeNumber());
  switch (symbol) {
    case Symbol::Letter:
      return TakeCall();
    case Symbol::OpenParenthesis:
      TakeAndConsume(Consumed::Other);
      return Open(Level::Place::Group, Level::Expected::Expression);
    case Symbol::Plus:
    case Symbol::Minus:
      if (_Level.Next > Level::Expected::Expression) return SyntaxError(symbol);
      TakeAndConsume(Consumed::Other);
      return TakeSign(symbol);
    case Symbol::CloseParenthesis:
      if (_Level.Next != Level::Expected::FirstArgument) return SyntaxError(symbol);
      _Scanner.Take();
      return EndCall();
    case Symbol::Unreadable:
      return TakeUnreadable();
    default:
      return SyntaxError(symbol);
  }
}

/// Behind a factor.
void Evaluation::TakeOperator(Symbol symbol) {
  switch (symbol) {
    case Symbol::Multiply:
    case Symbol::Divide:
      TakeAndConsume(Consumed::Other);
      _Level.Multiplication = symbol;
      _Level.Next = Level::Expected::Factor;
      return;
    case Symbol::Plus:
    case Symbol::Minus:
      TakeAndConsume(Consumed::Other);
      _Level.EndTerm();
      return TakeSign(symbol);
    case Symbol::CloseParenthesis:
    case Symbol::Separator:
    case Symbol::End:
      return CloseExpression(symbol);
    case Symbol::Letter:
      return TakeCall();
    case Symbol::Unreadable:
      return TakeUnreadable();
    default:
      return SyntaxError(symbol);
  }
}

/// The evaluation is decided; it ends with the verdict if the next token can be read.
void Evaluation::TakeBehindVerdict() {
  switch (_Scanner.Next()) {
    case Symbol::Letter:
      return TakeCall();
    case Symbol::Unreadable:
      return End(Unreadable);
    default:
      return End(_Verdict);
  }
}

void Evaluation::TakeSign(Symbol sign) {
  _Level.Negative = sign == Symbol::Minus;
  _Level.Next = Level::Expected::Term;
}

/// A number, or the value of a call.
void Evaluation::TakeNumber(double value) {
  if (_Progress == Progress::Waiting && _Calls.IsEmpty()) return End(_Verdict);
  if (_Level.Next == Level::Expected::Operator) return SyntaxError(Symbol::Digit);
  Consume(Consumed::Other);
  TakeFactor(value);
}

void Evaluation::TakeCall() {
  const FormulaFunction* function = _Scanner.TakeName();
  if (function == nullptr || _Scanner.Next() != Symbol::OpenParenthesis) return End(Unreadable);
  if (_Calls.IsEmpty()) {
    _ConsumedBeforeCall = _Consumed;
    _ExpectedAtCall = _Level.Next;
  } else if (_Level.Next == Level::Expected::Operator) {
    return End(Unreadable);  // whatever the inner call gives, it stands in the wrong place
  }
  _Scanner.Take();
  _Consumed = Consumed::Other;
  _Calls.Push({function, _Arguments.Size()});
  Open(Level::Place::Argument, Level::Expected::FirstArgument);
}

/// A character that starts no token. At two ends of an argument list the reading goes on with the token before it, a
/// closing parenthesis, as if it closed the list: the call then counts as a number, which can't be consumed.
void Evaluation::TakeUnreadable() {
  const bool in_outermost_call = _Calls.Size() == 1 && _Level.Where == Level::Place::Argument;
  const bool list_is_empty = _Level.Next == Level::Expected::FirstArgument;
  const bool behind_group = _Level.Next == Level::Expected::Operator && _Consumed == Consumed::CloseParenthesis;
  if (in_outermost_call && (behind_group || (list_is_empty && _ConsumedBeforeCall == Consumed::CloseParenthesis))) {
    return CallCountsAsNumber();
  }
  End(Unreadable);
}

void Evaluation::CallCountsAsNumber() {
  if (_Progress == Progress::Waiting) return End(_Verdict);
  End(_ExpectedAtCall == Level::Expected::Operator ? PositionBehindConsumed() : Unreadable);
}

/// The first token of all must have its follower read before it is refused.
void Evaluation::SyntaxError(Symbol symbol) {
  if (!_Calls.IsEmpty()) return End(Unreadable);
  if (_ConsumedEnd != _Text) return End(PositionBehindConsumed());
  if (symbol != Symbol::End) _Scanner.Take();
  Wait(PositionBehindConsumed());
}

void Evaluation::TakeFactor(double value) {
  if (_Level.TakeFactor(value)) return;
  if (!_Calls.IsEmpty()) return End(Unreadable);
  Wait(DivisionByZero);
}

void Evaluation::Open(Level::Place where, Level::Expected next) {
  _Levels.Push(_Level);
  _Level = Level::Begin(where, next);
}

/// A closing parenthesis, a separator or the end behind an expression.
void Evaluation::CloseExpression(Symbol symbol) {
  const bool closed = symbol == Symbol::CloseParenthesis;
  if (_Level.Where == Level::Place::Group && closed) {
    TakeAndConsume(Consumed::CloseParenthesis);
    _Level.EndTerm();
    const double value = _Level.Sum;
    _Level = _Levels.Pop();
    TakeFactor(value);
  } else if (_Level.Where == Level::Place::Formula && symbol != Symbol::Separator) {
    _Level.EndTerm();
    End(0);
  } else if (_Level.Where == Level::Place::Argument && symbol != Symbol::End) {
    _Scanner.Take();
    EndArgument();
    if (closed) EndCall();
  } else {
    SyntaxError(symbol);
  }
}

void Evaluation::EndArgument() {
  _Level.EndTerm();
  if (_Arguments.Size() - _Calls.Top().FirstArgument < FormulaArgumentCount) _Arguments.Push(_Level.Sum);
  _Level = Level::Begin(Level::Place::Argument, Level::Expected::Expression);
  _Consumed = Consumed::Other;
}

void Evaluation::EndCall() {
  const Call call = _Calls.Pop();
  FormulaArguments arguments{};
  for (std::size_t count = _Arguments.Size() - call.FirstArgument; count-- > 0;) arguments[count] = _Arguments.Pop();
  _Level = _Levels.Pop();
  TakeNumber(call.Function->Function(arguments));
}

}  // namespace
}  // namespace formula

double EvaluateFormula(const wchar_t* formula, int& status) {
  if (formula == nullptr) return 0.0;
  return formula::Evaluation(formula).Run(status);
}
