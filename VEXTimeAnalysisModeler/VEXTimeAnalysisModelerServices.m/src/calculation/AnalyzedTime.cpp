// The calculation of a whole analysis.
#include "calculation/AnalyzedTime.h"

#include <array>
#include <cstddef>

#include "calculation/LineFormula.h"
#include "calculation/LineKeys.h"
#include "calculation/ReuseTree.h"
#include "calculation/TimeTypes.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "timevalue/TimeUnits.h"

namespace calculation {

namespace {

constexpr double StoredDecimals = 6.0;

// The sums of an analysis in TMU.
class Sums {
 public:
  void Add(Sum which, double tmu) { _Tmu[static_cast<std::size_t>(which)] += tmu; }
  double operator[](Sum which) const { return _Tmu[static_cast<std::size_t>(which)]; }

 private:
  std::array<double, SumCount> _Tmu{};
};

// What the calculation reads of a line before it changes any of it.
struct LineInput {
  KORRawCollPV Parameters;
  KORUnicodeString Code;
  KORUnicodeString TimeType;
  KORBaseUnknown_var Reused;

  explicit LineInput(const VEXTimeAnalysisLineData& line) {
    (void)line.GetValue(FormulaParameterKey, Parameters);
    (void)line.GetValue(CodeKey, Code);
    (void)line.GetValue(TimeTypeKey, TimeType);
    (void)line.GetValue(TimeAnalysisKey, Reused);
  }
};

// Reads a frequency over the one given; a negative one counts as 1.0.
void ReadFrequency(const VEXTimeAnalysisLineData& line, double& frequency) {
  (void)line.GetValue(FactorKey, frequency);
  if (frequency < 0.0) frequency = 1.0;
}

// Brings a formula line up to date in its record. A line without code or time type gets those that it counts under;
// the code read before stays empty, which leaves the line out of the sums.
void UpdateFormulaLine(const KORUnicodeString& analysis_id, LineInput& input, VEXTimeAnalysisLineData& line) {
  double frequency = 1.0;
  ReadFrequency(line, frequency);
  if (input.Code.IsEmpty()) (void)line.SetValue(CodeKey, KORUnicodeString(" "));
  if (input.TimeType.IsEmpty()) {
    input.TimeType = "TTB";
    (void)line.SetValue(TimeTypeKey, input.TimeType);
  }
  KORUnicodeString description;
  double time = TimeOfFormulaLine(input.Parameters, analysis_id, input.Reused, {frequency, description});
  if (input.Reused.IsNull() && time <= 0.0) (void)line.GetValue(TTBTimeKey, time);
  const double total = time * frequency;
  (void)line.SetValue(FactorKey, frequency);
  (void)line.SetValue(FrequencyStringKey, KORUnicodeString::FromReal(frequency));
  if (!description.IsEmpty()) (void)line.SetValue(DescriptionKey, description);
  if (const TimeType* const type = FindTimeType(input.TimeType.Bytes()); type != nullptr) {
    (void)line.SetValue(type->LineTime, time);
    (void)line.SetValue(TotalTimeKey, total);
  }
}

// Adds a line to the sums. `frequency` comes in from the line before and stays if this one has none.
void AddLine(const VEXTimeAnalysisLineData& line, const KORUnicodeString& time_type, double seconds_per_tmu,
             double& frequency, Sums& sums) {
  ReadFrequency(line, frequency);
  if (const TimeType* const type = FindTimeType(time_type.Bytes()); type != nullptr) {
    double time = 0.0;
    (void)line.GetValue(type->LineTime, time);
    sums.Add(type->AddsTo, time / seconds_per_tmu * frequency);
  }
  double total = 0.0;
  (void)line.GetValue(TotalTimeKey, total);
  if (total < 0.0) total = 0.0;
  sums.Add(Sum::Total, total / seconds_per_tmu);
}

Sums CalculateLines(const VEXITimeAnalysisLines_var& lines, const KORUnicodeString& analysis_id,
                    double seconds_per_tmu) {
  Sums sums;
  double frequency = 0.0;
  int count = 0;
  (void)lines->GetLineCount(count);
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= count; ++row) {
    (void)lines->GetLine(row, line);
    LineInput input(line);
    if (input.Code != "*") {
      if (input.Parameters.Size() > 0) UpdateFormulaLine(analysis_id, input, line);
      if (!input.Code.IsEmpty()) {
        AddLine(line, input.TimeType, seconds_per_tmu, frequency, sums);
        (void)lines->SetLine(row, line);
      }
    }
    line.ClearFormulaAndParamters();
  }
  return sums;
}

// The status of the last write.
long WriteSums(const Sums& sums, double seconds_per_tmu, const VEXITimeAnalysisRepReference_var& attributes) {
  for (const SumAttributes& sum : SumsOfAnalysis) (void)attributes->SetValue(sum.Tmu, sums[sum.Which]);
  long status = S_OK;
  for (const SumAttributes& sum : SumsOfAnalysis) {
    const double seconds = timevalue::RoundOff(seconds_per_tmu * sums[sum.Which], StoredDecimals);
    status = attributes->SetValue(sum.Seconds, seconds);
  }
  return status;
}

}  // namespace

long CalculateAnalysis(const KORBaseUnknown_var& analysis, double seconds_per_tmu) {
  const VEXITimeAnalysisRepReference_var attributes = analysis;
  if (attributes.IsNull()) return E_FAIL;
  const KORUnicodeString analysis_id = IdentifierOf(analysis.Get());
  const VEXITimeAnalysisLines_var lines = analysis;
  if (lines.IsNull()) return E_FAIL;
  return WriteSums(CalculateLines(lines, analysis_id, seconds_per_tmu), seconds_per_tmu, attributes);
}

}  // namespace calculation
