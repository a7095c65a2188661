// The form in which lookups compare codes.
#include "tools/LookupForm.h"

#include "platform/base/KORUnicodeString.h"

namespace tool {

std::string LookupForm(std::string_view code) {
  KORUnicodeString form(code);
  form.ToUpper();
  form.Strip(KORUnicodeString::StripPlace::Everywhere, ' ');
  return std::string(form.Bytes());
}

}  // namespace tool
