// Checks and cuts of number and parameter texts. Meaning and results as the members of VEXSTMTimeAnalysisDlgServices of
// the same purpose tell.
#pragma once

#include <string_view>

#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

namespace timevalue {

bool IsReal(const KORUnicodeString& text);
bool IsInteger(const KORUnicodeString& text);
KORListValKORUnicodeString CutAtSeparator(std::string_view separator, std::string_view text);
void SplitColor(const KORUnicodeString& color, int& red, int& green, int& blue);

}  // namespace timevalue
