// The formulas of one line.
#include "calculation/LineFormula.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "calculation/FormulaRun.h"
#include "calculation/LineTime.h"
#include "calculation/ReuseTree.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "timevalue/TextHelpers.h"

namespace calculation {

namespace {

constexpr std::string_view KeySeparator = "|";

// One formula among those of the line.
struct Formula {
  KORUnicodeString OwnerId;
  KORUnicodeString OwnerRow;
  int Position;  // of its first parameter, from 1
  int ParameterKind;
};

bool IsOfSameFormula(const VEXTimeAnalysisFormulaParameter& left, const VEXTimeAnalysisFormulaParameter& right) {
  return left._OwnerRow == right._OwnerRow && left._OwnerPLMId == right._OwnerPLMId;
}

// The formula whose first parameter stands at a position.
Formula FormulaAt(const KORRawCollPV& parameters, int position) {
  const VEXTimeAnalysisFormulaParameter& first = *ParameterAt(parameters, position);
  return {first._OwnerPLMId, first._OwnerRow, position, first._ParameterKind};
}

// The formula that the cut of a key names; nothing if no parameter belongs to it.
std::optional<Formula> FormulaOfKey(const KORRawCollPV& parameters, std::string_view key) {
  const KORListValKORUnicodeString parts = timevalue::CutAtSeparator(KeySeparator, key);
  for (int position = 1; position <= parameters.Size(); ++position) {
    const VEXTimeAnalysisFormulaParameter* const parameter = ParameterAt(parameters, position);
    if (parameter == nullptr) continue;
    if (parameter->_OwnerPLMId == parts[1] && parameter->_OwnerRow == parts[2]) return FormulaAt(parameters, position);
  }
  return std::nullopt;
}

// The formulas of a line, in the order of their first parameters. A formula is known by its key "owner|row", and what
// the key gives when it is cut at "|" names owner and row. So owners and rows with a "|" of their own may name another
// formula, or none, which has no part in the line.
std::vector<Formula> FormulasOf(const KORRawCollPV& parameters) {
  std::vector<Formula> formulas;
  std::unordered_set<std::string> keys;
  const VEXTimeAnalysisFormulaParameter* before = nullptr;
  for (int position = 1; position <= parameters.Size(); ++position) {
    const VEXTimeAnalysisFormulaParameter* const parameter = ParameterAt(parameters, position);
    if (parameter == nullptr || (before != nullptr && IsOfSameFormula(*parameter, *before))) continue;
    before = parameter;
    const std::string_view owner = parameter->_OwnerPLMId.Bytes();
    const std::string_view row = parameter->_OwnerRow.Bytes();
    const auto [key, is_new] = keys.insert(std::string(owner).append(KeySeparator).append(row));
    if (!is_new) continue;
    const bool is_plain = owner.find(KeySeparator) == owner.npos && row.find(KeySeparator) == row.npos;
    const std::optional<Formula> formula = is_plain ? FormulaAt(parameters, position) : FormulaOfKey(parameters, *key);
    if (formula) formulas.push_back(*formula);
  }
  return formulas;
}

// The analyses that a line reuses, each with its running time.
class RunningTimes {
 public:
  explicit RunningTimes(const KORBaseUnknown_var& reused_analysis) {
    ListAllReused(reused_analysis, {_Identifiers, _Times, _Analyses});
    for (int position = 1; position <= _Identifiers.Size(); ++position) {
      _Positions.try_emplace(_Identifiers[position].Bytes(), position);
    }
  }

  /// Position (from 1) of an identifier; 0 if it is not in the tables.
  int Locate(const KORUnicodeString& identifier) const {
    const auto found = _Positions.find(identifier.Bytes());
    return found == _Positions.end() ? 0 : found->second;
  }

  /// The analysis at a position; null at 0.
  KORBaseUnknown* AnalysisAt(int position) const { return position == 0 ? nullptr : _Analyses[position].Get(); }
  double TimeAt(int position) const { return _Times[position]; }
  /// Does nothing at position 0.
  void Add(int position, double time) {
    if (position > 0) _Times[position] += time;
  }

 private:
  KORListValKORUnicodeString _Identifiers;
  KORRawColldouble _Times;
  KORListValKORBaseUnknown_var _Analyses;
  std::unordered_map<std::string_view, int> _Positions;
};

// The row that a formula stands for in its owner: a parameter kind of 4 or 7 makes two rows of each. 0, which is no
// row, for one that is beyond all tables.
int TargetRow(const Formula& formula) {
  int row = 0;
  (void)formula.OwnerRow.ConvertToNum(row, "%d");
  std::int64_t target = row;
  if (formula.ParameterKind == 4) target = 2 * target - 1;
  if (formula.ParameterKind == 7) target = 2 * target;
  return std::in_range<int>(target) ? static_cast<int>(target) : 0;
}

class LineFormulas {
 public:
  LineFormulas(const KORRawCollPV& parameters, const KORUnicodeString& analysis_id,
               const KORBaseUnknown_var& reused_analysis, LineOutputs outputs)
      : _Parameters(parameters),
        _AnalysisId(analysis_id),
        _Reused(reused_analysis),
        _Outputs(outputs),
        _Times(reused_analysis) {}

  double Time() {
    const KORICkeParmFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
    const KORICkeExpressionFactory_var expressions = factory;
    for (const Formula& formula : FormulasOf(_Parameters)) {
      const KORICkeExpression_var expression = ExpressionOf(*ParameterAt(_Parameters, formula.Position), expressions);
      if (expression.IsNull()) return 0.0;
      const KORICkeEvaluator_var evaluator = expression;
      if (!evaluator.IsNull()) {
        const std::optional<FormulaRun> run = RunFormula(expression, evaluator, factory, _Parameters, formula.Position);
        if (!run) return 0.0;
        AddFormula(formula, *run);
      }
      AddPlainLinesOfOwner(formula);
    }
    return TimeOfUntouchedReusedAnalysis() + _Total;
  }

 private:
  // What the outputs of one formula say.
  struct Reading {
    double Time = 0.0;
    double Frequency = 1.0;
    bool FromReusedAnalysis = false;  // the time is the running time of what the formula's row reuses
  };

  bool IsOwn(const KORUnicodeString& owner_id) const { return _AnalysisId == owner_id; }

  void AddFormula(const Formula& formula, const FormulaRun& run) {
    KORBaseUnknown* const owner = _Times.AnalysisAt(_Times.Locate(formula.OwnerId));
    Reading reading;
    for (const KORICkeParm_var& output : run.Outputs) ReadOutput(formula, owner, output, reading);
    if (!run.HasTimeArgument && reading.Time <= 0.0 && !IsOwn(formula.OwnerId)) {
      reading.Time = TimeOfLine(TargetRow(formula), owner);
    }
    if (!IsOwn(formula.OwnerId)) reading.Time *= reading.Frequency;
    // The running time of a reused analysis holds all that was found before it, so it takes the place of the sum.
    _Total = reading.FromReusedAnalysis ? reading.Time : _Total + reading.Time;
    _Times.Add(_Times.Locate(formula.OwnerId), reading.Time);
  }

  void ReadOutput(const Formula& formula, KORBaseUnknown* owner, const KORICkeParm_var& output, Reading& reading) {
    const KORUnicodeString& role = output->RoleName();
    if (role == "Time") {
      reading.Time += ReadTime(formula, owner, output->Value()->AsReal(), reading.FromReusedAnalysis);
    } else if (role == "Frequency") {
      reading.Frequency = ReadFrequency(formula, owner, output->Value()->AsReal());
      if (IsOwn(formula.OwnerId) && KORUnicodeString::FromReal(reading.Frequency) != "-1") {
        _Outputs.Frequency = reading.Frequency;
      }
    } else if (role == "Description") {
      const KORUnicodeString description = output->Value()->AsString();
      if (IsOwn(formula.OwnerId) && !description.IsEmpty()) _Outputs.Description = description;
    }
  }

  // A reused formula that leaves its time open takes that of its row.
  double ReadTime(const Formula& formula, KORBaseUnknown* owner, double time, bool& from_reused_analysis) const {
    if (!(time <= 0.0) || IsOwn(formula.OwnerId)) return time;
    const int row = TargetRow(formula);
    const KORBaseUnknown_var reused = ReusedAnalysisOfRow(row, KORBaseUnknown_var(owner));
    const int position = reused.IsNull() ? 0 : _Times.Locate(IdentifierOf(reused.Get()));
    if (position > 0) {
      time = _Times.TimeAt(position);
      from_reused_analysis = true;
    }
    return from_reused_analysis ? time : TimeOfLine(row, owner);
  }

  // A reused formula that leaves its frequency open takes that of its row.
  double ReadFrequency(const Formula& formula, KORBaseUnknown* owner, double frequency) const {
    if (frequency != -1.0 || IsOwn(formula.OwnerId) || owner == nullptr) return frequency;
    return FrequencyOfLine(TargetRow(formula), owner);
  }

  // The plain lines of an owner count when its formulas begin; if they begin again further on, they count again.
  void AddPlainLinesOfOwner(const Formula& formula) {
    const int position = _Times.Locate(formula.OwnerId);
    if (position == 0 || _LastOwner == formula.OwnerId) return;
    _LastOwner = formula.OwnerId;
    const double time = TimeOfPlainLines(_Times.AnalysisAt(position));
    _Total += time;
    _Times.Add(position, time);
  }

  // A reused analysis that no formula touched counts with its plain lines.
  double TimeOfUntouchedReusedAnalysis() {
    if (_Reused.IsNull()) return 0.0;
    const int position = _Times.Locate(IdentifierOf(_Reused.Get()));
    if (position == 0 || !(_Times.TimeAt(position) <= 0.0)) return 0.0;
    return TimeOfPlainLines(_Reused.Get());
  }

  const KORRawCollPV& _Parameters;
  const KORUnicodeString& _AnalysisId;
  const KORBaseUnknown_var& _Reused;
  LineOutputs _Outputs;
  RunningTimes _Times;
  KORUnicodeString _LastOwner;
  double _Total = 0.0;
};

}  // namespace

double TimeOfFormulaLine(const KORRawCollPV& parameters, const KORUnicodeString& analysis_id,
                         const KORBaseUnknown_var& reused_analysis, LineOutputs outputs) {
  if (parameters.Size() == 0) return 0.0;
  return LineFormulas(parameters, analysis_id, reused_analysis, outputs).Time();
}

}  // namespace calculation
