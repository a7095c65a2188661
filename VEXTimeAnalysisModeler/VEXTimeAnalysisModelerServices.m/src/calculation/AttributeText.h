// Attributes of any object as text.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"

namespace calculation {

/// See VEXSTMTimeAnalysisDlgServices::GetValue.
long AttributeText(const KORBaseUnknown_var& object, const KORUnicodeString& name, KORUnicodeString& text);

}  // namespace calculation
