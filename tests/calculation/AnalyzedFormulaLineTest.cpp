// Formula lines in the calculation of a whole analysis: what is written on them, and how they count.
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "tests/calculation/AnalysisShell.h"
#include "tests/calculation/Totals.h"
#include "tests/formula/FormulaTest.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::Calculate;
using formulatest::SameNumber;
using support::Line;
using support::MakeAnalysis;
using support::Outputs;
using support::ParameterList;
using support::RealOf;
using support::RealOfLine;
using support::TextOfLine;
using support::TimeFormula;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

// ---- Time types ----

struct TypeRow {
  const char* name;
  const char* type;
  const char* key;          // of the time, empty for none
  const char* total_of;     // attribute that the time goes to, empty for none
  const char* stored_type;  // time type afterwards
};
class FormulaLineTypeTest : public testing::TestWithParam<TypeRow> {};

TEST_P(FormulaLineTypeTest, NamesTheKeysThatAreWritten) {
  const auto analysis = MakeAnalysis(
      "A", {Line("F").Set("TimeType", GetParam().type).Set("Factor", 3.0).Formula(TimeFormula("A", "1", "0.36"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  const bool known = *GetParam().key != 0;
  for (const char* key : {"TTBTime", "TTUTime", "TWTime", "TRGTime"}) {
    const bool written = GetParam().key == std::string(key);
    EXPECT_EQ(RealOfLine(*analysis, 1, key), written ? std::optional(0.36) : std::nullopt) << key;
  }
  EXPECT_EQ(RealOfLine(*analysis, 1, "TotalTime"), known ? std::optional(0.36 * 3.0) : std::nullopt);
  EXPECT_EQ(RealOfLine(*analysis, 1, "Factor"), 3.0);
  EXPECT_EQ(TextOfLine(*analysis, 1, "FrequencyString"), "3") << "under any type";
  EXPECT_EQ(TextOfLine(*analysis, 1, "TimeType"), GetParam().stored_type);
  for (const char* key : {"TTBCalculated", "TTUCalculated", "TWCalculated", "TRGCalculated"}) {
    EXPECT_DOUBLE_EQ(*RealOf(*analysis, key), GetParam().total_of == std::string(key) ? 30.0 : 0.0) << key;
  }
  EXPECT_DOUBLE_EQ(*RealOf(*analysis, "TotalCalculated"), known ? 30.0 : 0.0);
}

INSTANTIATE_TEST_SUITE_P(Types, FormulaLineTypeTest,
                         testing::Values(TypeRow{"Ttb", "TTB", "TTBTime", "TTBCalculated", "TTB"},
                                         TypeRow{"Ttu", "TTU", "TTUTime", "TTUCalculated", "TTU"},
                                         TypeRow{"Tw", "TW", "TWTime", "TWCalculated", "TW"},
                                         TypeRow{"Trg", "TRG", "TRGTime", "TRGCalculated", "TRG"},
                                         TypeRow{"Stars", "T**", "TTBTime", "TTBCalculated", "T**"},
                                         TypeRow{"EmptyBecomesTtb", "", "TTBTime", "TTBCalculated", "TTB"},
                                         TypeRow{"Unknown", "TXX", "", "", "TXX"}),
                         support::RowName());

TEST(FormulaLineTest, AMissingTypeBecomesTtb) {
  const auto analysis = MakeAnalysis("A", {Line("F").Formula(TimeFormula("A", "1", "0.36")),
                                           Line("F").Set("TimeType", 1).Formula(TimeFormula("A", "2", "0.36"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(TextOfLine(*analysis, 1, "TimeType"), "TTB");
  EXPECT_EQ(TextOfLine(*analysis, 2, "TimeType"), "TTB") << "one of another type, too";
  EXPECT_EQ(RealOf(*analysis, "TTBCalculated"), 20.0);
}

TEST(FormulaLineTest, OneOfUnknownTypeCountsWithItsStoredTotalAlone) {
  const auto analysis =
      MakeAnalysis("A", {Line("F").Timed("TXX", 1.0).Set("TotalTime", 0.072).Formula(TimeFormula("A", "1", "0.36"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOf(*analysis, "TotalCalculated"), 2.0);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TotalTime"), 0.072);
}

TEST(FormulaLineTest, TimesUnderOtherTypesStayAsTheyAre) {
  const auto analysis =
      MakeAnalysis("A", {Line("F").Timed("TTU", 9.0).Set("TTBTime", -0.036).Formula(TimeFormula("A", "1", "0.36"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TTBTime"), -0.036);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TTUTime"), 0.36);
}

// ---- Frequencies ----

struct FactorRow {
  const char* name;
  std::optional<double> factor;  // on the line
  const char* formula;           // frequency that the formula tells
  double stored;
  const char* text;
  double weight;  // in the sum of its type, over a time of 1 TMU
  double total;   // in the sum of all
};
class FormulaFactorTest : public testing::TestWithParam<FactorRow> {};

TEST_P(FormulaFactorTest, IsWrittenAndWeighs) {
  const FactorRow& row = GetParam();
  Line line("F");
  if (row.factor) line.Set("Factor", *row.factor);
  line.Formula(Outputs("A", "2", {"Time", "Frequency"}, std::string("Time = 0.036; Frequency = ") + row.formula));
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("TXX", 0.0, 100.0), line});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_TRUE(SameNumber(row.stored, *RealOfLine(*analysis, 2, "Factor")));
  EXPECT_EQ(TextOfLine(*analysis, 2, "FrequencyString"), row.text);
  EXPECT_TRUE(SameNumber(0.036 * row.stored, *RealOfLine(*analysis, 2, "TotalTime")));
  EXPECT_TRUE(SameNumber(row.weight, *RealOf(*analysis, "TTBCalculated")));
  EXPECT_TRUE(SameNumber(row.total, *RealOf(*analysis, "TotalCalculated")));
}

INSTANTIATE_TEST_SUITE_P(
    Factors, FormulaFactorTest,
    testing::Values(FactorRow{"OfTheLine", 2.5, "-1", 2.5, "2.5", 2.5, 0.036 * 2.5 / 0.036},
                    FactorRow{"Missing", std::nullopt, "-1", 1.0, "1", 1.0, 1.0},
                    FactorRow{"Marker", -1.0, "-1", 1.0, "1", 1.0, 1.0},
                    FactorRow{"Negative", -8.0, "-1", 1.0, "1", 1.0, 1.0},
                    FactorRow{"Zero", 0.0, "-1", 0.0, "0", 0.0, 0.0},
                    FactorRow{"OfTheFormula", 9.0, "4", 4.0, "4", 4.0, 0.036 * 4.0 / 0.036},
                    FactorRow{"SixDigits", 1234567.0, "-1", 1234567.0, "1.23457e+06", 1234567.0,
                              0.036 * 1234567.0 / 0.036},
                    FactorRow{"Small", 9.0, "1e-7", 1e-7, "1e-07", 1e-7, 0.036 * 1e-7 / 0.036},
                    FactorRow{"NegativeOfTheFormula", 9.0, "-5", -5.0, "-5", 1.0, 0.0},
                    FactorRow{"EndlessOfTheFormula", 9.0, "1/0", Infinity, "inf", Infinity, Infinity},
                    FactorRow{"Endless", Infinity, "-1", Infinity, "inf", Infinity, Infinity},
                    FactorRow{"NoNumber", NotANumber, "-1", NotANumber, "nan", NotANumber, NotANumber}),
    support::RowName());

TEST(FormulaLineTest, TheFrequencyOfAReusedFormulaIsInTheTimeAndNotOnTheLine) {
  const auto reused =
      MakeAnalysis("T", {Line("F").Formula(TimeFormula("T", "1", "4")), Line("M10B").Timed("TTB", 1.0)});
  const auto analysis = MakeAnalysis("A", {Line("T")
                                               .Timed("TTB", 9.0, 2.0)
                                               .Reuses(reused)
                                               .Formula(Outputs("T", "1", {"Time", "Frequency", "Description"},
                                                                "Time = 4; Frequency = 3; Description = 'x'"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TTBTime"), 13.0);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TotalTime"), 26.0);
  EXPECT_EQ(RealOfLine(*analysis, 1, "Factor"), 2.0);
  EXPECT_EQ(TextOfLine(*analysis, 1, "Description"), std::nullopt);
}

// ---- Times that formulas don't give ----

struct OpenTimeRow {
  const char* name;
  const char* type;
  std::optional<double> ttb;  // stored under "TTBTime"
  const char* formula;
  double time;
};
class OpenTimeTest : public testing::TestWithParam<OpenTimeRow> {};

TEST_P(OpenTimeTest, IsTheStoredTtbTimeOfALineThatReusesNothing) {
  const OpenTimeRow& row = GetParam();
  Line line = Line("F").Timed(row.type, 77.0, 2.0).Formula(TimeFormula("A", "1", row.formula));
  line.Set("TTBTime", "unset");
  if (row.ttb) line.Set("TTBTime", *row.ttb);
  const auto analysis = MakeAnalysis("A", {line});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_TRUE(SameNumber(row.time, *RealOfLine(*analysis, 1, (std::string(row.type) + "Time").c_str())));
  EXPECT_TRUE(SameNumber(2.0 * row.time, *RealOfLine(*analysis, 1, "TotalTime")));
}

INSTANTIATE_TEST_SUITE_P(Times, OpenTimeTest,
                         testing::Values(OpenTimeRow{"Zero", "TTB", 5.0, "0", 5.0},
                                         OpenTimeRow{"Negative", "TTB", 5.0, "-3", 5.0},
                                         OpenTimeRow{"AboveZero", "TTB", 5.0, "1e-300", 1e-300},
                                         OpenTimeRow{"WhateverTheType", "TTU", 5.0, "0", 5.0},
                                         OpenTimeRow{"NegativeStoredTime", "TW", -0.036, "0", -0.036},
                                         OpenTimeRow{"NothingStored", "TRG", std::nullopt, "-3", -3.0},
                                         OpenTimeRow{"InvalidFormula", "TTB", 5.0, "= 4", 5.0},
                                         OpenTimeRow{"NoNumberIsNotOpen", "TTB", 5.0, "0/0", NotANumber}),
                         support::RowName());

TEST(FormulaLineTest, AReusingLineKeepsATimeNotAboveZero) {
  const auto reused = MakeAnalysis("T");
  const auto analysis =
      MakeAnalysis("A", {Line("T").Timed("TTB", 5.0).Reuses(reused).Formula(TimeFormula("A", "1", "0")),
                         Line("T").Timed("TTB", 5.0).Reuses(reused).Formula(TimeFormula("A", "2", "-3")),
                         Line("T").Timed("TTB", 5.0).Reuses(NULL_var).Formula(TimeFormula("A", "3", "-3"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TTBTime"), 0.0);
  EXPECT_EQ(RealOfLine(*analysis, 2, "TTBTime"), -3.0);
  EXPECT_EQ(RealOfLine(*analysis, 2, "TotalTime"), -3.0);
  EXPECT_EQ(RealOfLine(*analysis, 3, "TTBTime"), 5.0) << "a null handle reuses nothing";
  EXPECT_EQ(RealOf(*analysis, "TotalCalculated"), 5.0 / 0.036);
}

TEST(FormulaLineTest, AListOfNullEntriesMakesAFormulaLine) {
  const auto analysis =
      MakeAnalysis("A", {Line("F").Timed("TTU", 9.0, -1.0).Set("TTBTime", 5.0).Formula(ParameterList().AddNull())});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TTUTime"), 5.0);
  EXPECT_EQ(RealOfLine(*analysis, 1, "Factor"), 1.0);
}

TEST(FormulaLineTest, AnEmptyListMakesAPlainLine) {
  const auto analysis = MakeAnalysis("A", {Line("F").Timed("TTB", 0.036, -1.0).Formula(ParameterList())});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOfLine(*analysis, 1, "Factor"), -1.0);
  EXPECT_EQ(TextOfLine(*analysis, 1, "FrequencyString"), std::nullopt);
}

// ---- What else is on the line ----

TEST(FormulaLineTest, ADescriptionIsWrittenIfThereIsOne) {
  const auto analysis = MakeAnalysis(
      "A", {Line("F").Set("Description", "old").Formula(Outputs("A", "1", {"Description"}, "Description = 'reach'")),
            Line("F").Set("Description", "old").Formula(Outputs("A", "2", {"Description"}, "Description = ''"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(TextOfLine(*analysis, 1, "Description"), "reach");
  EXPECT_EQ(TextOfLine(*analysis, 2, "Description"), "old");
}

TEST(FormulaLineTest, TheLineKeepsItsParametersAndItsReusedAnalysis) {
  const auto reused = MakeAnalysis("T");
  ParameterList parameters = TimeFormula("A", "1", "4").AddNull().Append(TimeFormula("T", "1", "2"));
  const auto analysis = MakeAnalysis("A", {Line("T").Reuses(reused).Formula(parameters)});
  EXPECT_EQ(Calculate(analysis), S_OK);
  VEXTimeAnalysisLineData line;
  ASSERT_EQ(analysis->GetLine(1, line), S_OK);
  EXPECT_EQ(support::Describe(*support::Read<KORRawCollPV>(line, "FormulaParameter")),
            support::Describe(parameters.Lend()));
  EXPECT_EQ(support::Read<KORBaseUnknown_var>(line, "TimeAnalysis"), KORBaseUnknown_var(reused));
}

TEST(FormulaLineTest, NeitherTheBlankCodeNorTheNewTimesOfALineWithoutCodeAreStored) {
  const auto analysis = MakeAnalysis("A", {Line("").Timed("TTB", 9.0, -1.0).Formula(TimeFormula("A", "1", "4"))});
  const std::string before = support::DescribeLine(*analysis, 1);
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(support::DescribeLine(*analysis, 1), before);
  EXPECT_EQ(RealOf(*analysis, "TTBCalculated"), 0.0);
}

TEST(FormulaLineTest, AnInvalidFormulaOnOneLineDoesNotTouchTheOthers) {
  const auto analysis = MakeAnalysis(
      "A", {Line("F").Formula(TimeFormula("A", "1", "= 4")), Line("F").Formula(TimeFormula("A", "2", "0.36"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOf(*analysis, "TTBCalculated"), 10.0);
}

// A shell without properties makes the formulas of "A" strange ones, which read the lines of A where they leave their
// time open.
TEST(FormulaLineTest, ALineSeesWhatLinesBeforeItHaveGot) {
  const auto inside = MakeAnalysis("A", {Line("F").Timed("TTB", 1.0).Formula(TimeFormula("A", "1", "4"))});
  const support::CircleBreaker breaker({inside});
  support::AppendLines(*inside, {Line("A").Timed("TTB", 1.0).Reuses(inside).Formula(TimeFormula("A", "1", "0"))});
  EXPECT_EQ(Calculate(calculationtest::MakeShellWithout<VEXITimeAnalysisProperties>(inside)), S_OK);
  EXPECT_EQ(RealOfLine(*inside, 2, "TTBTime"), 4.0);
}

}  // namespace
