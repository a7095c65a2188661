// Units, single lines, the tree of reused analyses, and the totals of a whole analysis.
#include "CalculationOracle.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "OracleText.h"

namespace oracle {
namespace {

// The whole part through a 32-bit integer; what doesn't fit there becomes the least one.
double WholePart(double value) {
  if (value > -2147483649.0 && value < 2147483648.0) return static_cast<double>(static_cast<std::int32_t>(value));
  return static_cast<double>(std::numeric_limits<std::int32_t>::min());
}

// Goes down from an analysis, with the analyses between it and the top on the path.
void GoDown(const Analysis* analysis, ReuseTables& tables, std::vector<const Analysis*>& path) {
  // Nothing, or no reference: nothing to list.
  if (analysis == nullptr || !analysis->offers_rep_reference) return;
  // The way has come round to where it passed before.
  if (std::find(path.begin(), path.end(), analysis) != path.end()) return;
  // The identifier is read through the properties, which must be there.
  if (!analysis->offers_properties) throw NullHandle();
  const std::string id = analysis->identifier;
  // Each identifier is listed once, with a place for its running time and with the analysis that bore it first.
  if (tables.Locate(id) == 0) {
    tables.ids.push_back(id);
    tables.times.push_back(0.0);
    tables.analyses.push_back(analysis);
  }
  // Then every line that reuses an analysis leads down, whether its identifier is known or not.
  if (!analysis->offers_lines) throw NullHandle();
  path.push_back(analysis);
  for (const Line& line : analysis->lines) {
    if (line.reused != nullptr) GoDown(line.reused, tables, path);
  }
  path.pop_back();
}

// The five sums of an analysis, in TMU.
struct Sums {
  double ttb = 0.0;
  double ttu = 0.0;
  double tw = 0.0;
  double trg = 0.0;
  double total = 0.0;
};

// One analysis under calculation.
class AnalysisWalk {
 public:
  AnalysisWalk(Analysis& analysis, std::string analysis_id, double tmu_per_minute, Engine& engine)
      : _Analysis(analysis), _AnalysisId(std::move(analysis_id)), _TmuPerMinute(tmu_per_minute), _Engine(engine) {}

  void VisitLine(long row);
  void WriteTotals();

 private:
  void UpdateFormula(Line& record, std::string& time_type, const std::string& code);
  void StoreFormulaTimes(Line& record, const std::string& time_type, double time, double total);
  void CountLine(const Line& record, const std::string& time_type);
  double InTmu(const Line& record, const char* key) const;
  void WriteSeconds(const char* attribute, double sum);

  Analysis& _Analysis;
  std::string _AnalysisId;
  double _TmuPerMinute;
  Engine& _Engine;
  Sums _Sums;
  // Set once for all lines: a line without frequency takes that of the line before it.
  double _FactorOfLine = 0.0;
};

void AnalysisWalk::VisitLine(long row) {
  Line record = GetLine(_Analysis, row);
  std::string code;
  std::string time_type;
  ReadKey(record.values, "Code", code);
  ReadKey(record.values, "TimeType", time_type);
  // A line outside all totals: neither counted nor stored.
  if (code == "*") return;
  // Any parameter, a null one too, makes the line a formula line.
  if (!record.parameters.empty()) UpdateFormula(record, time_type, code);
  // A line without a code counts nowhere and isn't stored. The blank that the record of a formula line has got for its
  // code doesn't help it: the code as it was read decides.
  if (code.empty()) return;
  CountLine(record, time_type);
  _Analysis.lines[static_cast<std::size_t>(row - 1)] = record;
}

void AnalysisWalk::UpdateFormula(Line& record, std::string& time_type, const std::string& code) {
  // The frequency of the line, 1.0 if it has none; a negative one counts as 1.0.
  double frequency = 1.0;
  ReadKey(record.values, "Factor", frequency);
  if (frequency < 0.0) frequency = 1.0;
  // An empty code becomes a blank, in the record only.
  if (code.empty()) record.values["Code"] = std::string(" ");
  // An empty time type becomes TTB, in the record and for this calculation.
  if (time_type.empty()) {
    time_type = "TTB";
    record.values["TimeType"] = std::string("TTB");
  }
  // The formulas give the time of one occurrence, and may change the frequency and tell a description.
  std::string description;
  double time = FormulaOnLine(record.parameters, _AnalysisId, record.reused, frequency, description, _Engine);
  // Formulas that yield nothing leave the stored time standing, under TTB whatever the type, unless an analysis is
  // reused. Without a stored time the result stays as it came.
  if (record.reused == nullptr && time <= 0.0) ReadKey(record.values, "TTBTime", time);
  const double total = time * frequency;
  // The frequency goes back as a number and as a text; a description only if there is one.
  record.values["Factor"] = frequency;
  record.values["FrequencyString"] = PrintReal(frequency);
  if (!description.empty()) record.values["Description"] = description;
  StoreFormulaTimes(record, time_type, time, total);
}

void AnalysisWalk::StoreFormulaTimes(Line& record, const std::string& time_type, double time, double total) {
  // The time stands under the key of its type, beside the total; an unknown type gets neither.
  if (time_type == "TTB" || time_type == "T**") {
    record.values["TTBTime"] = time;
    record.values["TotalTime"] = total;
  } else if (time_type == "TTU") {
    record.values["TTUTime"] = time;
    record.values["TotalTime"] = total;
  } else if (time_type == "TW") {
    record.values["TWTime"] = time;
    record.values["TotalTime"] = total;
  } else if (time_type == "TRG") {
    record.values["TRGTime"] = time;
    record.values["TotalTime"] = total;
  }
}

void AnalysisWalk::CountLine(const Line& record, const std::string& time_type) {
  // The frequency of the line; without one, that of the line before stays. A negative one counts as 1.0.
  ReadKey(record.values, "Factor", _FactorOfLine);
  if (_FactorOfLine < 0.0) _FactorOfLine = 1.0;
  // The time of the line's type, in TMU, times the frequency. An unknown type adds nothing.
  if (time_type == "TTB" || time_type == "T**") {
    _Sums.ttb += InTmu(record, "TTBTime") * _FactorOfLine;
  } else if (time_type == "TTU") {
    _Sums.ttu += InTmu(record, "TTUTime") * _FactorOfLine;
  } else if (time_type == "TW") {
    _Sums.tw += InTmu(record, "TWTime") * _FactorOfLine;
  } else if (time_type == "TRG") {
    _Sums.trg += InTmu(record, "TRGTime") * _FactorOfLine;
  }
  // The total of the line counts under every type; a negative one marks a missing value.
  double total = 0.0;
  ReadKey(record.values, "TotalTime", total);
  if (total < 0.0) total = 0.0;
  _Sums.total += total / SecondsPerTmu(_TmuPerMinute);
}

double AnalysisWalk::InTmu(const Line& record, const char* key) const {
  double seconds = 0.0;
  ReadKey(record.values, key, seconds);
  return seconds / SecondsPerTmu(_TmuPerMinute);
}

void AnalysisWalk::WriteTotals() {
  // The sums as they are, in TMU.
  _Analysis.attributes["TTBCalculated"] = _Sums.ttb;
  _Analysis.attributes["TTUCalculated"] = _Sums.ttu;
  _Analysis.attributes["TWCalculated"] = _Sums.tw;
  _Analysis.attributes["TRGCalculated"] = _Sums.trg;
  _Analysis.attributes["TotalCalculated"] = _Sums.total;
  // The same sums in seconds, rounded.
  WriteSeconds("V_HumanTime", _Sums.ttb);
  WriteSeconds("V_MachineTime", _Sums.ttu);
  WriteSeconds("V_WaitingTime", _Sums.tw);
  WriteSeconds("V_SetupTime", _Sums.trg);
  WriteSeconds("V_TotalTime", _Sums.total);
}

void AnalysisWalk::WriteSeconds(const char* attribute, double sum) {
  _Analysis.attributes[attribute] = RoundOff(SecondsPerTmu(_TmuPerMinute) * sum, 6.0);
}

}  // namespace

Line GetLine(const Analysis& analysis, long row) {
  if (row < 1 || row > static_cast<long>(analysis.lines.size())) return {};
  return analysis.lines[static_cast<std::size_t>(row - 1)];
}

double SecondsPerTmu(double tmu_per_minute) {
  // No conversion set: the standard TMU.
  if (std::fabs(tmu_per_minute) == 0.0) return 0.036;
  const double seconds = 60.0 / tmu_per_minute;
  // What lies near the standard TMU is the standard TMU.
  if (std::fabs(seconds - 0.036) < 0.0001) return 0.036;
  return seconds;
}

double RoundOff(double value, double decimals) {
  const double power = std::pow(10.0, decimals);
  const double whole = WholePart(value);
  // Only the fraction is scaled; it goes to the nearer whole number, a tie goes up.
  const double fraction = (value - whole) * power;
  const double up = std::ceil(fraction);
  const double down = std::floor(fraction);
  const double rounded = up - fraction > fraction - down ? down : up;
  return rounded / power + whole;
}

double TimeOfLine(long row, const Analysis* analysis) {
  double time = 0.0;
  if (analysis == nullptr || !analysis->offers_lines) return time;
  const Line line = GetLine(*analysis, row);
  std::string time_type;
  ReadKey(line.values, "TimeType", time_type);
  // The type names the key; the type T** names the total. Any other type has no time.
  if (time_type == "TTB") {
    ReadKey(line.values, "TTBTime", time);
  } else if (time_type == "TTU") {
    ReadKey(line.values, "TTUTime", time);
  } else if (time_type == "TW") {
    ReadKey(line.values, "TWTime", time);
  } else if (time_type == "TRG") {
    ReadKey(line.values, "TRGTime", time);
  } else if (time_type == "T**") {
    ReadKey(line.values, "TotalTime", time);
  }
  return time;
}

double FrequencyOfLine(long row, const Analysis* analysis) {
  double frequency = 1.0;
  if (analysis == nullptr || !analysis->offers_lines) return frequency;
  // The marker of a missing frequency comes back as it stands.
  ReadKey(GetLine(*analysis, row).values, "Factor", frequency);
  return frequency;
}

double TotalTimeOfNonFormulaCode(const Analysis* analysis) {
  double sum = 0.0;
  if (analysis == nullptr) return sum;
  if (!analysis->offers_lines) throw NullHandle();
  for (const Line& line : analysis->lines) {
    // A line with a formula doesn't count here.
    if (!line.parameters.empty()) continue;
    double time = 0.0;
    std::string time_type;
    ReadKey(line.values, "TimeType", time_type);
    // The type T** has no place here, nor has an unknown one.
    if (time_type == "TTB") ReadKey(line.values, "TTBTime", time);
    if (time_type == "TTU") ReadKey(line.values, "TTUTime", time);
    if (time_type == "TW") ReadKey(line.values, "TWTime", time);
    if (time_type == "TRG") ReadKey(line.values, "TRGTime", time);
    double frequency = 0.0;
    ReadKey(line.values, "Factor", frequency);
    // The marker counts as 1.0; other negative frequencies, zero and none add nothing.
    if (frequency == -1.0) {
      sum += 1.0 * time;
    } else if (frequency > 0.0) {
      sum += frequency * time;
    }
  }
  return sum;
}

std::size_t ReuseTables::Locate(const std::string& id) const {
  for (std::size_t position = 1; position <= ids.size(); ++position) {
    if (ids[position - 1] == id) return position;
  }
  return 0;
}

const Analysis* ReusedAnalysisOfRow(long row, const Analysis* analysis) {
  if (analysis == nullptr || !analysis->offers_lines) return nullptr;
  return GetLine(*analysis, row).reused;
}

bool HasReusedLine(const Analysis* analysis) {
  if (analysis == nullptr || !analysis->offers_rep_reference) return false;
  if (!analysis->offers_lines) return false;
  for (const Line& line : analysis->lines) {
    if (line.reused != nullptr) return true;
  }
  return false;
}

void AllLevelReusedIds(const Analysis* analysis, ReuseTables& tables) {
  std::vector<const Analysis*> path;
  GoDown(analysis, tables, path);
}

std::string IdentifierOf(const Analysis* analysis) {
  if (analysis == nullptr || !analysis->offers_properties) return {};
  return analysis->identifier;
}

long AnalyzedTime(Analysis* analysis, double tmu_per_minute, Engine& engine) {
  if (analysis == nullptr || !analysis->offers_rep_reference) return CalculationFailed;
  // Without properties the identifier stays empty.
  std::string analysis_id;
  if (analysis->offers_properties) analysis_id = analysis->identifier;
  if (!analysis->offers_lines) return CalculationFailed;
  AnalysisWalk walk(*analysis, analysis_id, tmu_per_minute, engine);
  const long count = static_cast<long>(analysis->lines.size());
  for (long row = 1; row <= count; ++row) walk.VisitLine(row);
  walk.WriteTotals();
  return 0;
}

}  // namespace oracle
