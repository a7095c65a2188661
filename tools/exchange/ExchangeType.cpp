// Values in the exchange.
#include "tools/exchange/ExchangeType.h"

#include <array>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/base/KORNumberText.h"

namespace tool {

namespace {

struct ValueWriter {
  std::string operator()(std::string_view text) const { return std::string(text); }
  std::string operator()(double number) const { return kornumber::PrintExactReal(number); }
  std::string operator()(int number) const { return kornumber::PrintInteger(number); }
  std::string operator()(unsigned char truth) const { return truth != 0 ? "1" : "0"; }
  std::string operator()(const KORBaseUnknown_var& analysis) const {
    return std::string(VEXSTMTimeAnalysisDlgServices::GetTAPLMExternalID(analysis.Get()).Bytes());
  }
};

}  // namespace

ExchangeType TypeOf(const KORKeyedValues::View& value) {
  // In the order of the kinds of KORKeyedValues::View.
  constexpr std::array types{ExchangeType::Text, ExchangeType::Real, ExchangeType::Integer, ExchangeType::Boolean,
                             ExchangeType::Analysis};
  static_assert(types.size() == std::variant_size_v<KORKeyedValues::View>);
  return types[value.index()];
}

std::string TextOfValue(const KORKeyedValues::View& value) {
  return std::visit(ValueWriter(), value);
}

std::string_view WordsOf(ExchangeType type) {
  switch (type) {
    case ExchangeType::Integer:
      return "a whole number";
    case ExchangeType::Real:
      return "a number";
    case ExchangeType::Text:
      return "a text";
    case ExchangeType::Boolean:
      return "yes or no";
    case ExchangeType::Analysis:
      return "an analysis";
    case ExchangeType::None:
      break;
  }
  return "nothing";
}

}  // namespace tool
