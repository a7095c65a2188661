// Classes of characters, from the tables of Unicode.
#include "platform/base/KORUnicodeChar.h"

#include <utf8proc.h>

bool KORUnicodeChar::IsAlpha(char32_t character) {
  if (character < 0x80) return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
  if (character > 0x10FFFF) return false;
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
      return true;
    default:
      return false;
  }
}

bool KORUnicodeChar::IsDigit(char32_t character) {
  return character >= '0' && character <= '9';
}
