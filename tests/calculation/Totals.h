// The calculation of a whole analysis in one step, and its totals.
#pragma once

#include <limits>
#include <map>
#include <string>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/support/AnalysisBuilder.h"

namespace calculationtest {

/// Calculates an analysis at a site with that many TMU per minute (0: the standard).
inline long Calculate(const KORBaseUnknown_var& analysis, double tmu_per_minute = 0.0) {
  VEXSTMTimeAnalysisDlgServices services;
  services.SetMinToTMUConversionValue(tmu_per_minute);
  return services.CalculateAnalyzedTimeBG(analysis);
}

/// The ten totals by attribute; one that isn't set is no number.
using Totals = std::map<std::string, double>;

inline Totals TotalsOf(VEXITimeAnalysisRepReference& analysis) {
  Totals totals;
  for (const char* key : {"TTBCalculated", "TTUCalculated", "TWCalculated", "TRGCalculated", "TotalCalculated",
                          "V_HumanTime", "V_MachineTime", "V_WaitingTime", "V_SetupTime", "V_TotalTime"}) {
    totals[key] = support::RealOf(analysis, key).value_or(std::numeric_limits<double>::quiet_NaN());
  }
  return totals;
}

}  // namespace calculationtest
