// Time units and rounding: the conversion of a site, every display unit, and ties, bit for bit.
#include "timevalue/TimeUnits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/formula/FormulaTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using formulatest::Digits;
using formulatest::SameNumber;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

double ModelSecondsPerTmu(double tmu_per_minute) {
  if (std::fabs(tmu_per_minute) == 0.0) return 0.036;
  const double seconds = 60.0 / tmu_per_minute;
  return std::fabs(seconds - 0.036) < 0.0001 ? 0.036 : seconds;
}

// Rounds the fraction alone; the whole part goes through a 32-bit integer, and what that does not hold has its least
// value taken off and put back.
double ModelRoundOff(double value, double decimals) {
  const double scale = std::pow(10.0, decimals);
  const bool holds = value > -2147483649.0 && value < 2147483648.0;
  const double whole = holds ? std::trunc(value) + 0.0 : -2147483648.0;
  const double fraction = (value - whole) * scale;
  const double up = std::ceil(fraction);
  const double down = std::floor(fraction);
  const double rounded = up - fraction > fraction - down ? down : up;
  return rounded / scale + whole;
}

double ModelFromTmu(double v, int unit, double k) {
  switch (unit) {
    case 0:
      return k * v;
    case 1:
      return k * v / 60.0;
    case 2:
      return k * v / 3600.0;
    case 3:
      return (k / 86400.0) * v;
    case 4:
      return (k / 2592000.0) * v;
    case 5:
      return (k / 31536000.0) * v;
    case 6:
      return v * 0.036 / k;
    case 7:
      return v * 0.2;
    case 8:
      return v * 6.0;
    case 9:
      return v * 0.6;
    case 10:
      return v * 0.06;
    case 11:
      return v * 0.006;
    case 12:
      return v * 0.001;
    case 13:
      return k * v / 1000.0;
    case 14:
      return k * v / 0.129;
    default:
      return 0.0;
  }
}

// Conversions in TMU per minute: the standard, those that count as it, sites of their own, and nonsense.
const std::vector<double>& Conversions() {
  static const std::vector<double> conversions{0.0,    -0.0,    1666.67,  1666.0, 1662.1,   1671.3,
                                               1662.0, 1671.4,  2000.0,   1000.0, 60000.0,  1.0,
                                               0.5,    -2000.0, -1666.67, 1e-300, Infinity, 1e300};
  return conversions;
}

const std::vector<double>& Times() {
  static const std::vector<double> times = [] {
    std::vector<double> values{0.0,   -0.0, 1.0,  -1.0,       100.0,        2.5, -2.5,
                               0.125, 27.8, 1e-9, 123456.789, 2147483647.5, 3e9, -3e9};
    std::mt19937 generator(42);
    for (int n = 0; n < 300; ++n) {
      values.push_back((static_cast<double>(generator()) - 2147483648.0) * 1e-4);
      values.push_back(static_cast<double>(generator() % 100000) / 1000.0);
    }
    return values;
  }();
  return times;
}

// ---------------------------------------------------------------------------------------------------- Rounding

struct RoundingCase {
  const char* name;
  double value;
  double decimals;
  double rounded;
};

class RoundOffTimeValueTest : public testing::TestWithParam<RoundingCase> {};

TEST_P(RoundOffTimeValueTest, TiesGoUp) {
  const RoundingCase& row = GetParam();
  EXPECT_TRUE(SameNumber(row.rounded, VEXSTMTimeAnalysisDlgServices::RoundOffTimeValue(row.value, row.decimals)))
      << Digits(row.value) << " to " << row.decimals;
}

INSTANTIATE_TEST_SUITE_P(
    Values, RoundOffTimeValueTest,
    testing::Values(RoundingCase{"TieToTwoPlaces", 0.125, 2.0, 0.13},
                    RoundingCase{"NegativeTieToTwoPlaces", -0.125, 2.0, -0.12},
                    RoundingCase{"TieToWhole", 2.5, 0.0, 3.0}, RoundingCase{"NegativeTieToWhole", -2.5, 0.0, -2.0},
                    RoundingCase{"HalfUp", 0.5, 0.0, 1.0}, RoundingCase{"MinusHalfUp", -0.5, 0.0, 0.0},
                    RoundingCase{"Down", 2.4, 0.0, 2.0}, RoundingCase{"Up", 2.6, 0.0, 3.0},
                    RoundingCase{"NegativeDown", -2.6, 0.0, -3.0}, RoundingCase{"NegativeUp", -2.4, 0.0, -2.0},
                    RoundingCase{"AlreadyRound", 7.0, 6.0, 7.0}, RoundingCase{"SixPlaces", 0.0360004, 6.0, 0.036},
                    RoundingCase{"Tens", 7.0, -1.0, 7.0}, RoundingCase{"BeyondTheRange", 3e9, 0.0, 3e9},
                    RoundingCase{"NoNumber", NotANumber, 2.0, NotANumber},
                    RoundingCase{"Infinite", Infinity, 2.0, Infinity}),
    support::RowName());

TEST(RoundOffTimeValueTest, IsThatOfTheRule) {
  std::mt19937 generator(7);
  std::vector<double> values = Times();
  for (int n = 0; n < 20000; ++n) {
    const int places = static_cast<int>(generator() % 9);
    // Numbers near a tie at that place, on both sides of it.
    const double near = (static_cast<int>(generator() % 2000001) - 1000000 + 0.5) / std::pow(10.0, places);
    for (const double value : {near, std::nextafter(near, Infinity), std::nextafter(near, -Infinity)}) {
      ASSERT_TRUE(
          SameNumber(ModelRoundOff(value, places), VEXSTMTimeAnalysisDlgServices::RoundOffTimeValue(value, places)))
          << Digits(value) << " to " << places;
    }
  }
  for (const double limit : {2147483647.0, 2147483648.0, -2147483648.0, -2147483649.0, 4294967296.0, 1e15, 1e300}) {
    for (const double offset : {-0.75, -0.5, 0.0, 0.25, 0.5, 1.0}) values.push_back(limit + offset);
  }
  for (const double value : values) {
    for (const double decimals : {0.0, 1.0, 2.0, 3.0, 6.0, 9.0, -1.0, -3.0, 0.5, 300.0, 400.0, -400.0}) {
      EXPECT_TRUE(
          SameNumber(ModelRoundOff(value, decimals), VEXSTMTimeAnalysisDlgServices::RoundOffTimeValue(value, decimals)))
          << Digits(value) << " to " << decimals;
    }
  }
}

// ---------------------------------------------------------------------------------------------- The conversion

class TimeUnitsTest : public support::ServiceTest {
 protected:
  static void ExpectConversion(const VEXSTMTimeAnalysisDlgServices& services, double tmu_per_minute) {
    const double seconds_per_tmu = ModelSecondsPerTmu(tmu_per_minute);
    for (const double value : Times()) {
      EXPECT_TRUE(SameNumber(value / seconds_per_tmu, services.ConvertFromSecToTmu(value)))
          << Digits(value) << " at " << Digits(tmu_per_minute);
      for (int unit = -2; unit <= 17; ++unit) {
        const double converted = ModelFromTmu(value, unit, seconds_per_tmu);
        for (const int decimals : {0, 2, 6}) {
          EXPECT_TRUE(SameNumber(ModelRoundOff(converted, decimals), services.UnitConvertor(value, unit, decimals)))
              << Digits(value) << " at " << Digits(tmu_per_minute) << ", unit " << unit << ", decimals " << decimals;
        }
      }
    }
  }

  void WriteSetting(const char* value) {
    _Session.AddRepository("VEXTimeAnalysisCommonOptions").WriteSetting("mintotmuconversion", value);
  }
};

TEST_F(TimeUnitsTest, EveryUnitAtEveryConversion) {
  VEXSTMTimeAnalysisDlgServices services;
  for (const double conversion : Conversions()) {
    services.SetMinToTMUConversionValue(conversion);
    ExpectConversion(services, conversion);
  }
}

TEST_F(TimeUnitsTest, FactorIsThatOfTheRule) {
  for (const double conversion : Conversions()) {
    EXPECT_TRUE(SameNumber(ModelSecondsPerTmu(conversion), timevalue::SecondsPerTmu(conversion)));
  }
  for (int tenths = 16000; tenths <= 17500; ++tenths) {
    const double conversion = tenths / 10.0;
    EXPECT_TRUE(SameNumber(ModelSecondsPerTmu(conversion), timevalue::SecondsPerTmu(conversion))) << conversion;
  }
}

struct ConversionCase {
  const char* name;
  double tmu_per_minute;
  double seconds_per_tmu;
};

class SecondsPerTmuTest : public testing::TestWithParam<ConversionCase> {};

TEST_P(SecondsPerTmuTest, CountsAsTheStandardNearIt) {
  EXPECT_TRUE(SameNumber(GetParam().seconds_per_tmu, timevalue::SecondsPerTmu(GetParam().tmu_per_minute)));
}

INSTANTIATE_TEST_SUITE_P(
    Conversions, SecondsPerTmuTest,
    testing::Values(ConversionCase{"None", 0.0, 0.036}, ConversionCase{"NegativeZero", -0.0, 0.036},
                    ConversionCase{"Rounded", 1666.67, 0.036}, ConversionCase{"RoundedMore", 1667.0, 0.036},
                    ConversionCase{"LowestThatCounts", 1662.1, 0.036},
                    ConversionCase{"HighestThatCounts", 1671.3, 0.036},
                    ConversionCase{"JustBelow", 1662.0, 60.0 / 1662.0},
                    ConversionCase{"JustAbove", 1671.4, 60.0 / 1671.4}, ConversionCase{"OfASite", 2000.0, 0.03},
                    ConversionCase{"NegativeIsNotRefused", -2000.0, -0.03}),
    support::RowName());

// ------------------------------------------------------------------------------------------------- The setting

TEST_F(TimeUnitsTest, WithoutARepositoryTheStandardHolds) {
  const VEXSTMTimeAnalysisDlgServices services;
  EXPECT_TRUE(SameNumber(1.0, services.ConvertFromSecToTmu(0.036)));
  EXPECT_TRUE(SameNumber(0.036, services.UnitConvertor(1.0, 0, 6)));
  ExpectConversion(services, 0.0);
}

TEST_F(TimeUnitsTest, WithoutTheSettingTheStandardHolds) {
  _Session.AddRepository("VEXTimeAnalysisCommonOptions").WriteSetting("datacardpath", "x");
  ExpectConversion(VEXSTMTimeAnalysisDlgServices(), 0.0);
}

TEST_F(TimeUnitsTest, SettingOfAnotherRepositoryDoesNotCount) {
  _Session.AddRepository("OtherOptions").WriteSetting("mintotmuconversion", "2000");
  ExpectConversion(VEXSTMTimeAnalysisDlgServices(), 0.0);
}

TEST_F(TimeUnitsTest, SettingThatIsNoNumberLeavesTheStandard) {
  WriteSetting("many");
  ExpectConversion(VEXSTMTimeAnalysisDlgServices(), 0.0);
}

TEST_F(TimeUnitsTest, SettingIsReadByEachObjectAtItsStart) {
  WriteSetting("2000");
  const VEXSTMTimeAnalysisDlgServices services;
  EXPECT_TRUE(SameNumber(1.0, services.ConvertFromSecToTmu(0.03)));
  ExpectConversion(services, 2000.0);

  WriteSetting("1000");
  ExpectConversion(services, 2000.0);
  ExpectConversion(VEXSTMTimeAnalysisDlgServices(), 1000.0);

  WriteSetting("-2000");
  ExpectConversion(VEXSTMTimeAnalysisDlgServices(), -2000.0);

  WriteSetting("1666.67");
  ExpectConversion(VEXSTMTimeAnalysisDlgServices(), 0.0);
}

TEST_F(TimeUnitsTest, CopiesTakeTheConversionOver) {
  VEXSTMTimeAnalysisDlgServices services;
  services.SetMinToTMUConversionValue(2000.0);
  const VEXSTMTimeAnalysisDlgServices copy(services);
  VEXSTMTimeAnalysisDlgServices assigned;
  assigned = services;
  services.SetMinToTMUConversionValue(1000.0);
  EXPECT_TRUE(SameNumber(0.03, copy.UnitConvertor(1.0, 0, 6)));
  EXPECT_TRUE(SameNumber(0.03, assigned.UnitConvertor(1.0, 0, 6)));
  EXPECT_TRUE(SameNumber(0.06, services.UnitConvertor(1.0, 0, 6)));
}

// ----------------------------------------------------------------------------------------------- Single values

struct UnitCase {
  const char* name;
  double tmu;
  int unit;
  int decimals;
  double value;
};

class UnitConvertorTest : public support::ServiceRowTest<UnitCase> {};

TEST_P(UnitConvertorTest, AtTheStandardTmu) {
  const UnitCase& row = GetParam();
  EXPECT_TRUE(SameNumber(row.value, VEXSTMTimeAnalysisDlgServices().UnitConvertor(row.tmu, row.unit, row.decimals)));
}

// 100,000 TMU are one hour of 3,600 seconds; one MOD is 0.129 seconds.
INSTANTIATE_TEST_SUITE_P(
    Units, UnitConvertorTest,
    testing::Values(UnitCase{"Seconds", 100000.0, 0, 3, 3600.0}, UnitCase{"Minutes", 100000.0, 1, 3, 60.0},
                    UnitCase{"Hours", 100000.0, 2, 3, 1.0}, UnitCase{"Days", 2400000.0, 3, 3, 1.0},
                    UnitCase{"Months", 72000000.0, 4, 3, 1.0}, UnitCase{"Years", 876000000.0, 5, 3, 1.0},
                    UnitCase{"StandardTmu", 100.0, 6, 3, 100.0}, UnitCase{"FixedFactor", 100.0, 7, 3, 20.0},
                    UnitCase{"TenThousandthsOfAMinute", 100.0, 8, 3, 600.0},
                    UnitCase{"ThousandthsOfAMinute", 100.0, 9, 3, 60.0},
                    UnitCase{"HundredthsOfAMinute", 100.0, 10, 3, 6.0}, UnitCase{"TenthsOfAMinute", 100.0, 11, 3, 0.6},
                    UnitCase{"HundredthsOfAnHour", 1000.0, 12, 3, 1.0},
                    UnitCase{"ThousandsOfSeconds", 100000.0, 13, 3, 3.6}, UnitCase{"Modapts", 100.0, 14, 2, 27.91},
                    UnitCase{"OneSecondsUnit", 1.0, 0, 6, 0.036}, UnitCase{"BehindTheLast", 1.0, 15, 6, 0.0},
                    UnitCase{"BeforeTheFirst", 1.0, -1, 6, 0.0}),
    support::RowName());

}  // namespace
