// The locale that number input uses on the calling thread.
#include "platform/base/KORLocale.h"

#include <langinfo.h>

#include <cstring>
#include <cwchar>

wchar_t KORLocalDecimalCharacter() {
  const char* bytes = nl_langinfo(RADIXCHAR);
  const auto first = static_cast<unsigned char>(bytes[0]);
  if (first < 0x80) return static_cast<wchar_t>(first);
  wchar_t character = L'\0';
  std::mbstate_t state{};
  const std::size_t length = std::mbrtowc(&character, bytes, std::strlen(bytes), &state);
  return length == static_cast<std::size_t>(-1) || length == static_cast<std::size_t>(-2) ? L'\0' : character;
}
