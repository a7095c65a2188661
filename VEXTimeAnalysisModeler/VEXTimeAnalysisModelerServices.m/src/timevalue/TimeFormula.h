// The time formula of a data card: the decimal character and the floor rules of the motion-time systems around the
// evaluator.
#pragma once

#include <string_view>

namespace timevalue {

/// Value of a formula, a text in UTF-8, in the unit of its data card; `system` is the name of the motion-time system in
/// force. Statuses and rules as VEXSTMTimeAnalysisDlgServices::GetTimeFromFormula tells.
double TimeOfFormula(std::string_view formula, std::string_view system, int& status);

/// True for the systems whose sequences are summed by the function "MOST": "MOST", "MiniMOST" and "MaxiMOST".
bool IsMostSystem(std::string_view system);

}  // namespace timevalue
