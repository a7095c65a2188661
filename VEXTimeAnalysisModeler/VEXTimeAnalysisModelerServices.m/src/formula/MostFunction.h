// The function "MOST" of a formula: the time of a sequence from its indexes.
#pragma once

#include "formula/FormulaEvaluator.h"

namespace formula {

/// Twelve indexes, each times 100000: 300000 and 100000, the indexes 3 and 1, give 40, ten times their sum.
/// An argument below 100000 leaves a small fraction, which the systems of the MOST family round down.
double MostSequenceTime(const FormulaArguments& arguments);

}  // namespace formula
