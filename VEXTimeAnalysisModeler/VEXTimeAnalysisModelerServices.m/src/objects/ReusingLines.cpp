// The lines of an analysis that reuse another one, brought up to date with it.
#include "objects/ReusingLines.h"

#include <vector>

#include "calculation/LineKeys.h"
#include "objects/ComponentsToSave.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace objects {

namespace {

using calculation::ExternalIdKey;
using calculation::FormulaParameterKey;
using calculation::TimeAnalysisKey;
using Line = KORHandle<VEXTimeAnalysisLineData>;

constexpr int Seconds = 0;  // as VEXSTMTimeAnalysisDlgServices::UnitConvertor numbers units
constexpr int StoredDecimals = 6;

Line NewLine() {
  return Line::Adopt(new VEXTimeAnalysisLineData);
}

// The formula parameters of all lines of an analysis, line by line, and the records that they belong to until a line
// takes them over.
class ParametersOfLines {
 public:
  explicit ParametersOfLines(const KORBaseUnknown_var& analysis) {
    const VEXITimeAnalysisLines_var lines = analysis;
    int count = 0;
    (void)lines->GetLineCount(count);
    Line line = NewLine();
    for (int row = 1; row <= count; ++row) {
      (void)lines->GetLine(row, *line);
      KORRawCollPV of_line;
      (void)line->GetValue(FormulaParameterKey, of_line);
      if (of_line.Size() == 0) continue;
      _All.Append(of_line);
      _Lines.push_back(line);
      line = NewLine();
    }
  }

  KORRawCollPV& All() { return _All; }

 private:
  KORRawCollPV _All;
  std::vector<Line> _Lines;
};

// The time of an analysis, its setup time on top of its total.
double SecondsOf(const KORBaseUnknown_var& analysis, const VEXSTMTimeAnalysisDlgServices& services) {
  const VEXITimeAnalysisRepReference_var attributes = analysis;
  double total = 0.0;
  double setup = 0.0;
  (void)attributes->GetValue(calculation::TotalCalculatedKey, total);
  (void)attributes->GetValue(calculation::TRGCalculatedKey, setup);
  return services.UnitConvertor(total + setup, Seconds, StoredDecimals);
}

// Gives a line the parameters and the time of the analysis that it reuses.
void Rewrite(const KORBaseUnknown_var& reused, const KORBaseUnknown_var& impacted,
             const VEXSTMTimeAnalysisDlgServices& services, VEXTimeAnalysisLineData& line) {
  ParametersOfLines parameters(reused);
  KORUnicodeString identifier;
  (void)VEXITimeAnalysisProperties_var(impacted)->GetValue(ExternalIdKey, identifier);
  parameters.All().Append(GetOwnParametersOnLine(line, identifier));
  (void)line.SetValue(FormulaParameterKey, parameters.All());
  const double seconds = SecondsOf(reused, services);
  (void)line.SetValue(calculation::TTBTimeKey, seconds);
  (void)line.SetValue(calculation::TotalTimeKey, seconds);
}

}  // namespace

void BringUpToDate(const KORBaseUnknown_var& impacted, const std::unordered_set<const KORBaseUnknown*>& changed,
                   VEXSTMTimeAnalysisDlgServices& services, KORListPtrKORIPLMComponent& components) {
  const VEXITimeAnalysisLines_var lines = impacted;
  if (lines.IsNull()) return;
  int count = 0;
  (void)lines->GetLineCount(count);
  bool is_changed = false;
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= count; ++row) {
    (void)lines->GetLine(row, line);
    KORBaseUnknown_var reused;
    (void)line.GetValue(TimeAnalysisKey, reused);
    if (!reused.IsNull() && changed.contains(reused->GetImpl(0))) {
      Rewrite(reused, impacted, services, line);
      (void)lines->SetLine(row, line);
      AppendComponent(impacted, components);
      is_changed = true;
    }
    (void)line.ClearFormulaAndParamters();
  }
  if (is_changed) (void)services.CalculateAnalyzedTimeBG(impacted);
}

KORRawCollPV GetOwnParametersOnLine(const VEXTimeAnalysisLineData& line, const KORUnicodeString& identifier) {
  KORRawCollPV parameters;
  (void)line.GetValue(FormulaParameterKey, parameters);
  KORRawCollPV own;
  for (void* const entry : parameters) {
    const auto* const parameter = static_cast<const VEXTimeAnalysisFormulaParameter*>(entry);
    if (parameter != nullptr && parameter->_OwnerPLMId == identifier) own.Append(entry);
  }
  return own;
}

}  // namespace objects
