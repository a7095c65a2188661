// The plain state machine that turns a MODAPTS text as typed into the code form with a frequency on every parameter,
// and the test whether a code is a sequence. They are the yardsticks for the norm conversions.
#pragma once

#include <functional>
#include <string>

namespace oracle {

/// Gives the value of a formula text; 0 for what can't be evaluated.
using TimeFromFormula = std::function<double(const std::string&)>;

/// Whether a code is a sequence of parameters: more than one letter, and the letters don't all stand together.
bool IsSequentialCode(const std::string& code);

/// The code form of a MODAPTS text; the text itself if it is no sequence; "0" if it can't be read.
/// A multiplier ended by a blank whose value leaves the range of a 32-bit integer counts as -2147483648.
std::string GetModaptsCode(const std::string& norm, const TimeFromFormula& time_from_formula);

}  // namespace oracle
