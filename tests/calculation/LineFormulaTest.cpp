// The formulas of one line: what formulas of the line's own analysis and of reused analyses count, and what stands in
// where they leave their time or frequency open.
//
// The lines belong to the analysis "A". "T" is the analysis that they reuse.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "tests/calculation/AnalysisShell.h"
#include "tests/calculation/FormulaOfLine.h"
#include "tests/formula/FormulaTest.h"

namespace {

using calculationtest::CalculateLine;
using calculationtest::LineResult;
using calculationtest::MakeShellWithout;
using calculationtest::TimeOfFormulas;
using formulatest::SameNumber;
using support::AppendLines;
using support::CircleBreaker;
using support::Line;
using support::MakeAnalysis;
using support::Outputs;
using support::ParameterList;
using support::TimeFormula;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

// A plain line with that time.
Line Plain(double seconds, double frequency = 1.0) {
  return Line("M10B").Timed("TTB", seconds, frequency);
}

// A line that isn't plain, with that stored time and frequency.
Line FormulaLine(double seconds, double frequency = 1.0) {
  return Line("M10B").Timed("TTB", seconds, frequency).Formula(TimeFormula("T", "1", "0"));
}

// ---- No formulas ----

TEST(LineFormulaTest, AnEmptyListHasNoTimeWhateverIsReused) {
  EXPECT_EQ(CalculateLine(ParameterList()), LineResult{});
  EXPECT_EQ(CalculateLine(ParameterList(), MakeAnalysis("T", {Plain(3.0)})), LineResult{});
}

TEST(LineFormulaTest, NullEntriesAloneLeaveTheReusedAnalysisUntouched) {
  EXPECT_EQ(CalculateLine(ParameterList().AddNull().AddNull()), LineResult{});
  EXPECT_EQ(CalculateLine(ParameterList().AddNull(), MakeAnalysis("T", {Plain(3.0, 2.0)})), LineResult{6.0});
}

// ---- Formulas of the line's own analysis ----

TEST(LineFormulaTest, AnOwnFormulaCountsWithItsTimeAndTellsItsFrequency) {
  EXPECT_EQ(CalculateLine(Outputs("A", "1", {"Time", "Frequency"}, "Time = 4.0; Frequency = 3.0")),
            (LineResult{4.0, 3.0}));
}

TEST(LineFormulaTest, AnOwnFormulaTellsItsDescription) {
  EXPECT_EQ(CalculateLine(Outputs("A", "1", {"Description", "Time"}, "Time = 4; Description = 'reach'")),
            (LineResult{4.0, 7.0, "reach"}));
}

TEST(LineFormulaTest, AnEmptyDescriptionIsNone) {
  EXPECT_EQ(CalculateLine(Outputs("A", "1", {"Description"}, "Description = ''")), LineResult{});
}

TEST(LineFormulaTest, AnOwnFormulaWithoutTimeHasNone) {
  const auto reused = MakeAnalysis("T", {FormulaLine(5.0)});
  EXPECT_EQ(CalculateLine(Outputs("A", "1", {"Frequency"}, "Frequency = 2")), (LineResult{0.0, 2.0}));
  EXPECT_EQ(CalculateLine(Outputs("A", "1", {"Frequency"}, "Frequency = 2"), reused), (LineResult{0.0, 2.0}));
}

TEST(LineFormulaTest, AnOwnTimeBelowZeroStays) {
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A", "1", "-3")), -3.0);
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A", "1", "0")), 0.0);
}

struct OwnFrequencyRow {
  const char* name;
  const char* output;
  double frequency;
};
class OwnFrequencyTest : public testing::TestWithParam<OwnFrequencyRow> {};
TEST_P(OwnFrequencyTest, IsToldUnlessItPrintsAsTheMarker) {
  const LineResult result =
      CalculateLine(Outputs("A", "1", {"Frequency"}, std::string("Frequency = ") + GetParam().output));
  EXPECT_TRUE(SameNumber(GetParam().frequency, result.frequency));
  EXPECT_EQ(result.time, 0.0);
}
INSTANTIATE_TEST_SUITE_P(
    Frequencies, OwnFrequencyTest,
    testing::Values(OwnFrequencyRow{"Marker", "-1.0", 7.0}, OwnFrequencyRow{"PrintsAsTheMarker", "-1.0000001", 7.0},
                    OwnFrequencyRow{"PrintsAsTheMarkerFromAbove", "-0.9999999", 7.0},
                    OwnFrequencyRow{"JustBesideTheMarker", "-1.00001", -1.00001}, OwnFrequencyRow{"Zero", "0", 0.0},
                    OwnFrequencyRow{"Negative", "-10", -10.0}, OwnFrequencyRow{"Small", "1e-300", 1e-300},
                    OwnFrequencyRow{"Endless", "1/0", Infinity}, OwnFrequencyRow{"NoNumber", "0/0", NotANumber}),
    support::RowName());

TEST(LineFormulaTest, SeveralOwnFormulasAddUpAndTheLastOneTells) {
  const auto formulas =
      Outputs("A", "1", {"Time", "Frequency", "Description"}, "Time = 1; Frequency = 2; Description = 'one'")
          .Append(Outputs("A", "2", {"Time", "Frequency", "Description"}, "Time = 2; Frequency = 3; Description = ''"))
          .Append(Outputs("A", "3", {"Time", "Frequency"}, "Time = 4; Frequency = -1"));
  EXPECT_EQ(CalculateLine(formulas), (LineResult{7.0, 3.0, "one"}));
}

TEST(LineFormulaTest, ALineOfAnAnalysisWithoutIdentifierOwnsTheFormulasWithoutOwner) {
  EXPECT_EQ(CalculateLine(Outputs("", "", {"Time", "Frequency"}, "Time = 4; Frequency = 3"), NULL_var, ""),
            (LineResult{4.0, 3.0}));
}

// ---- Formulas of a reused analysis ----

TEST(LineFormulaTest, AReusedFormulaCountsByItsFrequencyBesideThePlainLines) {
  const auto reused = MakeAnalysis("T", {FormulaLine(9.0), Plain(0.25, 2.0), Plain(1.0)});
  EXPECT_EQ(CalculateLine(Outputs("T", "1", {"Time", "Frequency"}, "Time = 4; Frequency = 3"), reused),
            LineResult{13.5});
}

TEST(LineFormulaTest, AReusedFormulaTellsNothingToTheLine) {
  const auto reused = MakeAnalysis("T", {FormulaLine(9.0)});
  const auto formula =
      Outputs("T", "1", {"Time", "Frequency", "Description"}, "Time = 4; Frequency = 3; Description = 'x'");
  EXPECT_EQ(CalculateLine(formula, reused), LineResult{12.0});
}

TEST(LineFormulaTest, AReusedFormulaWithoutFrequencyCountsOnce) {
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T", "1", "4"), MakeAnalysis("T", {FormulaLine(9.0, 5.0)})), 4.0);
}

TEST(LineFormulaTest, OwnFormulasAndPlainLinesOfTheReusedAnalysisAddUp) {
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A", "1", "4"), MakeAnalysis("T", {FormulaLine(9.0), Plain(2.5)})), 6.5);
}

TEST(LineFormulaTest, ThePlainLinesOfAnAnalysisDeeperDownCountOnceItsFormulasBegin) {
  const auto deep = MakeAnalysis("U", {Plain(100.0), FormulaLine(9.0)});
  const auto reused = MakeAnalysis("T", {Line("U").Reuses(deep), Plain(0.5), FormulaLine(9.0)});
  EXPECT_EQ(TimeOfFormulas(TimeFormula("U", "2", "4"), reused), 104.5);
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T", "3", "4"), reused), 4.5) << "what U has is in no formula's list";
}

TEST(LineFormulaTest, PlainLinesCountOncePerRunOfFormulasOfOneOwner) {
  const auto deep = MakeAnalysis("U", {FormulaLine(9.0), Plain(10.0)});
  const auto reused = MakeAnalysis("T", {Line("U").Reuses(deep).Formula(TimeFormula("U", "1", "0")), Plain(100.0)});
  const auto first = TimeFormula("T", "1", "1");
  const auto second = TimeFormula("T", "2", "2");
  const auto other = TimeFormula("U", "1", "4");
  EXPECT_EQ(TimeOfFormulas(ParameterList(first).Append(second).Append(other), reused), 117.0);
  EXPECT_EQ(TimeOfFormulas(ParameterList(first).Append(other).Append(second), reused), 217.0) << "counted again";
}

TEST(LineFormulaTest, AnUnknownOwnerBetweenDoesNotMakePlainLinesCountAgain) {
  const auto reused = MakeAnalysis("T", {FormulaLine(9.0), Plain(100.0)});
  const auto formulas =
      TimeFormula("T", "1", "1").Append(TimeFormula("nowhere", "1", "8")).Append(TimeFormula("T", "2", "2"));
  EXPECT_EQ(TimeOfFormulas(formulas, reused), 111.0);
}

TEST(LineFormulaTest, TheLinesOwnAnalysisIsAnOwnerLikeOthersWhereACircleLeadsToIt) {
  const auto own = MakeAnalysis("A");
  const auto reused = MakeAnalysis("T", {Line("A").Reuses(own), Plain(1.0)});
  const CircleBreaker breaker({own, reused});
  AppendLines(*own, {Plain(10.0), Line("T").Reuses(reused).Formula(TimeFormula("A", "2", "4"))});
  EXPECT_EQ(CalculateLine(Outputs("A", "2", {"Time", "Frequency"}, "Time = 4; Frequency = 3"), reused),
            (LineResult{15.0, 3.0}))
      << "4, the 10 plain of A, and the 1 plain of T";
}

TEST(LineFormulaTest, OfTwoAnalysesWithOneIdentifierTheFirstIsTheOwner) {
  const auto first = MakeAnalysis("U", {Plain(1.0)});
  const auto second = MakeAnalysis("U", {Plain(2.0)});
  const auto reused = MakeAnalysis("T", {Line("U").Reuses(first), Line("U").Reuses(second)});
  EXPECT_EQ(TimeOfFormulas(TimeFormula("U", "1", "4"), reused), 5.0);
}

// ---- A reused analysis that no formula touched ----

TEST(LineFormulaTest, AnUntouchedReusedAnalysisCountsWithItsPlainLines) {
  const auto reused = MakeAnalysis("T", {Plain(0.25, 2.0), FormulaLine(9.0)});
  EXPECT_EQ(TimeOfFormulas(TimeFormula("nowhere", "1", "4"), reused), 4.5);
}

TEST(LineFormulaTest, WhatIsBelowAnUntouchedAnalysisDoesNotCount) {
  const auto reused = MakeAnalysis("T", {Line("U").Reuses(MakeAnalysis("U", {Plain(100.0)})), Plain(1.0)});
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A", "1", "4"), reused), 5.0);
}

TEST(LineFormulaTest, ARunningTimeNotAboveZeroMakesThePlainLinesCountAgain) {
  const auto reused = MakeAnalysis("T", {FormulaLine(0.0), Plain(3.0)});
  const auto below = Outputs("T", "1", {"Time", "Frequency"}, "Time = 4; Frequency = -2");
  EXPECT_EQ(TimeOfFormulas(below, reused), -2.0) << "-8 + 3, and 3 again";
  const auto zero = Outputs("T", "1", {"Time", "Frequency"}, "Time = 1; Frequency = -3");
  EXPECT_EQ(TimeOfFormulas(zero, reused), 3.0) << "-3 + 3, and 3 again";
  const auto above = Outputs("T", "1", {"Time", "Frequency"}, "Time = 1; Frequency = -2");
  EXPECT_EQ(TimeOfFormulas(above, reused), 1.0) << "-2 + 3";
}

TEST(LineFormulaTest, ARunningTimeThatIsNoNumberIsNotUntouched) {
  const auto reused = MakeAnalysis("T", {FormulaLine(0.0), Plain(3.0)});
  EXPECT_TRUE(SameNumber(NotANumber, TimeOfFormulas(TimeFormula("T", "1", "0/0"), reused)));
}

// ---- An open time: the row of the formula stands in ----

// Rows 1 to 6 with times 10, 20, and so on, and frequencies 1, 2, and so on; none of them plain.
support::TimeAnalysis_var SixRows() {
  std::vector<Line> lines;
  for (int row = 1; row <= 6; ++row) lines.push_back(FormulaLine(10.0 * row, row));
  return MakeAnalysis("T", lines);
}

struct TargetRow {
  const char* name;
  const char* row;
  int kind;
  int target;  // 0 for a row that isn't there
};
class TargetRowTest : public testing::TestWithParam<TargetRow> {
 protected:
  double Time() const { return 10.0 * GetParam().target; }
  double Frequency() const { return GetParam().target == 0 ? 1.0 : GetParam().target; }
  static support::ParameterList Formula(const std::vector<std::string>& outputs, const char* body) {
    return Outputs("T", GetParam().row, outputs, body, GetParam().kind);
  }
};

TEST_P(TargetRowTest, GivesAnOpenTime) {
  for (const char* body : {"Time = 0", "Time = -0.0", "Time = -5", "Time = -1/0"}) {
    EXPECT_EQ(TimeOfFormulas(Formula({"Time"}, body), SixRows()), Time()) << body;
  }
}

TEST_P(TargetRowTest, GivesAnOpenFrequency) {
  EXPECT_EQ(TimeOfFormulas(Formula({"Time", "Frequency"}, "Time = 1; Frequency = -1"), SixRows()), Frequency());
}

TEST_P(TargetRowTest, GivesTheTimeOfAFormulaWithoutTimeByItsFrequency) {
  EXPECT_EQ(TimeOfFormulas(Formula({"Frequency"}, "Frequency = 3"), SixRows()), 3.0 * Time());
  EXPECT_EQ(TimeOfFormulas(Formula({"Frequency"}, "Frequency = -1"), SixRows()), Frequency() * Time());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TargetRowTest,
    testing::Values(TargetRow{"AsItStands", "3", 0, 3}, TargetRow{"OtherKind", "3", 5, 3},
                    TargetRow{"NegativeKind", "3", -4, 3}, TargetRow{"Kind4", "3", 4, 5}, TargetRow{"Kind7", "3", 7, 6},
                    TargetRow{"FirstOfKind4", "1", 4, 1}, TargetRow{"FirstOfKind7", "1", 7, 2},
                    TargetRow{"Kind4BehindTheLast", "4", 4, 0}, TargetRow{"Kind7BehindTheLast", "4", 7, 0},
                    TargetRow{"Kind4OfRowZero", "0", 4, 0}, TargetRow{"Zero", "0", 0, 0},
                    TargetRow{"Negative", "-1", 0, 0}, TargetRow{"BehindTheLast", "7", 0, 0},
                    TargetRow{"Largest", "2147483647", 0, 0}, TargetRow{"LargestOfKind4", "2147483647", 4, 0},
                    TargetRow{"LargestOfKind7", "2147483647", 7, 0}, TargetRow{"Least", "-2147483648", 0, 0},
                    TargetRow{"LeastOfKind4", "-2147483648", 4, 0}, TargetRow{"LeastOfKind7", "-2147483648", 7, 0},
                    TargetRow{"Unreadable", "abc", 0, 0}, TargetRow{"UnreadableOfKind7", "abc", 7, 0},
                    TargetRow{"Empty", "", 0, 0}, TargetRow{"NumberInFront", "2x", 0, 2},
                    TargetRow{"BlankInFront", " 3", 0, 3}, TargetRow{"Sign", "+2", 0, 2},
                    TargetRow{"Hexadecimal", "0x2", 0, 0}, TargetRow{"Fraction", "1.9", 0, 1},
                    TargetRow{"LeadingZeros", "003", 0, 3}),
    support::RowName());

// Twice such a row is beyond 32 bits, and is no row of any table.
TEST(LineFormulaTest, ARowThatIsTooFarBelowZeroStandsForNoRow) {
  for (const char* row : {"-2147483647", "-2147483646", "-2147483645"}) {
    EXPECT_EQ(TimeOfFormulas(TimeFormula("T", row, "0", 4), SixRows()), 0.0) << row;
    EXPECT_EQ(TimeOfFormulas(TimeFormula("T", row, "0", 7), SixRows()), 0.0) << row;
  }
}

TEST(LineFormulaTest, TheFirstParameterNamesTheKind) {
  const support::FormulaText first{"T", "2", "out Time : Time, out Frequency : Real", "Time = 0; Frequency = 1", 4};
  support::FormulaText second = first;
  second.kind = 7;
  const auto formula = ParameterList().Add(first, {{"Time", "Time", "0"}}).Add(second, {{"Frequency", "Real", "0"}});
  EXPECT_EQ(TimeOfFormulas(formula, SixRows()), 30.0);
}

TEST(LineFormulaTest, AFrequencyJustBesideTheMarkerIsNotOpen) {
  EXPECT_EQ(TimeOfFormulas(Outputs("T", "3", {"Time", "Frequency"}, "Time = 1; Frequency = -1.0000001"), SixRows()),
            -1.0000001);
}

TEST(LineFormulaTest, TheMarkerOnTheRowItselfIsTakenAsItComes) {
  const auto reused = MakeAnalysis("T", {FormulaLine(5.0, -1.0)});
  EXPECT_EQ(TimeOfFormulas(Outputs("T", "1", {"Time", "Frequency"}, "Time = 4; Frequency = -1"), reused), -4.0);
}

TEST(LineFormulaTest, AnOpenTimeOfATotalLineIsItsTotal) {
  const auto reused = MakeAnalysis("T", {Line("M10B").Timed("T**", 2.0, 3.0)});
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T", "1", "0"), reused), 6.0);
}

TEST(LineFormulaTest, ATimeThatIsNoNumberIsNotOpen) {
  EXPECT_TRUE(SameNumber(NotANumber, TimeOfFormulas(TimeFormula("T", "3", "0/0"), SixRows())));
}

// ---- Owners that are not there ----

TEST(LineFormulaTest, AnUnknownOwnerHasNoRowToStandIn) {
  for (const auto& reused : {KORBaseUnknown_var(), KORBaseUnknown_var(SixRows())}) {
    EXPECT_EQ(TimeOfFormulas(TimeFormula("U", "3", "0"), reused), 0.0);
    EXPECT_EQ(TimeOfFormulas(TimeFormula("U", "3", "-4"), reused), 0.0);
    EXPECT_EQ(TimeOfFormulas(Outputs("U", "3", {"Frequency"}, "Frequency = 2"), reused), 0.0);
    EXPECT_EQ(TimeOfFormulas(Outputs("U", "3", {"Time", "Frequency"}, "Time = 4; Frequency = 3"), reused), 12.0);
    EXPECT_EQ(TimeOfFormulas(Outputs("U", "3", {"Time", "Frequency"}, "Time = 4; Frequency = -1"), reused), -4.0)
        << "an open frequency stays what it is";
  }
}

TEST(LineFormulaTest, WhatIsReusedMayBeNoAnalysis) {
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T", "3", "4"), calculationtest::MakeBareObject()), 4.0);
}

TEST(LineFormulaTest, AReusedAnalysisWithoutPropertiesOrLinesRaises) {
  EXPECT_THROW(TimeOfFormulas(TimeFormula("T", "3", "4"), MakeShellWithout<VEXITimeAnalysisProperties>(SixRows())),
               KORError);
  EXPECT_THROW(TimeOfFormulas(TimeFormula("T", "3", "4"), MakeShellWithout<VEXITimeAnalysisLines>(SixRows())),
               KORError);
}

TEST(LineFormulaTest, AReusedAnalysisThatOffersNoAttributesIsUnknown) {
  const auto reused = MakeShellWithout<VEXITimeAnalysisRepReference>(SixRows());
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T", "3", "0"), reused), 0.0);
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T", "3", "4"), reused), 4.0);
}

}  // namespace
