// A time in JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tools/analysis/AnalysisResult.h"

namespace tool {

/// An object of "tmu" and "seconds", to six decimals; null for no time.
nlohmann::ordered_json TimeJson(const std::optional<double>& tmu, const VEXSTMTimeAnalysisDlgServices& services);

/// An object of the five totals, by their names.
nlohmann::ordered_json TotalsJson(const TotalsOfAnalysis& totals, const VEXSTMTimeAnalysisDlgServices& services);

}  // namespace tool
