// The formulas of one line: each formula occurrence once, in the order of the list, and the plain lines beside them.
#include <algorithm>

#include "CalculationOracle.h"
#include "OracleText.h"

namespace oracle {
namespace {

constexpr int OutputMode = 2;

// One formula occurrence under evaluation.
struct Occurrence {
  std::string owner_id;
  std::string row_text;
  std::size_t owner_index = 0;       // position of the owner in the tables, 0 if it isn't there
  const Analysis* owner = nullptr;   // null if it isn't there
  std::size_t begin = 0;             // index of the first parameter in the list
  FormulaParameter first;            // the first parameter itself
  bool has_time_argument = false;    // the signature names "Time", as an input or an output
  std::vector<FormulaValue> values;  // as handed to the engine
  std::vector<std::size_t> outputs;  // indices of the outputs among the values
  double time = 0.0;
  double frequency = 1.0;
  bool reused_hit = false;  // the time came from a reused analysis
};

// All formulas of one line under evaluation.
class FormulaWalk {
 public:
  FormulaWalk(const FormulaParameters& parameters, const std::string& analysis_id, double& frequency,
              std::string& description, Engine& engine)
      : _Parameters(parameters),
        _AnalysisId(analysis_id),
        _Frequency(frequency),
        _Description(description),
        _Engine(engine) {}

  double Calculate(const Analysis* reused);

 private:
  std::vector<std::string> CollectKeys() const;
  bool VisitKey(const std::string& key);
  bool FindFirstParameter(Occurrence& occurrence) const;
  bool Evaluate(Occurrence& occurrence, const std::vector<FormulaArgument>& arguments);
  bool Feed(Occurrence& occurrence, const std::vector<FormulaArgument>& arguments);
  void Run(Occurrence& occurrence);
  void ReadOutputs(Occurrence& occurrence);
  void ReadTime(Occurrence& occurrence, const FormulaValue& output);
  void ReadFrequency(Occurrence& occurrence, const FormulaValue& output);
  void ReadDescription(const Occurrence& occurrence, const FormulaValue& output);
  void TakeTimeOfRow(Occurrence& occurrence);
  void WeighAndAdd(Occurrence& occurrence);
  void AddPlainLines(const Occurrence& occurrence);
  double TimeOfUntouched(const Analysis* reused);
  bool OwnedElsewhere(const Occurrence& occurrence) const { return _AnalysisId != occurrence.first.owner_id; }
  static long TargetRow(const Occurrence& occurrence);

  const FormulaParameters& _Parameters;
  const std::string& _AnalysisId;
  double& _Frequency;
  std::string& _Description;
  Engine& _Engine;
  ReuseTables _Tables;
  std::string _LastOwner;
  double _Total = 0.0;
};

double FormulaWalk::Calculate(const Analysis* reused) {
  // No formula, no time.
  if (_Parameters.empty()) return 0.0;
  const std::vector<std::string> keys = CollectKeys();
  AllLevelReusedIds(reused, _Tables);
  for (const std::string& key : keys) {
    // What has been summed up so far is lost when a formula can't be evaluated.
    if (!VisitKey(key)) return 0.0;
  }
  const double extra = TimeOfUntouched(reused);
  return extra + _Total;
}

// One key per formula occurrence, in the order of the list.
std::vector<std::string> FormulaWalk::CollectKeys() const {
  std::vector<std::string> keys;
  for (const std::optional<FormulaParameter>& parameter : _Parameters) {
    if (!parameter) continue;
    const std::string key = parameter->owner_id + "|" + parameter->owner_row;
    if (std::find(keys.begin(), keys.end(), key) == keys.end()) keys.push_back(key);
  }
  return keys;
}

// False: the whole calculation ends with 0.0.
bool FormulaWalk::VisitKey(const std::string& key) {
  Occurrence occurrence;
  // A bar inside an identifier cuts it: what stands behind the second bar is lost.
  const std::vector<std::string> pieces = CutAt('|', key);
  occurrence.owner_id = pieces[0];
  occurrence.row_text = pieces[1];
  occurrence.owner_index = _Tables.Locate(occurrence.owner_id);
  // Only a key that was cut elsewhere than between its two parts can belong to no parameter; it is passed over.
  if (!FindFirstParameter(occurrence)) return true;
  if (occurrence.owner_index > 0) occurrence.owner = _Tables.analyses[occurrence.owner_index - 1];
  // An expression without signature, or an invalid one, ends everything.
  const std::string& signature = occurrence.first.signature;
  const std::string& body = occurrence.first.body;
  const std::optional<std::vector<FormulaArgument>> arguments = _Engine.SignatureOf(signature, body);
  if (!arguments) return false;
  if (!_Engine.IsValid(signature, body)) return false;
  // Without an evaluator this formula adds nothing, but the plain lines of its owner still do.
  if (_Engine.OffersEvaluator(signature, body) && !Evaluate(occurrence, *arguments)) return false;
  AddPlainLines(occurrence);
  return true;
}

bool FormulaWalk::FindFirstParameter(Occurrence& occurrence) const {
  for (std::size_t index = 0; index < _Parameters.size(); ++index) {
    const std::optional<FormulaParameter>& parameter = _Parameters[index];
    if (!parameter) continue;
    if (parameter->owner_row == occurrence.row_text && parameter->owner_id == occurrence.owner_id) {
      occurrence.begin = index;
      occurrence.first = *parameter;
      return true;
    }
  }
  return false;
}

// False: the whole calculation ends with 0.0.
bool FormulaWalk::Evaluate(Occurrence& occurrence, const std::vector<FormulaArgument>& arguments) {
  if (!Feed(occurrence, arguments)) return false;
  Run(occurrence);
  ReadOutputs(occurrence);
  TakeTimeOfRow(occurrence);
  WeighAndAdd(occurrence);
  return true;
}

// The arguments take the parameters from the first one onward, whoever owns them. False: a null entry is among them.
bool FormulaWalk::Feed(Occurrence& occurrence, const std::vector<FormulaArgument>& arguments) {
  std::size_t next = occurrence.begin;
  for (const FormulaArgument& argument : arguments) {
    if (next >= _Parameters.size()) break;
    const std::optional<FormulaParameter>& parameter = _Parameters[next++];
    if (!parameter) return false;
    if (argument.name == "Time") occurrence.has_time_argument = true;
    FormulaValue value;
    value.name = parameter->name;
    if (parameter->value_type == "Integer") {
      int number = 0;
      ScanInteger(parameter->value_text.c_str(), number);
      value.kind = FormulaValue::Kind::Integer;
      value.value = number;
    } else if (parameter->value_type == "String") {
      value.kind = FormulaValue::Kind::Text;
      value.value = parameter->value_text;
    } else {
      double number = 0.0;
      ScanReal(parameter->value_text.c_str(), number);
      const bool real = parameter->value_type == "Real";
      value.kind = real ? FormulaValue::Kind::Real : FormulaValue::Kind::Dimension;
      if (!real) value.magnitude = parameter->value_type;
      value.value = number;
    }
    occurrence.values.push_back(value);
    if (argument.mode == OutputMode) occurrence.outputs.push_back(occurrence.values.size() - 1);
  }
  return true;
}

// A run that fails leaves the outputs with the values that they were made with; nobody asks whether it failed.
void FormulaWalk::Run(Occurrence& occurrence) {
  const auto results = _Engine.Run(occurrence.first.signature, occurrence.first.body, occurrence.values);
  if (!results) return;
  for (const std::size_t output : occurrence.outputs) occurrence.values[output] = results->at(output);
}

// Each output plays the role that its parameter names.
void FormulaWalk::ReadOutputs(Occurrence& occurrence) {
  for (const std::size_t index : occurrence.outputs) {
    const FormulaValue output = occurrence.values[index];
    if (output.name == "Time") {
      ReadTime(occurrence, output);
    } else if (output.name == "Frequency") {
      ReadFrequency(occurrence, output);
    } else if (output.name == "Description") {
      ReadDescription(occurrence, output);
    }
  }
}

void FormulaWalk::ReadTime(Occurrence& occurrence, const FormulaValue& output) {
  double time = _Engine.RealOf(output);
  // A formula of another analysis that yields no time takes that of the row which it stands for: the running time of
  // the analysis that the row reuses, or else the stored time of the row.
  if (time <= 0.0 && OwnedElsewhere(occurrence)) {
    const long row = TargetRow(occurrence);
    if (occurrence.owner != nullptr) {
      const Analysis* below = ReusedAnalysisOfRow(row, occurrence.owner);
      const std::size_t position = below == nullptr ? 0 : _Tables.Locate(IdentifierOf(below));
      if (position > 0) {
        time = _Tables.times[position - 1];
        occurrence.reused_hit = true;
      }
    }
    if (!occurrence.reused_hit) time = TimeOfLine(row, occurrence.owner);
  }
  occurrence.time += time;
}

void FormulaWalk::ReadFrequency(Occurrence& occurrence, const FormulaValue& output) {
  occurrence.frequency = _Engine.RealOf(output);
  // The marker of a missing frequency asks for that of the row, which is taken as it stands.
  if (occurrence.frequency == -1.0 && OwnedElsewhere(occurrence)) {
    const long row = TargetRow(occurrence);
    if (occurrence.owner != nullptr) occurrence.frequency = FrequencyOfLine(row, occurrence.owner);
  }
  // A formula of the line's own analysis tells the line its frequency, unless that prints like the marker.
  if (_AnalysisId == occurrence.owner_id && PrintReal(occurrence.frequency) != "-1") _Frequency = occurrence.frequency;
}

void FormulaWalk::ReadDescription(const Occurrence& occurrence, const FormulaValue& output) {
  const std::string text = _Engine.TextOf(output);
  if (_AnalysisId == occurrence.owner_id && !text.empty()) _Description = text;
}

// A formula of another analysis that doesn't speak of time at all takes the stored time of its row.
void FormulaWalk::TakeTimeOfRow(Occurrence& occurrence) {
  if (occurrence.has_time_argument || !(occurrence.time <= 0.0) || !OwnedElsewhere(occurrence)) return;
  occurrence.time = 0.0;
  if (occurrence.owner != nullptr) occurrence.time = TimeOfLine(TargetRow(occurrence), occurrence.owner);
}

void FormulaWalk::WeighAndAdd(Occurrence& occurrence) {
  // The frequency of a formula of the line's own analysis is applied by the caller.
  if (_AnalysisId != occurrence.owner_id) occurrence.time *= occurrence.frequency;
  // The running time of a reused analysis stands for all that was summed up before it.
  if (occurrence.reused_hit) {
    _Total = occurrence.time;
  } else {
    _Total += occurrence.time;
  }
  if (occurrence.owner_index > 0 && occurrence.owner_index <= _Tables.ids.size()) {
    _Tables.times[occurrence.owner_index - 1] += occurrence.time;
  }
}

// The plain lines of an owner count when its formulas begin, and again when they begin anew behind another owner's.
void FormulaWalk::AddPlainLines(const Occurrence& occurrence) {
  if (occurrence.owner_index == 0 || _LastOwner == occurrence.first.owner_id) return;
  _LastOwner = occurrence.first.owner_id;
  const double plain = TotalTimeOfNonFormulaCode(occurrence.owner);
  _Total += plain;
  _Tables.times[occurrence.owner_index - 1] += plain;
}

// A reused analysis that no formula has brought any time gives the time of its plain lines.
double FormulaWalk::TimeOfUntouched(const Analysis* reused) {
  double extra = 0.0;
  if (reused == nullptr) return extra;
  const std::size_t position = _Tables.Locate(IdentifierOf(reused));
  if (position > 0 && _Tables.times[position - 1] <= 0.0) {
    const double plain = TotalTimeOfNonFormulaCode(reused);
    _Tables.times[position - 1] = plain;
    extra = plain;
  }
  return extra;
}

// The row that a formula stands for; an unreadable text is row 0. Two parameter kinds stand for the rows of a table
// with two rows per formula.
long FormulaWalk::TargetRow(const Occurrence& occurrence) {
  int row = 0;
  ScanInteger(occurrence.row_text.c_str(), row);
  if (occurrence.first.kind == 4) return 2L * row - 1;
  if (occurrence.first.kind == 7) return 2L * row;
  return row;
}

}  // namespace

std::vector<std::string> CutAt(char separator, std::string text) {
  std::vector<std::string> pieces;
  std::size_t position = text.find(separator);
  if (position == std::string::npos) {
    if (!text.empty()) pieces.push_back(text);
    return pieces;
  }
  while (position != std::string::npos) {
    pieces.push_back(text.substr(0, position));
    text.erase(0, position + 1);
    position = text.find(separator);
  }
  // What remains is a piece, even if nothing remains.
  pieces.push_back(text);
  return pieces;
}

double Engine::RealOf(const FormulaValue& value) {
  if (const int* number = std::get_if<int>(&value.value)) return *number;
  if (const double* number = std::get_if<double>(&value.value)) return *number;
  return 0.0;
}

std::string Engine::TextOf(const FormulaValue& value) {
  if (const int* number = std::get_if<int>(&value.value)) return PrintInteger(*number);
  if (const double* number = std::get_if<double>(&value.value)) return PrintReal(*number);
  return std::get<std::string>(value.value);
}

double FormulaOnLine(const FormulaParameters& parameters, const std::string& analysis_id, const Analysis* reused,
                     double& frequency, std::string& description, Engine& engine) {
  return FormulaWalk(parameters, analysis_id, frequency, description, engine).Calculate(reused);
}

}  // namespace oracle
