// The conversions between norm formats and code forms of MOST and MODAPTS, against the plain ones.
// Input: a text, a tab, and a frequency; the first bytes of the frequency are the bracket flags too.
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "fuzz/FuzzSupport.h"
#include "tests/oracle/ModaptsNormOracle.h"
#include "tests/oracle/MostNormOracle.h"

namespace {

std::string Text(const KORUnicodeString& text) {
  return std::string(text.Bytes());
}

void CompareMost(VEXSTMTimeAnalysisDlgServices& services, const KORUnicodeString& text,
                 const KORUnicodeString& frequency, const oracle::TimeFromFormula& time_from_formula) {
  fuzz::RequireSame(oracle::ConvertToMostNorm(Text(text), Text(frequency), time_from_formula),
                    Text(services.ConvertToMOSTNormFormatService(text, frequency)), "norm format");
  std::vector<bool> flags;
  KORListValKORBoolean flag_list;
  for (const char byte : Text(frequency)) {
    flags.push_back(byte % 2 != 0);
    flag_list.Append(byte % 2 != 0 ? 1 : 0);
  }
  fuzz::RequireSame(oracle::ConvertToMostNorm(Text(text), Text(frequency), flags, time_from_formula),
                    Text(services.ConvertToMOSTNormFormatService(text, frequency, flag_list)), "norm format by flags");
  fuzz::RequireSame(oracle::GetMostCodeFromNorm(Text(text), Text(frequency)),
                    Text(services.GetMOSTCodeFromNormFormatService(text, frequency)), "code form");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input = fuzz::CText(fuzz::BytesOf(data, size));
  std::string_view rest = input;
  const KORUnicodeString text(fuzz::TakeText(rest, '\t'));
  const KORUnicodeString frequency(rest);
  VEXSTMTimeAnalysisDlgServices services;
  const oracle::TimeFromFormula time_from_formula = [&services](const std::string& formula) {
    int status = 0;
    return services.GetTimeFromFormula(KORUnicodeString(std::string_view(formula)), status);
  };
  CompareMost(services, text, frequency, time_from_formula);
  fuzz::RequireSame(oracle::GetModaptsCode(Text(text), time_from_formula),
                    Text(services.GetMODAPTSCodeFromNormFormatService(text)), "code form of MODAPTS");
  fuzz::RequireSame(oracle::IsSequentialCode(Text(text)), services.IsSequentialCode(text) == 1, "sequence");
  return 0;
}
