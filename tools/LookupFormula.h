// The formula behind the time of a code: lookups tell the time alone, and give 0 where the formula fails.
#pragma once

#include <string>
#include <string_view>

#include "VEXSTMTimeAnalysisDlgServices.h"

namespace tool {

struct LookupFormula {
  std::string Text;    // numbers filled in, times of options added
  int Status = 0;      // of its evaluation
  double Value = 0.0;  // in the unit of the entry file
};

/// Puts the formula of a code together as its lookup did, and evaluates it. `entry` (from 0) is the one that answered.
/// Looks at every entry of the table: meant for the few codes whose time is in doubt.
LookupFormula EvaluateLookupFormula(VEXSTMTimeAnalysisDlgServices& service, std::string_view code, int entry);

/// "entry 3 (PTUSEC)"; `index` counts from 0.
std::string EntryName(const VEXSTMTimeAnalysisDlgServices& service, int index);

}  // namespace tool
