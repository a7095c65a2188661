// An analysis that is made of names alone.
#include "tools/exchange/ExchangeProbe.h"

#include <string_view>

namespace tool {

namespace {

long ListNames(const std::vector<std::string>& listed, KORListValKORUnicodeString& names,
               KORListValKORUnicodeString& values) {
  names.RemoveAll();
  values.RemoveAll();
  for (std::size_t position = 0; position < listed.size(); ++position) {
    names.Append(KORUnicodeString(std::string_view(listed[position])));
    values.Append(KORUnicodeString::FromInteger(static_cast<int>(position)));
  }
  return S_OK;
}

}  // namespace

long ExchangeProbe::GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) {
  return ListNames(Attributes, names, values);
}

long ExchangeProbe::GetLineCount(int& count) {
  count = LineKeys.empty() ? 0 : 1;
  return S_OK;
}

long ExchangeProbe::SetLine(int row, VEXTimeAnalysisLineData& line) {
  _WrittenType = ExchangeType::Analysis;
  line.GetContent().Values.ForEach([this, row](std::string_view key, const KORKeyedValues::View& value) {
    const bool is_row_number = key == "RowNum" && value == KORKeyedValues::View(row);
    if (!is_row_number) _WrittenType = TypeOf(value);
  });
  return S_OK;
}

long ExchangeProbe::GetLineAttributes(int /*row*/, KORListValKORUnicodeString& names,
                                      KORListValKORUnicodeString& values) {
  return ListNames(LineKeys, names, values);
}

}  // namespace tool
