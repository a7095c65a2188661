// The function "MOST" of a formula: the time of a sequence from its indexes.
#include "formula/MostFunction.h"

#include <cmath>
#include <cstddef>

namespace formula {

double MostSequenceTime(const FormulaArguments& arguments) {
  constexpr std::size_t index_count = 12;
  constexpr double index_unit = 100000.0;
  double quotients = 0.0;
  double remainders = 0.0;
  for (std::size_t position = 0; position < index_count; ++position) {
    const double remainder = std::fmod(arguments[position], index_unit);
    double quotient = arguments[position] / index_unit;
    if (quotient != 0.0) quotient -= remainder;
    quotients += quotient;
    remainders += remainder;
  }
  return (quotients + remainders) * 10.0;
}

}  // namespace formula
