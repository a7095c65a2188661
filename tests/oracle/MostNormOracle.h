// The plain conversions between the two text forms of a MOST sequence: the code form, A1-1 B0-1 A1-3, with a frequency
// on every parameter, and the norm format, A1B0(A1), with the repeated parameters in brackets. They are the yardsticks
// for the norm conversions.
#pragma once

#include <string>
#include <vector>

#include "ModaptsNormOracle.h"

namespace oracle {

/// Norm format of a code form; the brackets stand around the parameters whose frequency is the printed value of the
/// frequency formula. A parameter without "-" has the empty frequency.
std::string ConvertToMostNorm(const std::string& code, const std::string& frequency,
                              const TimeFromFormula& time_from_formula);

/// Norm format of a code form with the brackets where the flags are set, one flag for each parameter; parameters
/// without a flag are dropped.
std::string ConvertToMostNorm(const std::string& code, const std::string& frequency,
                              const std::vector<bool>& bracket_flags, const TimeFromFormula& time_from_formula);

/// Code form of a norm format; the frequency text goes on the bracketed parameters as it stands.
std::string GetMostCodeFromNorm(const std::string& norm, const std::string& frequency);

}  // namespace oracle
