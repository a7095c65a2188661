// Codes looked up one by one in the catalogue of one system.
#pragma once

#include <string>
#include <string_view>

#include "VEXSTMTimeAnalysisDlgServices.h"

namespace tool {

/// What the catalogue says about a code. Texts are empty if the code was not found.
struct CodeAnswer {
  KORUnicodeString Code;  // as typed
  bool Found = false;
  KORUnicodeString Time;  // as the lookup prints it: "0" for an unknown code, empty for an empty one
  double Tmu = 0.0;       // the number of that text
  KORUnicodeString Description;
  KORUnicodeString LocalDescription;
  KORUnicodeString TimeType;
  KORUnicodeString Frequency;
  KORUnicodeString ValueAdded;
  KORUnicodeString CodeId;
  int Entry = -1;     // that answers, from 0
  long OptionId = 0;  // the bits of the options that the code selects
};

/// Looks a code up in the service's entry table. Answers never depend on the lookups before.
CodeAnswer LookUpCode(VEXSTMTimeAnalysisDlgServices& service, std::string_view code);

/// True if an entry of the table accepts the code.
bool IsKnownCode(VEXSTMTimeAnalysisDlgServices& service, std::string_view code);

/// Units in which the tool shows times: codes of VEXSTMTimeAnalysisDlgServices::UnitConvertor.
enum class DisplayUnit : int { Seconds = 0, Minutes = 1, Hours = 2, Mod = 14 };

/// TMU in another unit by the service's conversion, to 6 decimals as stored times have them, hours to 8. What the
/// rounding cannot carry, beyond 32 bits before the point or no number, is converted and not rounded.
double TimeInUnit(const VEXSTMTimeAnalysisDlgServices& service, double tmu, DisplayUnit unit);

}  // namespace tool
