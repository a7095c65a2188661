// The evaluator of time formulas: one arithmetic text to one number.
//
//   formula    = expression [ ")" anything ]       a ")" with no partner ends the formula
//   expression = [ sign ] term { sign term }
//   term       = factor { ( "*" | "/" ) factor }
//   factor     = number | "(" expression ")" | call
//   call       = name "(" [ expression { separator expression } ] ")"
//   separator  = "," | "_"
//   sign       = "+" | "-"
//   number     = what wcstod reads in the process locale, beginning with a digit
//   name       = a letter, then letters and digits, as isalpha and isalnum know them in the process locale
//
// White space between tokens does not count. A sign is legal only at the start of an expression, and applies to the
// first term as a whole. There are no variables, constants, comparisons or powers. Characters above 255 start no token.
//
// Evaluations on distinct threads do not disturb each other. Depth of nesting costs memory, not stack; time is linear
// in the length of the text.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// Kinds of tokens.
enum class FormulaTokenKind : int {
  FailedName = 0,              // a name whose call failed
  OpenParenthesis = 1,         // "("
  CloseParenthesis = 2,        // ")"
  MultiplicativeOperator = 3,  // "*" or "/"
  AdditiveOperator = 4,        // "+" or "-"
  Number = 5,                  // a number, or a name whose call succeeded
  Separator = 6,               // "," or "_"
  End = 7,                     // the terminator
};

/// Values that mark the operators.
inline constexpr double PlusMark = 8.0;
inline constexpr double MinusMark = 9.0;
inline constexpr double MultiplyMark = 10.0;
inline constexpr double DivideMark = 11.0;

/// One token. Value: the number of a number token, the mark of an operator, 0.0 otherwise.
struct FormulaToken {
  FormulaTokenKind Kind = FormulaTokenKind::FailedName;
  double Value = 0.0;
};

/// The arguments of a call: missing ones are 0.0, surplus ones are dropped.
inline constexpr std::size_t FormulaArgumentCount = 20;
using FormulaArguments = std::array<double, FormulaArgumentCount>;

/// A function that formulas can call. A null Function marks a free slot.
struct FormulaFunction {
  const wchar_t* Name = nullptr;
  double (*Function)(const FormulaArguments&) = nullptr;
};

/// The function table: the filled slots first, in slot order, the free ones behind them.
inline constexpr std::size_t FormulaFunctionCount = 100;
using FormulaFunctionTable = std::array<FormulaFunction, FormulaFunctionCount>;

/// The function table. It is constant data, filled before any code runs.
const FormulaFunctionTable& FormulaFunctions();

/// The function of exactly that name, in upper and lower case as it stands; null if there is none.
const FormulaFunction* FindFormulaFunction(std::wstring_view name);

/// Makes the function table ready. Callers of the evaluator need not call it, and may at any time and on any thread:
/// constant data leaves nothing to fill.
void InitFormulaFunctions();

/// Evaluates a formula.
///
/// formula  text up to its terminator; only read
/// status   [out] 0: success. -1: division by zero outside any argument list. -2: a token can't be read: a character
/// that
///          starts no token, or a name that failed - unknown, no "(" behind it, or an argument that failed, also
///          through division by zero. Above 0: a syntax error; the position (from 1) just behind the last token
///          consumed. Untouched if `formula` is null.
/// Returns  the value; 0.0 on any status but 0.
///
/// One token is read ahead, so that what can't be read counts before what stands in the wrong place: "1 $" gives -2,
/// "1 2" gives 2. A call read ahead counts as a number where its closing parenthesis is missing in one of two ways:
/// a group in parentheses that ends an argument, or an empty argument list right behind a parenthesis, followed by a
/// character that starts no token. So "1 abs((1)$" gives 2 and "(1)abs($" gives 4.
///
/// Example: EvaluateFormula(L"1+2)*99", status) gives 3.0 and status 0.
double EvaluateFormula(const wchar_t* formula, int& status);
