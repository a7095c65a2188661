// A bare evaluator of formulas: the yardstick for what one pass over a text must cost.
//
//   expression = [ "+" | "-" ] term { ( "+" | "-" ) term }
//   term       = factor { ( "*" | "/" ) factor }
//   factor     = number | "(" expression ")" | name "(" [ expression { ( "," | "_" ) expression } ] ")"
//   number     = digit { digit } [ "." { digit } ]
//
// The same function table as that of the library; no exponents, no locale, no blanks, no bound on the depth.
#pragma once

namespace bench {

/// The value of a formula. `good` is set to false, and the value says nothing, if the text is no formula.
double EvaluateBareFormula(const wchar_t* text, bool& good);

}  // namespace bench
