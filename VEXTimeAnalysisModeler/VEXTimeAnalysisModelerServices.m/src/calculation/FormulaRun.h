// One formula of a line on the knowledge engine: its arguments filled from parameters, run, its outputs read.
#pragma once

#include <optional>

#include "platform/base/KORList.h"
#include "platform/knowledge/KORICkeExpression.h"
#include "platform/knowledge/KORICkeFactory.h"
#include "platform/knowledge/KORICkeParm.h"
#include "platform/model/VEXTimeAnalysisFormulaParameter.h"

namespace calculation {

/// The parameter at a position (from 1) of a line's list; null for a null entry.
inline const VEXTimeAnalysisFormulaParameter* ParameterAt(const KORRawCollPV& parameters, int position) {
  return static_cast<const VEXTimeAnalysisFormulaParameter*>(parameters[position]);
}

/// A formula that was run.
struct FormulaRun {
  bool HasTimeArgument = false;       // an argument named "Time", input or output, had a parameter
  KORListValKORICkeParm_var Outputs;  // in the order of the arguments, under the names of their parameters
};

/// The expression of a formula; a null handle if its signature can't be read or it isn't valid.
KORICkeExpression_var ExpressionOf(const VEXTimeAnalysisFormulaParameter& formula,
                                   const KORICkeExpressionFactory_var& factory);

/// Runs an expression with the parameters from `first` (from 1) on, one for each argument. A list that ends before the
/// arguments do leaves the rest without values, with which the engine fails the run; outputs then keep the values of
/// their parameters. Nothing is returned if one of the parameters is null.
std::optional<FormulaRun> RunFormula(const KORICkeExpression_var& expression, const KORICkeEvaluator_var& evaluator,
                                     const KORICkeParmFactory_var& factory, const KORRawCollPV& parameters, int first);

}  // namespace calculation
