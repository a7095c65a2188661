// One formula of a line on the knowledge engine.
#include "calculation/FormulaRun.h"

#include <algorithm>

namespace calculation {

namespace {

KORICkeParm_var ValueOf(const VEXTimeAnalysisFormulaParameter& parameter, const KORICkeParmFactory_var& factory) {
  if (parameter._ValueType == "Integer") {
    int value = 0;
    (void)parameter._ValueText.ConvertToNum(value, "%d");
    return factory->CreateInteger(parameter._ParameterName, value);
  }
  if (parameter._ValueType == "String") return factory->CreateString(parameter._ParameterName, parameter._ValueText);
  double value = 0.0;
  (void)parameter._ValueText.ConvertToNum(value, "%le");
  if (parameter._ValueType == "Real") return factory->CreateReal(parameter._ParameterName, value);
  return factory->CreateDimension(parameter._ParameterName, KORParmDictionary::FindMagnitude(parameter._ValueType),
                                  value);
}

}  // namespace

KORICkeExpression_var ExpressionOf(const VEXTimeAnalysisFormulaParameter& formula,
                                   const KORICkeExpressionFactory_var& factory) {
  KORICkeExpression_var expression =
      factory->CreateExpression("FormulaSTM", "KweEdiotrComment", formula._Signature, formula._Body);
  if (expression->GetSignature().IsNull() || expression->IsValid() == KORCke::False) return NULL_var;
  return expression;
}

std::optional<FormulaRun> RunFormula(const KORICkeExpression_var& expression, const KORICkeEvaluator_var& evaluator,
                                     const KORICkeParmFactory_var& factory, const KORRawCollPV& parameters, int first) {
  const KORICkeSignature_var signature = expression->GetSignature();
  const int argument_count = std::min(signature->GetArgumentCount(), parameters.Size() - first + 1);
  FormulaRun run;
  evaluator->Reset();
  for (int number = 1; number <= argument_count; ++number) {
    const VEXTimeAnalysisFormulaParameter* const parameter = ParameterAt(parameters, first + number - 1);
    if (parameter == nullptr) return std::nullopt;
    const KORICkeArg_var argument = signature->GetArgument(number);
    if (argument->GetName() == "Time") run.HasTimeArgument = true;
    const KORICkeParm_var value = ValueOf(*parameter, factory);
    (void)evaluator->AddValue(value);
    if (argument->GetMode() == KORCke::OutputMode) run.Outputs.Append(value);
  }
  (void)evaluator->Run(nullptr);
  return run;
}

}  // namespace calculation
