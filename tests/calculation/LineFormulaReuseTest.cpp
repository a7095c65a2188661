// The formulas of one line over several levels of reuse: the running time of a reused analysis in place of an open
// time, and how formulas are told apart by owner and row.
//
// The lines belong to the analysis "A", reuse "T", and through it "U".
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/calculation/AnalysisShell.h"
#include "tests/calculation/FormulaOfLine.h"

namespace {

using calculationtest::MakeShellWithout;
using calculationtest::TimeOfFormulas;
using support::Line;
using support::MakeAnalysis;
using support::Outputs;
using support::ParameterList;
using support::TimeFormula;

// U has a formula line and plain lines of 2 seconds. Row 1 of T reuses U, row 2 is plain and takes 1 second.
class RunningTimeTest : public testing::Test {
 protected:
  const support::TimeAnalysis_var _U =
      MakeAnalysis("U", {Line("G1A").Formula(TimeFormula("U", "1", "5")), Line("M10B").Timed("TTB", 2.0)});
  const support::TimeAnalysis_var _T =
      MakeAnalysis("T", {Line("U").Timed("TTB", 50.0, 9.0).Reuses(_U).Formula(TimeFormula("U", "1", "5")),
                         Line("M10B").Timed("TTB", 1.0)});

  // A formula of U of 5 seconds, and one of row 1 of T that leaves its time open.
  const ParameterList _OfU = TimeFormula("U", "1", "5");
  const ParameterList _Open = Outputs("T", "1", {"Frequency", "Time"}, "Time = 0; Frequency = 3");
};

TEST_F(RunningTimeTest, TakesThePlaceOfAnOpenTimeAndOfTheSum) {
  // U: 5 + 2 = 7. T: 7 * 3 = 21 takes the place of these 7; and the plain second of T.
  EXPECT_EQ(TimeOfFormulas(ParameterList(_OfU).Append(_Open), _T), 22.0);
}

TEST_F(RunningTimeTest, DropsWhatOtherOwnersBroughtBefore) {
  const auto formulas =
      TimeFormula("A", "1", "1000").Append(TimeFormula("nowhere", "1", "500")).Append(_OfU).Append(_Open);
  EXPECT_EQ(TimeOfFormulas(formulas, _T), 22.0);
}

TEST_F(RunningTimeTest, WhatComesBehindAddsUpAgain) {
  const auto formulas = ParameterList(_OfU).Append(_Open).Append(TimeFormula("A", "1", "1000"));
  EXPECT_EQ(TimeOfFormulas(formulas, _T), 1022.0);
}

TEST_F(RunningTimeTest, IsNothingAheadOfTheFormulasOfThatAnalysis) {
  // T: 0 * 3, and 1 plain. U: 5, and 2 plain.
  EXPECT_EQ(TimeOfFormulas(ParameterList(_Open).Append(_OfU), _T), 8.0);
}

TEST_F(RunningTimeTest, IsNothingWhereTheFormulasOfThatAnalysisAreMissing) {
  EXPECT_EQ(TimeOfFormulas(_Open, _T), 1.0) << "the stored 50 seconds of the row aren't read";
}

TEST_F(RunningTimeTest, ATimeAboveZeroIsNotOpen) {
  const auto formulas = ParameterList(_OfU).Append(TimeFormula("T", "1", "0.5"));
  EXPECT_EQ(TimeOfFormulas(formulas, _T), 8.5);
}

TEST_F(RunningTimeTest, AFormulaWithoutTimeReadsTheStoredLineInstead) {
  const auto formulas = ParameterList(_OfU).Append(Outputs("T", "1", {"Frequency"}, "Frequency = 3"));
  EXPECT_EQ(TimeOfFormulas(formulas, _T), 158.0) << "7 and 3 * 50 and the plain second";
}

TEST_F(RunningTimeTest, AnOpenFrequencyIsThatOfTheRow) {
  const auto open = Outputs("T", "1", {"Time", "Frequency"}, "Time = 0; Frequency = -1");
  EXPECT_EQ(TimeOfFormulas(ParameterList(_OfU).Append(open), _T), 64.0) << "7 * 9 and the plain second";
}

TEST_F(RunningTimeTest, GoesOnWithSeveralTimesOfOneFormula) {
  const support::FormulaText formula{"T", "1", "out a : Time, out b : Time, out c : Time", "a = 0; b = 2; c = -1"};
  const auto times =
      ParameterList().Add(formula, {{"Time", "Time", "0"}, {"Time", "Time", "0"}, {"Time", "Time", "0"}});
  EXPECT_EQ(TimeOfFormulas(ParameterList(_OfU).Append(times), _T), 17.0) << "7 + 2 + 7 and the plain second";
}

TEST_F(RunningTimeTest, RunsThroughThreeLevels) {
  const auto top =
      MakeAnalysis("S", {Line("T").Reuses(_T).Formula(TimeFormula("S", "1", "0")), Line("M10B").Timed("TW", 4.0)});
  const auto formulas =
      ParameterList(_OfU).Append(_Open).Append(Outputs("S", "1", {"Time", "Frequency"}, "Time = 0; Frequency = 2"));
  // T: 22, of which 1 by its plain line; S: 22 * 2 in place of it all, and 4 plain.
  EXPECT_EQ(TimeOfFormulas(formulas, top), 48.0);
}

TEST_F(RunningTimeTest, ARowThatReusesWhatIsNoAnalysisReadsTheStoredLine) {
  const auto hidden = MakeShellWithout<VEXITimeAnalysisRepReference>(_U);
  const auto reused =
      MakeAnalysis("T", {Line("U").Timed("TTB", 50.0).Reuses(hidden).Formula(TimeFormula("T", "1", "0"))});
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T", "1", "0"), reused), 50.0);
}

TEST_F(RunningTimeTest, OfAnAnalysisThatReusesItselfIsItsOwn) {
  const auto circle = MakeAnalysis("T");
  const support::CircleBreaker breaker({circle});
  support::AppendLines(*circle,
                       {Line("T").Reuses(circle).Formula(TimeFormula("T", "1", "0")), Line("M10B").Timed("TTB", 1.0)});
  // Row 2: 5, and 1 plain. Row 1: 6 * 3 in place of these.
  const auto formulas = TimeFormula("T", "2", "5").Append(_Open);
  EXPECT_EQ(TimeOfFormulas(formulas, circle), 18.0);
}

TEST_F(RunningTimeTest, DependsOnTheKindOfTheRow) {
  const auto reused = MakeAnalysis("T", {Line("M10B").Timed("TTB", 0.5), Line("U").Reuses(_U).Formula(_OfU)});
  const auto open = TimeFormula("T", "1", "0", 7);
  EXPECT_EQ(TimeOfFormulas(ParameterList(_OfU).Append(open), reused), 7.5) << "row 2 reuses U";
  EXPECT_EQ(TimeOfFormulas(ParameterList(_OfU).Append(TimeFormula("T", "1", "0", 4)), reused), 8.0)
      << "row 1 doesn't: 7 and 0.5, and 0.5 plain";
}

// ---- Formulas by owner and row ----

TEST(FormulaKeyTest, ParametersOfOneOwnerAndRowAreOneFormula) {
  const support::FormulaText formula{"A", "1", "x : Real, out Time : Time", "Time = x"};
  const auto parameters = ParameterList().Add(formula, {{"x", "Real", "4"}, {"Time", "Time", "0"}});
  EXPECT_EQ(TimeOfFormulas(parameters), 4.0);
  EXPECT_EQ(TimeOfFormulas(ParameterList(parameters).Append(parameters)), 4.0) << "a repetition is the same formula";
}

TEST(FormulaKeyTest, RowsAreToldApartAsTexts) {
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A", "1", "4").Append(TimeFormula("A", "01", "4"))), 8.0);
  EXPECT_EQ(
      TimeOfFormulas(TimeFormula("A", "", "1").Append(TimeFormula("", "", "2")).Append(TimeFormula("", "A", "4"))),
      7.0);
}

TEST(FormulaKeyTest, NullEntriesBetweenFormulasDoNotMatter) {
  EXPECT_EQ(
      TimeOfFormulas(
          ParameterList().AddNull().Append(TimeFormula("A", "1", "4")).AddNull().Append(TimeFormula("A", "2", "2"))),
      6.0);
}

TEST(FormulaKeyTest, TheFirstParameterBringsTheFormula) {
  const auto parameters = TimeFormula("A", "1", "4").Append(TimeFormula("A", "1", "9 +"));
  EXPECT_EQ(TimeOfFormulas(parameters), 4.0);
}

// "owner|row" is cut at its bars.
TEST(FormulaKeyTest, AnIdentifierWithABarIsCut) {
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A|2", "3", "4")), 0.0) << "no parameter belongs to row 2 of A";
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A", "2|3", "4")), 0.0);
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A|", "2", "4")), 0.0) << "nor to row \"\"";
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A|2", "3", "4").Append(TimeFormula("A", "2", "10"))), 20.0)
      << "row 2 of A stands for both";
}

TEST(FormulaKeyTest, AFormulaThatBelongsToNoKeyBringsNoPlainLines) {
  const auto reused = MakeAnalysis("T", {Line("M10B").Timed("TTB", 1.0)});
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T|1", "1", "4"), reused), 1.0) << "as an untouched analysis";
}

TEST(FormulaKeyTest, ThousandsOfFormulasOnOneLine) {
  ParameterList parameters;
  for (int row = 1; row <= 5000; ++row) parameters.Append(Outputs("A", std::to_string(row), {"Time"}, "Time = 0.5"));
  EXPECT_EQ(TimeOfFormulas(parameters), 2500.0);
}

TEST(FormulaKeyTest, TheParametersStayAsTheyAre) {
  VEXSTMTimeAnalysisDlgServices services;
  ParameterList parameters =
      Outputs("A", "1", {"Time", "Frequency", "Description"}, "Time = 4; Frequency = 3; Description = 'x'").AddNull();
  KORRawCollPV lent = parameters.Lend();
  const KORRawCollPV pointers = lent;
  const std::string before = support::Describe(lent);
  KORUnicodeString id = "A";
  double frequency = 1.0;
  KORUnicodeString description;
  EXPECT_EQ(services.CalculateFormulaOnLineService(lent, id, NULL_var, frequency, description), 4.0);
  EXPECT_EQ(lent, pointers);
  EXPECT_EQ(support::Describe(lent), before);
  EXPECT_EQ(id, "A");
}

TEST(FormulaKeyTest, TheReusedAnalysisStaysAsItIs) {
  const auto reused =
      MakeAnalysis("T", {Line("M10B").Timed("TTB", 1.0), Line("G1A").Formula(TimeFormula("T", "2", "1"))});
  const std::string before = support::DescribeAnalysis(*reused);
  EXPECT_EQ(TimeOfFormulas(TimeFormula("T", "2", "8"), reused), 9.0);
  EXPECT_EQ(support::DescribeAnalysis(*reused), before);
  reused->AddRef();
  EXPECT_EQ(reused->Release(), 1u);
}

}  // namespace
