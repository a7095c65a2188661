// Values as text.
#pragma once

#include <string_view>

#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORKeyedValues.h"

/// How booleans are written.
struct KORBooleanTexts {
  std::string_view True;
  std::string_view False;
};
inline constexpr KORBooleanTexts KORBooleanDigits{"1", "0"};
inline constexpr KORBooleanTexts KORBooleanWords{"TRUE", "FALSE"};

/// Reals are printed with as many digits as read back bit for bit, an object as its "PLM_ExternalID" (empty for null
/// and for an object that has none).
KORUnicodeString KORTextOfValue(const KORKeyedValues::View& value, const KORBooleanTexts& booleans);
