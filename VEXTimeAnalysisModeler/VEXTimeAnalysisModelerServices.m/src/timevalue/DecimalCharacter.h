// Number texts between the "." notation and the decimal character of the user's locale.
#pragma once

#include "platform/base/KORUnicodeString.h"

namespace timevalue {

/// As VEXSTMTimeAnalysisDlgServices::GetStringWithDotDecimalChar.
long ToDotDecimalCharacter(KORUnicodeString& text);

/// As VEXSTMTimeAnalysisDlgServices::GetStringWithLocalDecimalChar.
long ToLocalDecimalCharacter(KORUnicodeString& text);

/// The character to which a "." in a formula is converted, which its value depends on; U+0000 if it cannot be had.
wchar_t DecimalCharacterInForce();

}  // namespace timevalue
