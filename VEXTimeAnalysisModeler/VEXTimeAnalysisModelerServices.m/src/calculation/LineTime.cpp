// Time and frequency of one line, and of all plain lines of an analysis.
#include "calculation/LineTime.h"

#include "calculation/LineKeys.h"
#include "platform/model/VEXITimeAnalysisLines.h"

namespace calculation {

namespace {

// Reads the time of a line for one occurrence; a time type that has no time of that kind leaves `time` as it is.
void ReadTimeOfOneOccurrence(const VEXTimeAnalysisLineData& line, const KORUnicodeString& time_type, double& time) {
  if (time_type == "TTB") {
    (void)line.GetValue(TTBTimeKey, time);
  } else if (time_type == "TTU") {
    (void)line.GetValue(TTUTimeKey, time);
  } else if (time_type == "TW") {
    (void)line.GetValue(TWTimeKey, time);
  } else if (time_type == "TRG") {
    (void)line.GetValue(TRGTimeKey, time);
  }
}

KORUnicodeString TimeTypeOf(const VEXTimeAnalysisLineData& line) {
  KORUnicodeString time_type;
  (void)line.GetValue(TimeTypeKey, time_type);
  return time_type;
}

double WeightedTimeOfPlainLine(const VEXTimeAnalysisLineData& line) {
  double time = 0.0;
  ReadTimeOfOneOccurrence(line, TimeTypeOf(line), time);
  double frequency = 0.0;
  (void)line.GetValue(FactorKey, frequency);
  if (frequency == NoFrequency) return 1.0 * time;
  return frequency > 0.0 ? frequency * time : 0.0;
}

}  // namespace

double TimeOfLine(int row, KORBaseUnknown* analysis) {
  double time = 0.0;
  const VEXITimeAnalysisLines_var lines(analysis);
  if (lines.IsNull()) return time;
  VEXTimeAnalysisLineData line;
  (void)lines->GetLine(row, line);
  const KORUnicodeString time_type = TimeTypeOf(line);
  ReadTimeOfOneOccurrence(line, time_type, time);
  if (time_type == "T**") (void)line.GetValue(TotalTimeKey, time);
  line.ClearFormulaAndParamters();
  return time;
}

double FrequencyOfLine(int row, KORBaseUnknown* analysis) {
  double frequency = 1.0;
  const VEXITimeAnalysisLines_var lines(analysis);
  if (lines.IsNull()) return frequency;
  VEXTimeAnalysisLineData line;
  (void)lines->GetLine(row, line);
  (void)line.GetValue(FactorKey, frequency);
  line.ClearFormulaAndParamters();
  return frequency;
}

double TimeOfPlainLines(KORBaseUnknown* analysis) {
  double sum = 0.0;
  if (analysis == nullptr) return sum;
  const VEXITimeAnalysisLines_var lines(analysis);
  int count = 0;
  (void)lines->GetLineCount(count);
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= count; ++row) {
    (void)lines->GetLine(row, line);
    KORRawCollPV parameters;
    (void)line.GetValue(FormulaParameterKey, parameters);
    if (parameters.Size() == 0) sum += WeightedTimeOfPlainLine(line);
    line.ClearFormulaAndParamters();
  }
  return sum;
}

void ReleaseLines(KORRawCollPV& lines) {
  for (void* const entry : lines) {
    auto* const line = static_cast<VEXTimeAnalysisLineData*>(entry);
    if (line == nullptr) continue;
    line->ClearFormulaAndParamters();  // here, as others may hold the record longer
    line->Release();
  }
  lines.RemoveAll();
}

}  // namespace calculation
