// Time units and the rounding of time values.
#pragma once

namespace timevalue {

/// Seconds of the standard TMU.
inline constexpr double StandardSecondsPerTmu = 0.036;

/// Seconds per TMU where a minute has `tmu_per_minute` of them: the standard for 0, and for every value whose TMU is
/// less than 0.0001 s from the standard. A negative value gives a negative factor.
double SecondsPerTmu(double tmu_per_minute);

/// Rounds to `decimals` places, ties toward plus infinity.
double RoundOff(double value, double decimals);

/// Converts TMU to a display unit, numbered as in VEXSTMTimeAnalysisDlgServices::UnitConvertor; 0.0 for any other unit.
double FromTmu(double tmu, int unit, double seconds_per_tmu);

}  // namespace timevalue
