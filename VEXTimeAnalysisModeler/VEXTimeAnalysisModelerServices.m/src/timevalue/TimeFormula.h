// The time formula of a data card: the decimal character and the floor rules of the motion-time systems around the
// evaluator.
#pragma once

#include "platform/base/KORUnicodeString.h"

namespace timevalue {

/// Value of a formula in the unit of its data card; `system` is the name of the motion-time system in force.
/// Statuses and rules as VEXSTMTimeAnalysisDlgServices::GetTimeFromFormula tells.
double TimeOfFormula(KORUnicodeString formula, const KORUnicodeString& system, int& status);

/// True for the systems whose sequences are summed by the function "MOST": "MOST", "MiniMOST" and "MaxiMOST".
bool IsMostSystem(const KORUnicodeString& system);

}  // namespace timevalue
