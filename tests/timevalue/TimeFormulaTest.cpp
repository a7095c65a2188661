// Time formulas of data cards: the floor rules, the decimal character, statuses, and texts of any length.
#include "timevalue/TimeFormula.h"

#include <gtest/gtest.h>

#include <string>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/formula/FormulaTest.h"
#include "tests/formula/ScopedLocale.h"
#include "tests/support/ServiceTest.h"

namespace {

using formulatest::SameNumber;
using formulatest::ScopedLocale;

struct TimeCase {
  const char* name;
  const char* system;
  const char* formula;
  double value;
  int status;
};

void PrintTo(const TimeCase& row, std::ostream* stream) {
  *stream << row.system << ": " << row.formula;
}

class TimeFormulaTest : public support::ServiceTest, public testing::WithParamInterface<TimeCase> {
 protected:
  void ExpectTime() {
    const TimeCase& row = GetParam();
    support::Select(_Services, row.system);
    int status = 4711;
    EXPECT_TRUE(SameNumber(row.value, _Services.GetTimeFromFormula(row.formula, status)));
    EXPECT_EQ(status, row.status);

    status = 4711;
    EXPECT_TRUE(SameNumber(row.value, timevalue::TimeOfFormula(row.formula, row.system, status)));
    EXPECT_EQ(status, row.status);
  }

  VEXSTMTimeAnalysisDlgServices _Services;
};

// The text is written with "." in every locale, so that the results are the same in each.
TEST_P(TimeFormulaTest, UnderADecimalPoint) {
  ExpectTime();
}

TEST_P(TimeFormulaTest, UnderADecimalComma) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  ExpectTime();
}

INSTANTIATE_TEST_SUITE_P(Plain, TimeFormulaTest,
                         testing::Values(TimeCase{"Example", "STD", "2*(1+0.5)", 3.0, 0},
                                         TimeCase{"NoSystem", "", "1.5+1", 2.5, 0},
                                         TimeCase{"DivisionByZero", "STD", "1/0", 0.0, -1},
                                         TimeCase{"UnknownName", "STD", "foo(1)", 0.0, -2},
                                         TimeCase{"Position", "STD", "1+2.5*", 0.0, 7},
                                         TimeCase{"BlankText", "STD", "  ", 0.0, 1},
                                         TimeCase{"Underscore", "MTM1", "MTM1REACH(0_30_1_0)", 12.8, 0},
                                         TimeCase{"FractionInACall", "MTM1", "MTM1DYNAMICFACTOR(3.5_0)", 1.07, 0},
                                         TimeCase{"NonAsciiText", "STD", "1+\xC3\xA4", 0.0, -2}),
                         support::RowName());

INSTANTIATE_TEST_SUITE_P(FloorByWord, TimeFormulaTest,
                         testing::Values(TimeCase{"OneWord", "MTM2", "floor(3.7)", 3.0, 0},
                                         TimeCase{"TwoWords", "MTM2", "floor(1.5)+floor(1.6)", 3.0, 0},
                                         TimeCase{"TheWholeIsFloored", "MTM2", "floor(1.5)+1.6", 3.0, 0},
                                         TimeCase{"InsideAWord", "MTM2", "abfloors(2.5)", 2.0, 0},
                                         TimeCase{"BehindAnEnd", "MTM2", "2.5)floor", 2.0, 0},
                                         TimeCase{"WordAlone", "MTM2", "floor", 0.0, 1},
                                         TimeCase{"Negative", "MTM2", "floor(-1.5)", -2.0, 0},
                                         TimeCase{"NoWordNoFloor", "MTM2", "3.7", 3.7, 0},
                                         TimeCase{"CapitalsAreNoWord", "MTM2", "Floor(3.7)", 0.0, -2},
                                         TimeCase{"FailureIsFlooredToZero", "MTM2", "floor(1/0)", 0.0, -1},
                                         TimeCase{"PositionCountsWithoutTheWord", "MTM2", "floor(1.5)+", 0.0, 7},
                                         TimeCase{"WordLeftByTheDeletion", "MTM2", "floflooror(3.7)", 0.0, -2},
                                         TimeCase{"OtherSystem", "STD", "floor(3.7)", 0.0, -2},
                                         TimeCase{"OtherSystemMtm1", "MTM1", "floor(3.7)", 0.0, -2},
                                         TimeCase{"SystemInSmallLetters", "mtm2", "floor(3.7)", 0.0, -2},
                                         TimeCase{"LongerSystemName", "MTM20", "floor(3.7)", 0.0, -2}),
                         support::RowName());

INSTANTIATE_TEST_SUITE_P(FloorForMost, TimeFormulaTest,
                         testing::Values(TimeCase{"Most", "MOST", "MOST(300000_100000)+0.5", 40.0, 0},
                                         TimeCase{"MiniMost", "MiniMOST", "MOST(300000_100000)+0.5", 40.0, 0},
                                         TimeCase{"MaxiMost", "MaxiMOST", "MOST(300000_100000)+0.5", 40.0, 0},
                                         TimeCase{"SmallFractionsGo", "MOST", "MOST(300000_3)", 30.0, 0},
                                         TimeCase{"NotInTheText", "MOST", "2.5", 2.5, 0},
                                         TimeCase{"AnywhereInTheText", "MOST", "2.5)MOST", 2.0, 0},
                                         TimeCase{"SmallLettersAreNot", "MOST", "2.5)most", 2.5, 0},
                                         TimeCase{"Negative", "MOST", "-0.5-MOST()", -1.0, 0},
                                         TimeCase{"Failure", "MOST", "MOST(1_)", 0.0, -2},
                                         TimeCase{"OtherSystem", "STD", "MOST(300000_100000)+0.5", 40.5, 0},
                                         TimeCase{"OtherSystemMtm2", "MTM2", "MOST(300000_100000)+0.5", 40.5, 0},
                                         TimeCase{"Mtm2WithTheWord", "MTM2", "floor(MOST(300000_100000)+0.5)", 40.0, 0},
                                         TimeCase{"SystemInCapitals", "MINIMOST", "MOST(300000_100000)+0.5", 40.5, 0},
                                         TimeCase{"WordFloorStays", "MOST", "floor(MOST(300000))", 0.0, -2}),
                         support::RowName());

class TimeFormulaTextTest : public support::ServiceTest {
 protected:
  VEXSTMTimeAnalysisDlgServices _Services;
};

TEST_F(TimeFormulaTextTest, CommaSeparatesUnderADecimalPoint) {
  support::Select(_Services, "MOST");
  int status = 4711;
  EXPECT_TRUE(SameNumber(40.0, _Services.GetTimeFromFormula("MOST(300000,100000)+0.5", status)));
  EXPECT_EQ(status, 0);
}

TEST_F(TimeFormulaTextTest, CommaBehindADigitIsPartOfTheNumberUnderADecimalComma) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE;
  int status = 4711;
  EXPECT_TRUE(SameNumber(1.0, _Services.GetTimeFromFormula("pow(2,3)", status)));
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(SameNumber(2.25, _Services.GetTimeFromFormula("pow(1.5,2)", status)));
  EXPECT_EQ(status, 0);
}

TEST_F(TimeFormulaTextTest, EmptyFormulaLeavesTheStatusAlone) {
  for (const char* system : {"", "STD", "MTM2", "MOST"}) {
    support::Select(_Services, system);
    int status = 7;
    EXPECT_TRUE(SameNumber(0.0, _Services.GetTimeFromFormula("", status))) << system;
    EXPECT_EQ(status, 7) << system;
  }
}

TEST_F(TimeFormulaTextTest, TheFormulaOfTheCallerStaysAsItWas) {
  support::Select(_Services, "MTM2");
  const KORUnicodeString formula("floor(1.5)+abs(");
  int status = 0;
  _Services.GetTimeFromFormula(formula, status);
  EXPECT_EQ(support::Text(formula), "floor(1.5)+abs(");
}

TEST_F(TimeFormulaTextTest, LocaleThatCannotBeHadLeavesThePoint) {
  _Session.InjectFault("KORSysGetLocalDecimalChar", E_FAIL);
  int status = 4711;
  EXPECT_TRUE(SameNumber(2.5, _Services.GetTimeFromFormula("1.5+1", status)));
  EXPECT_EQ(status, 0);
}

TEST_F(TimeFormulaTextTest, EveryLengthIsEvaluated) {
  support::Select(_Services, "MTM2");
  std::string text = "0.5";
  double sum = 0.5;
  for (int length = 5; length <= 1200; length += 2) {
    text += "+1";
    sum += 1.0;
    int status = 4711;
    EXPECT_TRUE(SameNumber(sum, _Services.GetTimeFromFormula(support::Unicode(text), status))) << length;
    EXPECT_EQ(status, 0) << length;
  }
}

// The longest formula that a data card was ever meant to hold, nested as deep as it goes.
TEST_F(TimeFormulaTextTest, NestedCallsIn255Characters) {
  std::string text;
  for (int level = 0; level < 50; ++level) text += "abs(";
  text += "-12.5";
  text.append(50, ')');
  ASSERT_EQ(text.size(), 255u);
  int status = 4711;
  EXPECT_TRUE(SameNumber(12.5, _Services.GetTimeFromFormula(support::Unicode(text), status)));
  EXPECT_EQ(status, 0);
}

TEST_F(TimeFormulaTextTest, ManyFloorWords) {
  support::Select(_Services, "MTM2");
  std::string text = "0.25";
  for (int n = 0; n < 200000; ++n) text += "+floor(1)";
  int status = 4711;
  EXPECT_TRUE(SameNumber(200000.0, _Services.GetTimeFromFormula(support::Unicode(text), status)));
  EXPECT_EQ(status, 0);
}

TEST(MostSystemTest, IsOneOfThreeNames) {
  for (const char* name : {"MOST", "MiniMOST", "MaxiMOST"}) EXPECT_TRUE(timevalue::IsMostSystem(name)) << name;
  for (const char* name : {"", "STD", "most", "MINIMOST", "Mini", "MOST ", "BasicMOST", "MODAPTS"}) {
    EXPECT_FALSE(timevalue::IsMostSystem(name)) << name;
  }
}

}  // namespace
