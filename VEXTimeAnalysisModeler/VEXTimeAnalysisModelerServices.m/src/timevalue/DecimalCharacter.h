// Number texts between the "." notation and the decimal character of the user's locale.
#pragma once

#include "platform/base/KORUnicodeString.h"

namespace timevalue {

/// As VEXSTMTimeAnalysisDlgServices::GetStringWithDotDecimalChar.
long ToDotDecimalCharacter(KORUnicodeString& text);

/// As VEXSTMTimeAnalysisDlgServices::GetStringWithLocalDecimalChar.
long ToLocalDecimalCharacter(KORUnicodeString& text);

}  // namespace timevalue
