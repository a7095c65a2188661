// Values in the exchange: their types, and how they are written.
#pragma once

#include <string>
#include <string_view>

#include "platform/model/KORKeyedValues.h"

namespace tool {

/// Numbered as items of the exchange tell them.
enum class ExchangeType : int {
  None = 0,  // the exchange has no name for the value
  Integer = 3,
  Real = 5,
  Text = 8,
  Boolean = 11,
  Analysis = 13
};

/// The type of a value as an analysis holds it.
ExchangeType TypeOf(const KORKeyedValues::View& value);

/// The value as an item holds it: reals with as many digits as read back bit for bit, truth values as "1" and "0", an
/// analysis as its identifier (empty for none).
std::string TextOfValue(const KORKeyedValues::View& value);

/// The type in words, as "a whole number".
std::string_view WordsOf(ExchangeType type);

}  // namespace tool
