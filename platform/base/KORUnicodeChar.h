// Classes of characters, independent of the process locale.
#pragma once

#include "platform/base/KORExport.h"

/// Tests on one character, given as its Unicode code point.
class KORPLATFORM_API KORUnicodeChar {
 public:
  /// True for every letter of Unicode (general categories L*).
  static bool IsAlpha(char32_t character);

  /// True for the decimal digits "0" to "9" and no others: number texts of the system are ASCII.
  static bool IsDigit(char32_t character);
};
