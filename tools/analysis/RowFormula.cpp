// The formulas of a row.
#include "tools/analysis/RowFormula.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <utility>

#include "platform/base/KORNumberText.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "tools/NumberText.h"
#include "tools/analysis/AnalysisFile.h"
#include "tools/analysis/AnalysisNumber.h"

namespace tool {

namespace {

using Parameter = VEXTimeAnalysisFormulaParameter;

struct NamedValue {
  std::string_view Name;
  std::string_view Text;
  bool Used = false;
};

KORUnicodeString TextOf(std::string_view text) {
  return KORUnicodeString(text);
}

std::vector<NamedValue> ReadValues(const FilePlace& place, std::string_view text,
                                   std::vector<PlacedFailure>& problems) {
  std::vector<NamedValue> values;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(';'), text.size());
    const std::string_view piece = Trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (piece.empty()) continue;
    const std::size_t sign = piece.find('=');
    const std::string_view name = Trimmed(piece.substr(0, std::min(sign, piece.size())));
    if (sign == std::string_view::npos || name.empty()) {
      problems.push_back(ValuesNotReadable(place, piece));
      continue;
    }
    const bool twice =
        std::any_of(values.begin(), values.end(), [name](const NamedValue& value) { return value.Name == name; });
    if (twice) {
      problems.push_back(ValueTwice(place, name));
    } else {
      values.push_back({name, Trimmed(piece.substr(sign + 1))});
    }
  }
  return values;
}

bool IsWholeNumber(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

bool FitsType(std::string_view text, const KORUnicodeString& type) {
  if (type.Bytes() == "String") return true;
  if (type.Bytes() == "Integer") return IsWholeNumber(text);
  return ReadFiniteNumber(text).has_value();
}

// What an output starts with.
std::string_view StartOf(const KORICkeArg_var& argument) {
  if (argument->GetTypeName().Bytes() == "String") return "";
  return argument->GetName().Bytes() == "Frequency" ? "-1" : "0";
}

KORICkeExpression_var ExpressionOf(const KORUnicodeString& signature, const KORUnicodeString& body) {
  const KORICkeExpressionFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
  return factory->CreateExpression("FormulaSTM", "", signature, body);
}

KORICkeParm_var ValueOf(const Parameter& parameter) {
  const KORICkeParmFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
  const std::string_view type = parameter._ValueType.Bytes();
  const std::string_view text = parameter._ValueText.Bytes();
  if (type == "String") return factory->CreateString(parameter._ParameterName, parameter._ValueText);
  if (type == "Integer") {
    return factory->CreateInteger(parameter._ParameterName, kornumber::ReadInteger(text).value_or(0));
  }
  const double number = kornumber::ReadReal(text).value_or(0.0);
  if (type == "Real") return factory->CreateReal(parameter._ParameterName, number);
  return factory->CreateDimension(parameter._ParameterName, KORParmDictionary::FindMagnitude(parameter._ValueType),
                                  number);
}

// The calculation takes a formula that fails for one that says nothing; here is where it is told.
void TryFormula(const FilePlace& place, std::span<const Parameter> parameters, std::vector<PlacedFailure>& problems) {
  const KORICkeExpression_var expression = ExpressionOf(parameters.front()._Signature, parameters.front()._Body);
  const KORICkeEvaluator_var evaluator = expression;
  evaluator->Reset();
  std::vector<KORICkeParm_var> values;
  for (const Parameter& parameter : parameters) {
    values.push_back(ValueOf(parameter));
    evaluator->AddValue(values.back());
  }
  if (Failed(evaluator->Run(nullptr))) {
    problems.push_back(FormulaRunFails(place, std::string(evaluator->GetProblem().Bytes())));
    return;
  }
  KORListValKORICkeArg_var arguments = expression->GetSignature()->GetArguments();
  for (int position = 1; position <= arguments.Size(); ++position) {
    const std::string_view name = arguments[position]->GetName().Bytes();
    if (arguments[position]->GetMode() != KORCke::OutputMode || (name != "Time" && name != "Frequency")) continue;
    const double result = values[static_cast<std::size_t>(position) - 1]->Value()->AsReal();
    const bool left_open = name == "Frequency" && result == -1.0;
    if (left_open || (std::isfinite(result) && result >= 0.0)) continue;
    problems.push_back(FormulaResultNotUsable(place, name, NumberText(result)));
  }
}

bool SameFormula(const Parameter& left, const Parameter& right) {
  return left._OwnerRow == right._OwnerRow && left._OwnerPLMId == right._OwnerPLMId;
}

class RowFormulaReader {
 public:
  RowFormulaReader(const FilePlace& place, const FormulaCells& cells, std::vector<Parameter> carried)
      : _Place(place), _Cells(cells) {
    _Formula.Parameters = std::move(carried);
    _OwnStart = _Formula.Parameters.size();
    _Values = ReadValues(place, cells.Values, _Formula.Problems);
  }

  RowFormula Read(const FormulaOwner& owner) {
    if (!_Cells.Signature.empty() || !_Cells.Body.empty()) ReadOwn(owner);
    for (NamedValue& value : _Values) {
      if (!value.Used) ChangeCarried(value);
    }
    if (_Formula.Problems.empty()) Try();
    return std::move(_Formula);
  }

 private:
  void ReadOwn(const FormulaOwner& owner) {
    if (_Cells.Signature.empty() || _Cells.Body.empty()) {
      _Formula.Problems.push_back(FormulaIncomplete(_Place, _Cells.Signature.empty() ? "signature" : "body"));
      for (NamedValue& value : _Values) value.Used = true;  // nobody can tell whose they are
      return;
    }
    const KORICkeExpression_var expression = ExpressionOf(TextOf(_Cells.Signature), TextOf(_Cells.Body));
    const KORICkeSignature_var signature = expression->GetSignature();
    if (signature.IsNull() || expression->IsValid() == KORCke::False) {
      _Formula.Problems.push_back(FormulaNotReadable(_Place, std::string(expression->GetProblem().Bytes())));
      for (NamedValue& value : _Values) value.Used = true;
      return;
    }
    for (const KORICkeArg_var& argument : signature->GetArguments()) TakeArgument(argument, owner);
  }

  void TakeArgument(const KORICkeArg_var& argument, const FormulaOwner& owner) {
    Parameter parameter;
    parameter._ParameterName = argument->GetName();
    parameter._ValueType = argument->GetTypeName();
    parameter._Signature = TextOf(_Cells.Signature);
    parameter._Body = TextOf(_Cells.Body);
    parameter._OwnerPLMId = owner.Identifier;
    parameter._OwnerRow = TextOf(std::to_string(owner.Row));
    const std::string_view name = parameter._ParameterName.Bytes();
    const bool is_output = argument->GetMode() == KORCke::OutputMode;
    _Formula.HasOwnTime = _Formula.HasOwnTime || (is_output && name == "Time");
    const auto value =
        std::find_if(_Values.begin(), _Values.end(), [name](const NamedValue& named) { return named.Name == name; });
    if (value != _Values.end()) {
      value->Used = true;
      SetValue(parameter, value->Text);
    } else if (is_output) {
      parameter._ValueText = TextOf(StartOf(argument));
    } else {
      _Formula.Problems.push_back(ValueMissing(_Place, name, parameter._ValueType.Bytes()));
    }
    _Formula.Parameters.push_back(std::move(parameter));
  }

  void SetValue(Parameter& parameter, std::string_view text) {
    parameter._ValueText = TextOf(text);
    if (FitsType(text, parameter._ValueType)) return;
    _Formula.Problems.push_back(
        ValueOfOtherType(_Place, parameter._ParameterName.Bytes(), text, parameter._ValueType.Bytes()));
  }

  void ChangeCarried(const NamedValue& value) {
    bool found = false;
    for (std::size_t index = 0; index < _OwnStart; ++index) {
      Parameter& parameter = _Formula.Parameters[index];
      if (parameter._ParameterName.Bytes() != value.Name) continue;
      found = true;
      SetValue(parameter, value.Text);
    }
    _Formula.ChangesCarried = _Formula.ChangesCarried || found;
    if (!found) _Formula.Problems.push_back(ValueWithoutInput(_Place, value.Name, ArgumentNames()));
  }

  std::vector<std::string> ArgumentNames() const {
    std::vector<std::string> names;
    for (const Parameter& parameter : _Formula.Parameters) {
      const std::string name(parameter._ParameterName.Bytes());
      if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    }
    return names;
  }

  // Formulas carried up unchanged were tried in their own file.
  void Try() {
    const std::span<const Parameter> all(_Formula.Parameters);
    std::size_t start = _Formula.ChangesCarried ? 0 : _OwnStart;
    while (start < all.size()) {
      std::size_t end = start + 1;
      while (end < all.size() && SameFormula(all[start], all[end])) ++end;
      TryFormula(_Place, all.subspan(start, end - start), _Formula.Problems);
      start = end;
    }
  }

  const FilePlace& _Place;
  const FormulaCells& _Cells;
  RowFormula _Formula;
  std::size_t _OwnStart = 0;
  std::vector<NamedValue> _Values;
};

}  // namespace

RowFormula ReadRowFormula(const FilePlace& place, const FormulaCells& cells, const FormulaOwner& owner,
                          std::vector<VEXTimeAnalysisFormulaParameter> carried) {
  return RowFormulaReader(place, cells, std::move(carried)).Read(owner);
}

void SetFormulaParameters(std::span<const Parameter> parameters, VEXTimeAnalysisLineData& line) {
  KORRawCollPV list;
  for (const Parameter& parameter : parameters) list.Append(new Parameter(parameter));
  line.SetValue(KORFormulaParameterKey, list);
}

std::string ValuesOfFormula(std::span<const VEXTimeAnalysisFormulaParameter> formula) {
  if (formula.empty()) return {};
  const KORICkeExpression_var expression = ExpressionOf(formula.front()._Signature, formula.front()._Body);
  const KORICkeSignature_var signature = expression->GetSignature();
  std::string values;
  int position = 0;
  for (const Parameter& parameter : formula) {
    ++position;
    const KORICkeArg_var argument = signature.IsNull() ? KORICkeArg_var() : signature->GetArgument(position);
    const bool is_output = !argument.IsNull() && argument->GetMode() == KORCke::OutputMode;
    if (is_output && parameter._ValueText.Bytes() == StartOf(argument)) continue;
    values +=
        (values.empty() ? "" : "; ") + NamedValueText(parameter._ParameterName.Bytes(), parameter._ValueText.Bytes());
  }
  return values;
}

std::string NamedValueText(std::string_view name, std::string_view value) {
  return std::string(name) + "=" + std::string(value);
}

}  // namespace tool
