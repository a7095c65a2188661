// Codes looked up one by one in the catalogue of one system.
#include "tools/CodeLookup.h"

#include <cmath>
#include <limits>

#include "tools/NumberText.h"

namespace tool {

namespace {

constexpr int Decimals = 6;
constexpr int DecimalsOfHours = 8;  // a thousandth of a TMU

// The index of the entry that matched last stands until the next match; an empty code sets it back.
void ForgetLastMatch(VEXSTMTimeAnalysisDlgServices& service) {
  KORUnicodeString nothing;
  KORUnicodeString time;
  KORUnicodeString description;
  KORUnicodeString time_type;
  KORUnicodeString frequency;
  service.GetTimeToCode(nothing, time, description, time_type, frequency);
}

double SecondsOf(DisplayUnit unit) {
  switch (unit) {
    case DisplayUnit::Minutes:
      return 60.0;
    case DisplayUnit::Hours:
      return 3600.0;
    case DisplayUnit::Mod:
      return 0.129;
    case DisplayUnit::Seconds:
      break;
  }
  return 1.0;
}

}  // namespace

CodeAnswer LookUpCode(VEXSTMTimeAnalysisDlgServices& service, std::string_view code) {
  ForgetLastMatch(service);
  CodeAnswer answer;
  answer.Code = KORUnicodeString(code);
  KORUnicodeString typed = answer.Code;
  service.GetTimeToCode(typed, answer.Time, answer.Description, answer.TimeType, answer.Frequency);
  answer.Entry = service.GetCodeIndex();
  answer.Found = answer.Entry >= 0;
  answer.Time.ConvertToNum(answer.Tmu);
  if (!answer.Found) return answer;
  answer.LocalDescription = service.GetLocalDescription();
  answer.ValueAdded = service.GetValueAdded();
  answer.CodeId = service.GetTACodeID();
  service.GetOptionID(answer.Code, answer.OptionId);
  return answer;
}

bool IsKnownCode(VEXSTMTimeAnalysisDlgServices& service, std::string_view code) {
  ForgetLastMatch(service);
  KORUnicodeString typed(code);
  KORUnicodeString time;
  KORUnicodeString description;
  KORUnicodeString time_type;
  KORUnicodeString frequency;
  service.GetTimeToCode(typed, time, description, time_type, frequency);
  return service.GetCodeIndex() >= 0;
}

double TimeInUnit(const VEXSTMTimeAnalysisDlgServices& service, double tmu, DisplayUnit unit) {
  const double plain = tmu / service.ConvertFromSecToTmu(1.0) / SecondsOf(unit);
  if (!(std::fabs(plain) < static_cast<double>(std::numeric_limits<int>::max()))) return plain;
  const int decimals = unit == DisplayUnit::Hours ? DecimalsOfHours : Decimals;
  return NearestDecimal(service.UnitConvertor(tmu, static_cast<int>(unit), decimals), decimals);
}

}  // namespace tool
