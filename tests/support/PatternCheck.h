// One check of a code against a pattern, with what it left in the caller's arrays.
#pragma once

#include <string>
#include <vector>

#include "tests/support/ServiceTest.h"

namespace support {

// What a check left behind.
struct Outcome {
  bool matched = false;
  int count = -1;
  std::vector<double> values;
  std::vector<int> flags;
};

// Checks with arrays of `capacity` elements that hold marks at first.
inline Outcome Check(VEXSTMTimeAnalysisDlgServices& services, const std::string& code, const std::string& pattern,
                     int capacity = 64) {
  Outcome outcome;
  outcome.values.assign(static_cast<std::size_t>(capacity), -77.0);
  outcome.flags.assign(static_cast<std::size_t>(capacity), -77);
  outcome.matched = services.CheckDataCardCodePattern(Unicode(code), Unicode(pattern), outcome.count,
                                                      outcome.values.data(), outcome.flags.data()) == 1;
  return outcome;
}

}  // namespace support
