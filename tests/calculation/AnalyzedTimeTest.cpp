// The calculation of a whole analysis: which lines count and are stored, what formula lines are brought up to, the
// totals, and the order in which all of it is read and written.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/calculation/Totals.h"
#include "tests/formula/FormulaTest.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::AnalysisShell;
using calculationtest::Calculate;
using calculationtest::MakeBareObject;
using calculationtest::MakeShellWithout;
using calculationtest::Totals;
using calculationtest::TotalsOf;
using formulatest::SameNumber;
using support::DescribeAnalysis;
using support::Line;
using support::MakeAnalysis;
using support::Outputs;
using support::RealOf;
using support::RealOfLine;
using support::TimeAnalysis_var;
using support::TimeFormula;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

// ---- Objects that can't be calculated ----

TEST(AnalyzedTimeTest, NullAndObjectsOfOtherKindsFail) {
  EXPECT_EQ(Calculate(NULL_var), E_FAIL);
  EXPECT_EQ(Calculate(MakeBareObject()), E_FAIL);
}

TEST(AnalyzedTimeTest, WithoutAttributesOrLinesNothingIsChanged) {
  const auto inside =
      MakeAnalysis("A", {Line("M10B").Timed("TTB", 0.36), Line("F").Formula(TimeFormula("A", "2", "4"))});
  const std::string before = DescribeAnalysis(*inside);
  EXPECT_EQ(Calculate(MakeShellWithout<VEXITimeAnalysisRepReference>(inside)), E_FAIL);
  EXPECT_EQ(DescribeAnalysis(*inside), before);
  EXPECT_EQ(Calculate(MakeShellWithout<VEXITimeAnalysisLines>(inside)), E_FAIL);
  EXPECT_EQ(DescribeAnalysis(*inside), before);
}

TEST(AnalyzedTimeTest, WithoutPropertiesNoFormulaIsTheLinesOwnButThoseWithoutOwner) {
  const auto inside =
      MakeAnalysis("A", {Line("F").Formula(Outputs("A", "1", {"Time", "Frequency"}, "Time = 4; Frequency = 3")),
                         Line("F").Formula(Outputs("", "2", {"Time", "Frequency"}, "Time = 4; Frequency = 3"))});
  EXPECT_EQ(Calculate(MakeShellWithout<VEXITimeAnalysisProperties>(inside)), S_OK);
  EXPECT_EQ(RealOfLine(*inside, 1, "TTBTime"), 12.0);
  EXPECT_EQ(RealOfLine(*inside, 1, "Factor"), 1.0);
  EXPECT_EQ(RealOfLine(*inside, 2, "TTBTime"), 4.0);
  EXPECT_EQ(RealOfLine(*inside, 2, "Factor"), 3.0);
}

// ---- Plain lines ----

TEST(AnalyzedTimeTest, AnAnalysisWithoutLinesHasAllTotalsZero) {
  const auto analysis = MakeAnalysis("A");
  EXPECT_EQ(Calculate(analysis), S_OK);
  for (const auto& [key, value] : TotalsOf(*analysis)) EXPECT_TRUE(SameNumber(0.0, value)) << key;
}

TEST(AnalyzedTimeTest, OnePlainLine) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("TTB", 0.36, 2.0)});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(TotalsOf(*analysis), (Totals{{"TTBCalculated", 20.0},
                                         {"TTUCalculated", 0.0},
                                         {"TWCalculated", 0.0},
                                         {"TRGCalculated", 0.0},
                                         {"TotalCalculated", 20.0},
                                         {"V_HumanTime", 0.72},
                                         {"V_MachineTime", 0.0},
                                         {"V_WaitingTime", 0.0},
                                         {"V_SetupTime", 0.0},
                                         {"V_TotalTime", 0.72}}));
}

struct PlainRow {
  const char* name;
  const char* type;
  const char* tmu;      // where its time of 1 TMU by a frequency of 2 goes; empty for nowhere
  const char* seconds;  // the same in seconds
};
class PlainLineTest : public testing::TestWithParam<PlainRow> {};

TEST_P(PlainLineTest, AddsItsTimeUnderItsTypeAndItsTotalUnderAll) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed(GetParam().type, 0.036, 2.0).Set("TotalTime", 0.36)});
  Totals expected;
  for (const auto& [key, value] : TotalsOf(*analysis)) expected[key] = 0.0;
  if (*GetParam().tmu != 0) expected[GetParam().tmu] = 2.0;
  if (*GetParam().seconds != 0) expected[GetParam().seconds] = 0.072;
  expected["TotalCalculated"] = 10.0;
  expected["V_TotalTime"] = 0.36;
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(TotalsOf(*analysis), expected);
}

INSTANTIATE_TEST_SUITE_P(Types, PlainLineTest,
                         testing::Values(PlainRow{"Ttb", "TTB", "TTBCalculated", "V_HumanTime"},
                                         PlainRow{"Ttu", "TTU", "TTUCalculated", "V_MachineTime"},
                                         PlainRow{"Tw", "TW", "TWCalculated", "V_WaitingTime"},
                                         PlainRow{"Trg", "TRG", "TRGCalculated", "V_SetupTime"},
                                         PlainRow{"StarsCountAsTtb", "T**", "TTBCalculated", "V_HumanTime"},
                                         PlainRow{"Unknown", "TXX", "", ""}, PlainRow{"Empty", "", "", ""}),
                         support::RowName());

struct FactorRow {
  const char* name;
  double factor;
  double ttb;  // in TMU, of a time of 1 TMU
};
class PlainFactorTest : public testing::TestWithParam<FactorRow> {};
TEST_P(PlainFactorTest, WeighsTheTimeButNotTheTotal) {
  const auto analysis =
      MakeAnalysis("A", {Line("M10B").Timed("TTB", 0.036, GetParam().factor).Set("TotalTime", 0.072)});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_TRUE(SameNumber(GetParam().ttb, *RealOf(*analysis, "TTBCalculated")));
  EXPECT_EQ(RealOf(*analysis, "TotalCalculated"), 2.0);
  EXPECT_TRUE(SameNumber(GetParam().factor, *RealOfLine(*analysis, 1, "Factor"))) << "the line keeps it";
}
INSTANTIATE_TEST_SUITE_P(Factors, PlainFactorTest,
                         testing::Values(FactorRow{"Usual", 3.0, 3.0}, FactorRow{"Marker", -1.0, 1.0},
                                         FactorRow{"Negative", -2.5, 1.0}, FactorRow{"Zero", 0.0, 0.0},
                                         FactorRow{"EndlessBelow", -Infinity, 1.0},
                                         FactorRow{"Endless", Infinity, Infinity},
                                         FactorRow{"NoNumber", NotANumber, NotANumber}),
                         support::RowName());

TEST(AnalyzedTimeTest, ALineWithoutFrequencyTakesThatOfTheLineBefore) {
  const auto without = Line("M10B").Set("TimeType", "TTB").Set("TTBTime", 0.036);
  const auto analysis = MakeAnalysis("A", {without,                                        // 0.0 to begin with
                                           Line("M10B").Timed("TTU", 0.0, 5.0), without,   // 5.0
                                           Line("M10B").Timed("TTU", 0.0, -1.0), without,  // 1.0
                                           Line("*").Timed("TTU", 0.0, 70.0), without,     // not read: 1.0
                                           Line("").Timed("TTU", 0.0, 70.0), without,      // not read: 1.0
                                           Line("M10B").Timed("TXX", 0.0, 9.0), without,   // 9.0
                                           Line(without).Set("Factor", 3), Line(without).Set("Factor", "2")});  // 9.0
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOf(*analysis, "TTBCalculated"), 0.0 + 5.0 + 1.0 + 1.0 + 1.0 + 9.0 + 9.0 + 9.0);
  EXPECT_EQ(RealOfLine(*analysis, 1, "Factor"), std::nullopt) << "nothing is written on plain lines";
}

TEST(AnalyzedTimeTest, ANewCalculationBeginsWithoutFrequencyAgain) {
  const auto first = MakeAnalysis("A", {Line("M10B").Timed("TTB", 0.036, 5.0)});
  const auto second = MakeAnalysis("B", {Line("M10B").Set("TimeType", "TTB").Set("TTBTime", 0.036)});
  VEXSTMTimeAnalysisDlgServices services;
  EXPECT_EQ(services.CalculateAnalyzedTimeBG(first), S_OK);
  EXPECT_EQ(services.CalculateAnalyzedTimeBG(second), S_OK);
  EXPECT_EQ(RealOf(*second, "TTBCalculated"), 0.0);
}

struct TotalRow {
  const char* name;
  double total;
  double tmu;
};
class LineTotalTest : public testing::TestWithParam<TotalRow> {};
TEST_P(LineTotalTest, CountsUnlessItIsNegative) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Set("TotalTime", GetParam().total)});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_TRUE(SameNumber(GetParam().tmu, *RealOf(*analysis, "TotalCalculated")));
}
INSTANTIATE_TEST_SUITE_P(Totals, LineTotalTest,
                         testing::Values(TotalRow{"Usual", 0.36, 10.0}, TotalRow{"MarkerOfAMissingTime", -0.036, 0.0},
                                         TotalRow{"EndlessBelow", -Infinity, 0.0},
                                         TotalRow{"Endless", Infinity, Infinity},
                                         TotalRow{"NoNumber", NotANumber, NotANumber}),
                         support::RowName());

TEST(AnalyzedTimeTest, ANegativeTimeIsAddedAsItIs) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("TW", -0.036, 2.0), Line("M10B").Timed("TW", 0.36)});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOf(*analysis, "TWCalculated"), 8.0);
}

TEST(AnalyzedTimeTest, TimesOfAnotherTypeOrMissingAddNothing) {
  const auto analysis =
      MakeAnalysis("A", {Line("M10B").Timed("TTB", 0.36), Line("M10B").Set("TimeType", "TTB").Set("Factor", 1.0),
                         Line("M10B").Timed("TTB", 0.36).Set("TTBTime", 36).Set("TotalTime", "36")});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOf(*analysis, "TTBCalculated"), 10.0);
  EXPECT_EQ(RealOf(*analysis, "TotalCalculated"), 10.0);
}

TEST(AnalyzedTimeTest, EveryKeyOfAPlainLineIsGivenBackUnchanged) {
  const std::string long_key(1'000'000, 'k');
  const auto analysis = MakeAnalysis("A", {Line("M10B")
                                               .Timed("TTB", -0.036, -1.0)
                                               .Set("Bitmask", -7)
                                               .Set("IsStandardTextFlag", static_cast<unsigned char>(1))
                                               .Set("a key of the site", "a value")
                                               .Set(long_key.c_str(), 0.1)
                                               .Reuses(MakeAnalysis("T")),
                                           Line(" ").Timed("T**", 0.5)});
  const std::string before = support::DescribeLine(*analysis, 1) + support::DescribeLine(*analysis, 2);
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(support::DescribeLine(*analysis, 1) + support::DescribeLine(*analysis, 2), before);
}

// ---- Lines that take no part ----

TEST(AnalyzedTimeTest, LinesWithAStarOrWithoutCodeTakeNoPart) {
  const auto star = Line("*").Timed("TTB", 1.0).Formula(TimeFormula("A", "1", "4"));
  const auto empty = Line("").Timed("TTB", 1.0).Formula(TimeFormula("A", "2", "4"));
  const auto none = Line().Timed("TTB", 1.0).Formula(TimeFormula("A", "3", "4"));
  const auto analysis = MakeAnalysis("A", {star, empty, none, Line("*").Timed("TTB", 1.0), Line("").Timed("TTB", 1.0),
                                           Line().Timed("TTB", 1.0), Line("M10B").Set("Code", 1).Timed("TTB", 1.0)});
  std::string before;
  for (int row = 1; row <= 7; ++row) before += support::DescribeLine(*analysis, row);
  EXPECT_EQ(Calculate(analysis), S_OK);
  for (const auto& [key, value] : TotalsOf(*analysis)) EXPECT_EQ(value, 0.0) << key;
  std::string after;
  for (int row = 1; row <= 7; ++row) after += support::DescribeLine(*analysis, row);
  EXPECT_EQ(after, before);
}

TEST(AnalyzedTimeTest, CodesThatOnlyBeginWithAStarAndBlanksCount) {
  const auto analysis = MakeAnalysis(
      "A", {Line("**").Timed("TTB", 0.036), Line(" *").Timed("TTB", 0.036), Line(" ").Timed("TTB", 0.036)});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOf(*analysis, "TTBCalculated"), 3.0);
}

// ---- What is read and written, and in which order ----

// Writes down the calls that store something, and answers with statuses of its own.
class Recorder : public AnalysisShell {
 public:
  using AnalysisShell::AnalysisShell;
  using AnalysisShell::SetValue;

  long GetLine(int row, VEXTimeAnalysisLineData& line) override {
    Calls.push_back("get " + std::to_string(row));
    return AnalysisShell::GetLine(row, line);
  }
  long SetLine(int row, VEXTimeAnalysisLineData& line) override {
    Calls.push_back("set " + std::to_string(row));
    (void)AnalysisShell::SetLine(row, line);
    return LineStatus;
  }
  long SetValue(const KORString& key, double value) override {
    Calls.emplace_back(key.Bytes());
    (void)AnalysisShell::SetValue(key, value);
    return key == "V_TotalTime" ? LastStatus : OtherStatus;
  }

  std::vector<std::string> Calls;
  long LineStatus = S_OK;
  long OtherStatus = S_OK;
  long LastStatus = S_OK;
};

KORHandle<Recorder> MakeRecorder(const std::vector<Line>& lines) {
  return KORHandle<Recorder>::Adopt(new Recorder(MakeAnalysis("A", lines)));
}

TEST(AnalyzedTimeTest, LinesAreStoredOneByOneAndTheTotalsBehindThem) {
  const auto recorder = MakeRecorder({Line("M10B").Timed("TTB", 0.36), Line("*").Timed("TTB", 0.36),
                                      Line("F").Formula(TimeFormula("A", "3", "4")), Line("").Timed("TTB", 0.36),
                                      Line("").Formula(TimeFormula("A", "5", "4")), Line(" ")});
  EXPECT_EQ(Calculate(recorder), S_OK);
  EXPECT_EQ(recorder->Calls, (std::vector<std::string>{
                                 "get 1", "set 1", "get 2", "get 3", "set 3", "get 4", "get 5", "get 6", "set 6",
                                 "TTBCalculated", "TTUCalculated", "TWCalculated", "TRGCalculated", "TotalCalculated",
                                 "V_HumanTime", "V_MachineTime", "V_WaitingTime", "V_SetupTime", "V_TotalTime"}));
}

class LastStatusTest : public testing::TestWithParam<long> {};
TEST_P(LastStatusTest, IsThatOfTheWholeCalculation) {
  const auto recorder = MakeRecorder({Line("M10B").Timed("TTB", 0.36)});
  recorder->LastStatus = GetParam();
  EXPECT_EQ(Calculate(recorder), GetParam());
}
INSTANTIATE_TEST_SUITE_P(Statuses, LastStatusTest, testing::Values(S_OK, S_FALSE, E_FAIL, E_INVALIDARG));

TEST(AnalyzedTimeTest, OtherStatusesAreIgnored) {
  const auto recorder = MakeRecorder({Line("M10B").Timed("TTB", 0.36), Line("M10B").Timed("TTB", 0.36)});
  recorder->LineStatus = E_FAIL;
  recorder->OtherStatus = E_INVALIDARG;
  EXPECT_EQ(Calculate(recorder), S_OK);
  EXPECT_EQ(recorder->Calls.size(), 14u);
  EXPECT_EQ(RealOf(recorder->Inside(), "TotalCalculated"), 20.0);
}

// Answers with an empty record for one of its rows.
class StaleRow : public AnalysisShell {
 public:
  using AnalysisShell::AnalysisShell;
  long GetLine(int row, VEXTimeAnalysisLineData& line) override {
    return AnalysisShell::GetLine(row == 2 ? 0 : row, line);
  }
};

TEST(AnalyzedTimeTest, ARowThatCannotBeReadTakesNoPart) {
  const auto inside = MakeAnalysis(
      "A", {Line("M10B").Timed("TTB", 0.036, 4.0), Line("M10B").Timed("TTB", 36.0), Line("M10B").Timed("TTB", 0.036)});
  const std::string before = support::DescribeLine(*inside, 2);
  EXPECT_EQ(Calculate(KORHandle<StaleRow>::Adopt(new StaleRow(inside))), S_OK);
  EXPECT_EQ(RealOf(*inside, "TTBCalculated"), 5.0);
  EXPECT_EQ(support::DescribeLine(*inside, 2), before);
}

TEST(AnalyzedTimeTest, OtherAttributesStayAsTheyAre) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("TTB", 0.36)});
  (void)analysis->SetValue("V_Name", KORUnicodeString("Pick"));
  (void)analysis->SetValue("V_TotalTime", KORUnicodeString("old"));
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(support::Read<KORUnicodeString>(*analysis, "V_Name"), KORUnicodeString("Pick"));
  EXPECT_EQ(RealOf(*analysis, "V_TotalTime"), 0.36) << "replaces a value of another type";
}

// ---- Units and rounding ----

struct ConversionRow {
  const char* name;
  double tmu_per_minute;
  double tmu;  // of 0.36 seconds
};
class ConversionTest : public testing::TestWithParam<ConversionRow> {};
TEST_P(ConversionTest, DividesTheTimes) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("TTB", 0.36)});
  EXPECT_EQ(Calculate(analysis, GetParam().tmu_per_minute), S_OK);
  EXPECT_TRUE(SameNumber(GetParam().tmu, *RealOf(*analysis, "TTBCalculated")));
  EXPECT_TRUE(SameNumber(GetParam().tmu, *RealOf(*analysis, "TotalCalculated")));
  EXPECT_DOUBLE_EQ(*RealOf(*analysis, "V_HumanTime"), 0.36);
}
INSTANTIATE_TEST_SUITE_P(Conversions, ConversionTest,
                         testing::Values(ConversionRow{"Standard", 0.0, 0.36 / 0.036},
                                         ConversionRow{"NearTheStandard", 1666.67, 0.36 / 0.036},
                                         ConversionRow{"Site", 2000.0, 0.36 / (60.0 / 2000.0)},
                                         ConversionRow{"Negative", -2000.0, 0.36 / (60.0 / -2000.0)}),
                         support::RowName());

TEST(AnalyzedTimeTest, SecondsAreRoundedToSixDecimalsAndTmuAreNot) {
  const auto analysis = MakeAnalysis("A", {Line("M10B").Timed("TTB", 0.1234564), Line("M10B").Timed("TTU", 7.1234566)});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOf(*analysis, "TTBCalculated"), 0.1234564 / 0.036);
  EXPECT_EQ(RealOf(*analysis, "V_HumanTime"), 0.123456);
  EXPECT_EQ(RealOf(*analysis, "V_MachineTime"), 7.123457);
}

// ---- Lines as an analysis of three levels has them ----

TEST(AnalyzedTimeTest, ACircleOfReuseEnds) {
  const auto a = MakeAnalysis("A");
  const auto b = MakeAnalysis("B");
  const support::CircleBreaker breaker({a, b});
  support::AppendLines(*a, {Line("B").Timed("TTB", 1.0).Reuses(b).Formula(TimeFormula("B", "1", "0"))});
  support::AppendLines(*b, {Line("A").Timed("TTB", 2.0).Reuses(a).Formula(TimeFormula("A", "1", "0"))});
  EXPECT_EQ(Calculate(a), S_OK);
  EXPECT_EQ(Calculate(b), S_OK);
  EXPECT_EQ(RealOfLine(*a, 1, "TTBTime"), 0.0) << "row 1 of B reuses A, which no formula touched";
}

TEST(AnalyzedTimeTest, AChainOfAHundredThousandBelowAFormulaLine) {
  TimeAnalysis_var below = MakeAnalysis("0", {Line("M10B").Timed("TTB", 64.0)});
  for (int level = 1; level <= 100'000; ++level) {
    below = MakeAnalysis(std::to_string(level), {Line("T").Reuses(below), Line("M10B").Timed("TTB", 2.0)});
  }
  const auto analysis = MakeAnalysis(
      "A", {Line("T").Reuses(below).Formula(TimeFormula("A", "1", "1").Append(TimeFormula("0", "1", "8")))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TTBTime"), 75.0) << "1 and 8, 64 plain of the lowest, 2 plain of the highest";
}

TEST(AnalyzedTimeTest, TheReusedAnalysisItselfIsNotRecomputed) {
  const auto below = MakeAnalysis("T", {Line("F").Formula(TimeFormula("T", "1", "4"))});
  const std::string before = DescribeAnalysis(*below);
  const auto analysis = MakeAnalysis("A", {Line("T").Reuses(below).Formula(TimeFormula("T", "1", "4"))});
  EXPECT_EQ(Calculate(analysis), S_OK);
  EXPECT_EQ(DescribeAnalysis(*below), before);
  EXPECT_EQ(RealOfLine(*analysis, 1, "TTBTime"), 4.0);
}

}  // namespace
