// Values as text.
#include "platform/model/KORValueText.h"

#include "platform/base/KORNumberText.h"
#include "platform/model/VEXITimeAnalysisProperties.h"

namespace {

struct Writer {
  KORBooleanTexts Booleans;

  KORUnicodeString operator()(std::string_view text) const { return KORUnicodeString(text); }
  KORUnicodeString operator()(double number) const { return KORUnicodeString(kornumber::PrintExactReal(number)); }
  KORUnicodeString operator()(int number) const { return KORUnicodeString::FromInteger(number); }
  KORUnicodeString operator()(unsigned char truth) const {
    return KORUnicodeString(truth != 0 ? Booleans.True : Booleans.False);
  }
  KORUnicodeString operator()(const KORBaseUnknown_var& object) const {
    KORUnicodeString identifier;
    const VEXITimeAnalysisProperties_var properties = object;
    if (!properties.IsNull()) (void)properties->GetValue("PLM_ExternalID", identifier);
    return identifier;
  }
};

}  // namespace

KORUnicodeString KORTextOfValue(const KORKeyedValues::View& value, const KORBooleanTexts& booleans) {
  return std::visit(Writer{booleans}, value);
}
