// Time and frequency of one line, and of all plain lines of an analysis. Meaning and results as the members of
// VEXSTMTimeAnalysisDlgServices of the same purpose tell.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORList.h"

namespace calculation {

double TimeOfLine(int row, KORBaseUnknown* analysis);
double FrequencyOfLine(int row, KORBaseUnknown* analysis);
double TimeOfPlainLines(KORBaseUnknown* analysis);
void ReleaseLines(KORRawCollPV& lines);

}  // namespace calculation
