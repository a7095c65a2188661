// What came out of an analysis.
#include "tools/analysis/AnalysisResult.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tools/NumberText.h"

namespace tool {

namespace {

struct UnitForm {
  std::string_view Name;
  std::string_view Heading;
  std::optional<DisplayUnit> Unit;
};
constexpr std::array UnitForms{UnitForm{"tmu", "TMU", std::nullopt}, UnitForm{"s", "s", DisplayUnit::Seconds},
                               UnitForm{"min", "min", DisplayUnit::Minutes}, UnitForm{"h", "h", DisplayUnit::Hours},
                               UnitForm{"mod", "MOD", DisplayUnit::Mod}};

constexpr std::array<const char*, TotalNames.size()> TotalKeys{"TTBCalculated", "TTUCalculated", "TWCalculated",
                                                               "TRGCalculated", "TotalCalculated"};

std::string TextOf(const VEXTimeAnalysisLineData& line, const char* key) {
  KORUnicodeString text;
  line.GetValue(key, text);
  return std::string(text.Bytes());
}

std::string AttributeOf(const BuiltAnalysis& built, const char* key) {
  KORUnicodeString text;
  built.Analysis->GetValue(key, text);
  return std::string(text.Bytes());
}

std::optional<double> RealOf(const VEXTimeAnalysisLineData& line, std::string_view key) {
  double number = 0.0;
  if (Failed(line.GetValue(KORString(key), number))) return std::nullopt;
  return number;
}

// A sub-folder stands for an operation.
std::string OperationOf(const std::string& name) {
  const std::size_t end = name.rfind('/');
  return end == std::string::npos ? std::string() : name.substr(0, end);
}

constexpr int StoredDecimals = 6;
constexpr double LargestRounded = std::numeric_limits<int>::max();

ResultLine ReadLine(const VEXTimeAnalysisLineData& line, RowState state,
                    const VEXSTMTimeAnalysisDlgServices& services) {
  ResultLine result;
  result.State = state;
  result.Code = TextOf(line, "Code");
  if (result.Code == " ") result.Code.clear();  // stands for a code that counts without being one
  result.Description = TextOf(line, "Description");
  result.AdditionalDescription = TextOf(line, "AddDescription");
  result.TimeType = TextOf(line, "TimeType");
  result.ValueAdded = TextOf(line, "ValueAdded");
  result.Picture = TextOf(line, "FormulaPicture");
  result.Frequency = RealOf(line, "Factor");
  KORBaseUnknown_var reused;
  line.GetValue("TimeAnalysis", reused);
  result.Reused = VEXSTMTimeAnalysisDlgServices::GetTAPLMExternalID(reused.Get()).Bytes();
  if (const auto seconds = RealOf(line, TimeKeyOf(result.TimeType))) {
    result.Tmu = services.ConvertFromSecToTmu(*seconds);
  }
  const auto total = RealOf(line, "TotalTime");
  if (total && state != RowState::Outside) result.TotalTmu = services.ConvertFromSecToTmu(*total);
  return result;
}

}  // namespace

AnalysisResult ReadResult(const AnalysisFolder::Member& member, const BuiltAnalysis& built,
                          const VEXSTMTimeAnalysisDlgServices& services) {
  AnalysisResult result;
  result.Path = member.File.GetPath();
  result.Identifier = member.Identifier;
  result.Operation = OperationOf(member.Name);
  result.Name = member.File.GetName();
  result.Description = member.File.GetDescription();
  result.System = AttributeOf(built, "V_Subsystem");
  result.FlawedRows = built.FlawedRows;
  result.IsComplete = built.IsComplete;
  VEXTimeAnalysisLineData line;
  for (std::size_t index = 0; index < built.Rows.size(); ++index) {
    built.Analysis->GetLine(static_cast<int>(index) + 1, line);
    result.Lines.push_back(ReadLine(line, built.Rows[index], services));
    result.Lines.back().FileLine = member.File.GetRows()[index].Line;
  }
  result.TotalsTmu = ReadTotals(built);
  return result;
}

TotalsOfAnalysis ReadTotals(const BuiltAnalysis& built) {
  TotalsOfAnalysis totals{};
  for (std::size_t index = 0; index < TotalKeys.size(); ++index) {
    built.Analysis->GetValue(TotalKeys[index], totals[index]);
  }
  return totals;
}

ResultUnit::ResultUnit(const VEXSTMTimeAnalysisDlgServices& services, std::string_view name) : _Services(services) {
  const auto found =
      std::find_if(UnitForms.begin(), UnitForms.end(), [name](const UnitForm& form) { return form.Name == name; });
  const UnitForm& form = found == UnitForms.end() ? UnitForms.front() : *found;
  _Name = form.Name;
  _Heading = form.Heading;
  _Unit = form.Unit;
}

double ResultUnit::Convert(double tmu) const {
  if (_Unit) return TimeInUnit(_Services, tmu, *_Unit);
  if (!(std::fabs(tmu) < LargestRounded)) return tmu;
  return NearestDecimal(VEXSTMTimeAnalysisDlgServices::RoundOffTimeValue(tmu, StoredDecimals), StoredDecimals);
}

}  // namespace tool
