// The formulas of one line: evaluated with the values of the line's parameters, and added up over the reuse tree.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

namespace calculation {

/// What a formula of the line's own analysis delivers back beside the time.
struct LineOutputs {
  double& Frequency;
  KORUnicodeString& Description;
};

/// Time of the line for one occurrence; see VEXSTMTimeAnalysisDlgServices::CalculateFormulaOnLineService.
double TimeOfFormulaLine(const KORRawCollPV& parameters, const KORUnicodeString& analysis_id,
                         const KORBaseUnknown_var& reused_analysis, LineOutputs outputs);

}  // namespace calculation
