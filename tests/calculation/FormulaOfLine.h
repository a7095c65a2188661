// The formulas of one line, calculated in one step.
#pragma once

#include <ostream>
#include <string>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace calculationtest {

/// What comes back from a line. Frequency and description are what they were before where nothing sets them.
struct LineResult {
  double time = 0.0;
  double frequency = 7.0;
  std::string description = "before";

  friend bool operator==(const LineResult&, const LineResult&) = default;
};

inline void PrintTo(const LineResult& result, std::ostream* stream) {
  *stream << "time " << result.time << ", frequency " << result.frequency << ", description \"" << result.description
          << "\"";
}

/// The formulas of a line of the analysis "A", which may reuse another one.
inline LineResult CalculateLine(support::ParameterList parameters, const KORBaseUnknown_var& reused = NULL_var,
                                const std::string& analysis_id = "A") {
  VEXSTMTimeAnalysisDlgServices services;
  LineResult result;
  KORRawCollPV lent = parameters.Lend();
  KORUnicodeString identifier(analysis_id);
  KORUnicodeString description(result.description);
  result.time = services.CalculateFormulaOnLineService(lent, identifier, reused, result.frequency, description);
  result.description = support::Text(description);
  return result;
}

/// The time alone.
inline double TimeOfFormulas(const support::ParameterList& parameters, const KORBaseUnknown_var& reused = NULL_var) {
  return CalculateLine(parameters, reused).time;
}

}  // namespace calculationtest
