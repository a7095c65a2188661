// Time units and the rounding of time values.
#include "timevalue/TimeUnits.h"

#include <cmath>

#include "platform/base/KORTruncation.h"

namespace timevalue {

double SecondsPerTmu(double tmu_per_minute) {
  if (std::fabs(tmu_per_minute) == 0.0) return StandardSecondsPerTmu;
  const double seconds = 60.0 / tmu_per_minute;
  return std::fabs(seconds - StandardSecondsPerTmu) < 0.0001 ? StandardSecondsPerTmu : seconds;
}

/// Only the fraction passes through the scaling, so that large times keep their digits.
double RoundOff(double value, double decimals) {
  const double power = std::pow(10.0, decimals);
  const double whole = kornumber::TruncateToInt32(value);
  const double fraction = (value - whole) * power;
  const double up = std::ceil(fraction);
  const double down = std::floor(fraction);
  const double rounded = up - fraction > fraction - down ? down : up;
  return rounded / power + whole;
}

/// The order of the operations is part of the result. The units 7 to 12 stand at the standard TMU whatever the site's.
double FromTmu(double tmu, int unit, double seconds_per_tmu) {
  const double k = seconds_per_tmu;
  const double v = tmu;
  switch (unit) {
    case 0:  // seconds
      return k * v;
    case 1:  // minutes
      return k * v / 60.0;
    case 2:  // hours
      return k * v / 3600.0;
    case 3:  // days
      return (k / 86400.0) * v;
    case 4:  // months of 30 days
      return (k / 2592000.0) * v;
    case 5:  // years of 365 days
      return (k / 31536000.0) * v;
    case 6:  // standard TMU
      return v * 0.036 / k;
    case 7:  // fixed factor
      return v * 0.2;
    case 8:  // 0.0001 minutes
      return v * 6.0;
    case 9:  // 0.001 minutes
      return v * 0.6;
    case 10:  // 0.01 minutes
      return v * 0.06;
    case 11:  // 0.1 minutes
      return v * 0.006;
    case 12:  // 0.01 hours
      return v * 0.001;
    case 13:  // thousands of seconds
      return k * v / 1000.0;
    case 14:  // MODAPTS units of 0.129 seconds
      return k * v / 0.129;
    default:
      return 0.0;
  }
}

}  // namespace timevalue
