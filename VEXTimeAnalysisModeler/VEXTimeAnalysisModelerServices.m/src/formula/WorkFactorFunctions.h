// The Work-Factor functions of a formula.
//
// Rows, columns and factor indexes are cut to 32-bit integers toward zero. An argument is set if it is above 1e-9. An
// index outside its table reads 0.0.
#pragma once

#include "formula/FormulaEvaluator.h"

namespace formula {

/// Rounds to a whole number as number output with no decimals does: a tie goes to the even neighbour.
/// Not the rounding of time values, whose ties go up.
double RoundViaText(double value);

/// "WFASY": TableSwitch, Column, RowFirst, ColumnShift, RowSecond, FactorA, FactorB, FactorC, FactorD, FactorE,
/// FactorTotal, Surcharge, HalfShare.
double WorkFactorAssembly(const FormulaArguments& arguments);

/// "WFPP": Column, Row, HalfShare.
double WorkFactorPreposition(const FormulaArguments& arguments);

/// "WFT": Row, Column.
double WorkFactorTransport(const FormulaArguments& arguments);

}  // namespace formula
