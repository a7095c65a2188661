// The calculation of a whole analysis: formula lines brought up to date, lines stored, totals written.
#pragma once

#include "platform/base/KORHandle.h"

namespace calculation {

/// See VEXSTMTimeAnalysisDlgServices::CalculateAnalyzedTimeBG.
long CalculateAnalysis(const KORBaseUnknown_var& analysis, double seconds_per_tmu);

}  // namespace calculation
