// The plain machine that reads each token of a formula twice, once as look-ahead and once as current token, and each
// argument of a call twice, once to find its end and once for its value. It is the yardstick for the one-pass
// evaluator. Its cost grows by a factor of about four for each level of nested calls, so it gives up after a number of
// steps.
//
//   expression      = [ "+" | "-" ] term additive-tail
//   additive-tail   = [ ( "+" | "-" ) term additive-tail ]
//   term            = ( number | call | "(" expression ")" ) multiplicative-tail
//   multiplicative-tail = [ ( "*" | "/" ) factor multiplicative-tail ]
//   factor          = number | call | "(" expression ")"
//   call            = name "(" [ expression { ( "," | "_" ) expression } ] ")"
#pragma once

#include <array>
#include <span>
#include <string>

namespace oracle {

/// The twenty argument slots of a call; a missing argument is 0.0.
using Arguments = std::array<double, 20>;

/// One named function. A null Call marks the end of the used slots.
struct Function {
  const wchar_t* Name;
  double (*Call)(const Arguments&);
};

/// Value     the value; 0.0 if Status is not 0 or the machine gave up.
/// Status    0: evaluated. -1: division by zero outside any argument list. -2: a token can't be read or a call failed.
///           Above 0: position (from 1) just behind the last token read before a syntax error.
/// OutOfSteps  true if the machine gave up: more token readings than allowed, or nesting deeper than 2000. Value and
///           Status say nothing then.
struct Result {
  double Value;
  int Status;
  bool OutOfSteps;
};

/// Evaluates a formula with the functions of a table. Numbers are read in the process locale. A terminator inside the
/// text ends it.
///
/// step_limit  how many single token readings are allowed; each advance by one token makes two of them.
Result EvaluateFormula(const std::wstring& text, std::span<const Function> table, long step_limit);

}  // namespace oracle
