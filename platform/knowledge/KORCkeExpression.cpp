// An expression that belongs to no object, with its signature, its arguments and its evaluator.
#include "platform/knowledge/KORCkeExpression.h"

#include <new>
#include <string_view>

#include "platform/base/KORTruncation.h"

namespace {

using KORCke::ValueKind;

// A plain number stands for any magnitude.
bool IsPlain(const KORCkeMagnitude* magnitude) {
  return magnitude == nullptr || std::string_view(magnitude->Unit).empty();
}

bool GoTogether(const KORCkeMagnitude* left, const KORCkeMagnitude* right) {
  return left == right || IsPlain(left) || IsPlain(right);
}

// Reads a parameter as the value of an argument; false if it doesn't fit.
bool ReadValue(const KORCkeArgument& argument, KORICkeParm& parameter, KORCkeVariable& variable) {
  const KORICkeValue_var value = parameter.Value();
  const ValueKind kind = value->GetKind();
  variable.Kind = argument.Kind;
  variable.ResultKind = kind == ValueKind::Integer ? kind : argument.Kind;
  if ((kind == ValueKind::Text) != (argument.Kind == ValueKind::Text)) return false;
  if (kind == ValueKind::Text) {
    variable.Text = value->AsString();
    return true;
  }
  variable.Real = value->AsReal();
  variable.Integer = kornumber::TruncateToInt32(variable.Real);
  if (argument.Kind == ValueKind::Integer) return variable.Integer == variable.Real;
  return GoTogether(argument.Magnitude, value->GetMagnitude());
}

void WriteResult(const KORCkeVariable& variable, KORICkeParm& parameter) {
  switch (variable.ResultKind) {
    case ValueKind::Integer:
      parameter.ValuateInteger(variable.Integer);
      return;
    case ValueKind::Real:
      parameter.ValuateReal(variable.Real);
      return;
    case ValueKind::Text:
      parameter.ValuateString(variable.Text);
      return;
  }
}

}  // namespace

std::vector<KORCkeArg>& KORCkeSignature::MakeArguments() {
  if (_Arguments.empty()) {
    _Arguments.reserve(_Formula->Arguments.size());
    for (const KORCkeArgument& argument : _Formula->Arguments) _Arguments.emplace_back(GetWhole(), argument);
  }
  return _Arguments;
}

KORICkeArg_var KORCkeSignature::GetArgument(int position) {
  if (position < 1 || position > GetArgumentCount()) return {};
  return KORICkeArg_var(&MakeArguments()[static_cast<std::size_t>(position - 1)]);
}

KORListValKORICkeArg_var KORCkeSignature::GetArguments() {
  KORListValKORICkeArg_var arguments;
  for (KORCkeArg& argument : MakeArguments()) arguments.Append(KORICkeArg_var(&argument));
  return arguments;
}

KORCkeExpression::KORCkeExpression(const KORUnicodeString& signature, const KORUnicodeString& body)
    : _Formula(KORCkeFormulaCache::OfThread().Find(signature.Bytes(), body.Bytes())),
      _Signature(*this, _Formula->Formula) {
}

KORICkeSignature_var KORCkeExpression::GetSignature() {
  return _Formula->Formula.IsReadable() ? KORICkeSignature_var(&_Signature) : KORICkeSignature_var();
}

KORUnicodeString KORCkeExpression::GetProblem() const {
  const std::string_view problem = _Formula->Problem.empty() ? _ProblemOfRun : _Formula->Problem;
  return KORUnicodeString(problem);
}

void KORCkeExpression::Reset() {
  _Values.clear();
  _ProblemOfRun.clear();
}

long KORCkeExpression::AddValue(const KORICkeParm_var& value) {
  if (value.IsNull()) return E_INVALIDARG;
  if (_Values.empty()) _Values.reserve(_Formula->Formula.Arguments.size());
  _Values.push_back(value);
  return S_OK;
}

long KORCkeExpression::Run(KORBaseUnknown* /*reserved*/) {
  _ProblemOfRun.clear();
  try {
    return RunFormula() ? S_OK : E_FAIL;
  } catch (const std::bad_alloc&) {
    _ProblemOfRun = "out of memory";  // short enough to need none itself
    return E_FAIL;
  }
}

bool KORCkeExpression::RunFormula() {
  if (!_Formula->Problem.empty()) return false;
  std::vector<KORCkeVariable> variables;
  if (!ReadValues(variables)) return false;
  const KORCkeKnownFormula& formula = FormulaOfThread();
  if (!formula.Problem.empty()) {
    _ProblemOfRun = formula.Problem;
    return false;
  }
  KORCkeSandbox& sandbox = KORCkeFormulaCache::OfThread().GetSandbox();
  if (!sandbox.Run(formula.Formula, formula.Compiled, variables, _ProblemOfRun)) return false;
  for (std::size_t index = 0; index < variables.size(); ++index) {
    if (formula.Formula.Arguments[index].Mode == KORCke::OutputMode) WriteResult(variables[index], *_Values[index]);
  }
  return true;
}

bool KORCkeExpression::ReadValues(std::vector<KORCkeVariable>& variables) {
  const std::vector<KORCkeArgument>& arguments = _Formula->Formula.Arguments;
  if (_Values.size() != arguments.size()) {
    _ProblemOfRun = std::to_string(_Values.size()) + " values for " + std::to_string(arguments.size()) + " arguments";
    return false;
  }
  variables.resize(arguments.size());
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    if (ReadValue(arguments[index], *_Values[index], variables[index])) continue;
    _ProblemOfRun = "the value of " + std::string(arguments[index].Name.Bytes()) + " does not fit its type " +
                    std::string(arguments[index].TypeName.Bytes());
    return false;
  }
  return true;
}

// The formula as this thread knows it: it may have been compiled on another thread, or been forgotten since.
const KORCkeKnownFormula& KORCkeExpression::FormulaOfThread() {
  KORCkeFormulaCache& cache = KORCkeFormulaCache::OfThread();
  if (cache.Knows(*_Formula)) return *_Formula;
  if (_Compiled == nullptr || !cache.Knows(*_Compiled)) _Compiled = cache.Find(_Formula->Signature, _Formula->Body);
  return *_Compiled;
}
