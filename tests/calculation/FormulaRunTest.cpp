// One formula of a line on the knowledge engine: the values of its arguments, the roles of its outputs, and what is
// left of it when it can't be read, runs out of values, or fails.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "tests/calculation/FormulaOfLine.h"
#include "tests/formula/FormulaTest.h"

namespace {

using calculationtest::CalculateLine;
using calculationtest::LineResult;
using calculationtest::TimeOfFormulas;
using formulatest::SameNumber;
using support::FormulaText;
using support::Line;
using support::MakeAnalysis;
using support::Outputs;
using support::ParameterList;
using support::TimeFormula;

constexpr double Infinity = std::numeric_limits<double>::infinity();

// ---- Values ----

struct ValueRow {
  const char* name;
  const char* argument_type;
  const char* value_type;
  const char* text;
  double value;
};
class ParameterValueTest : public testing::TestWithParam<ValueRow> {};

TEST_P(ParameterValueTest, IsReadByTheTypeOfTheParameter) {
  const ValueRow& row = GetParam();
  const FormulaText formula{"A", "1", std::string("x : ") + row.argument_type + ", out Time : Time", "Time = x"};
  EXPECT_TRUE(SameNumber(row.value, TimeOfFormulas(ParameterList().Add(
                                        formula, {{"x", row.value_type, row.text}, {"Time", "Time", "-77"}}))));
}

INSTANTIATE_TEST_SUITE_P(
    Values, ParameterValueTest,
    testing::Values(ValueRow{"Integer", "Integer", "Integer", "12", 12.0},
                    ValueRow{"IntegerStopsAtTheFraction", "Integer", "Integer", "3.7", 3.0},
                    ValueRow{"IntegerStopsAtTheExponent", "Integer", "Integer", "1e1", 1.0},
                    ValueRow{"UnreadableInteger", "Integer", "Integer", "abc", 0.0},
                    ValueRow{"EmptyInteger", "Integer", "Integer", "", 0.0},
                    ValueRow{"NegativeInteger", "Integer", "Integer", " -4", -4.0},
                    ValueRow{"HexadecimalInteger", "Integer", "Integer", "0x10", 0.0},
                    ValueRow{"Real", "Real", "Real", "2.5", 2.5}, ValueRow{"Exponent", "Real", "Real", "1e1", 10.0},
                    ValueRow{"RealInFront", "Real", "Real", "5x", 5.0},
                    ValueRow{"UnreadableReal", "Real", "Real", "abc", 0.0},
                    ValueRow{"EmptyReal", "Real", "Real", "", 0.0},
                    ValueRow{"CommaEndsAReal", "Real", "Real", "2,5", 2.0},
                    ValueRow{"HexadecimalReal", "Real", "Real", "0x10", 16.0},
                    ValueRow{"EndlessReal", "Real", "Real", "inf", Infinity},
                    ValueRow{"TooLargeReal", "Real", "Real", "1e999", Infinity},
                    ValueRow{"NoNumber", "Real", "Real", "nan", std::numeric_limits<double>::quiet_NaN()},
                    ValueRow{"Time", "Time", "Time", "0.36", 0.36}, ValueRow{"Length", "Length", "Length", "1.5", 1.5},
                    ValueRow{"Mass", "Mass", "Mass", "1.5", 1.5}, ValueRow{"Angle", "Angle", "Angle", "1.5", 1.5},
                    ValueRow{"Number", "Number", "Number", "1.5", 1.5},
                    ValueRow{"UnknownMagnitudeIsReal", "Real", "Colour", "1.5", 1.5},
                    ValueRow{"NoTypeIsReal", "Real", "", "1.5", 1.5},
                    ValueRow{"SmallLettersAreNoInteger", "Real", "integer", "1.5", 1.5},
                    ValueRow{"AMagnitudeThatDoesNotFitFailsTheRun", "Time", "Length", "1.5", -77.0},
                    ValueRow{"ATextForANumberFailsTheRun", "Real", "String", "1.5", -77.0}),
    support::RowName());

TEST(FormulaRunTest, ATextGoesInAndComesOutAsItStands) {
  const FormulaText formula{"A", "1", "s : String, out Description : String", "Description = s"};
  for (const char* text : {"walk", " 2.5 ", "zwei H\xC3\xA4nde", "a|b"}) {
    EXPECT_EQ(CalculateLine(ParameterList().Add(formula, {{"s", "String", text}, {"Description", "String", ""}})),
              (LineResult{0.0, 7.0, text}));
  }
}

TEST(FormulaRunTest, AnExpressionGivesTheOneOutput) {
  const FormulaText formula{"A", "1", "x : Real, n : Integer, out Time : Time", "0.5 * n + x"};
  EXPECT_EQ(TimeOfFormulas(
                ParameterList().Add(formula, {{"x", "Real", "0.25"}, {"n", "Integer", "3"}, {"Time", "Time", "0"}})),
            1.75);
}

TEST(FormulaRunTest, AnOutputThatTheBodyLeavesKeepsTheValueOfItsParameter) {
  const FormulaText formula{"A", "1", "out Time : Time, out Frequency : Real, out Description : String",
                            "Frequency = 2"};
  EXPECT_EQ(CalculateLine(ParameterList().Add(
                formula, {{"Time", "Time", "5"}, {"Frequency", "Real", "9"}, {"Description", "String", "kept"}})),
            (LineResult{5.0, 2.0, "kept"}));
}

// Arguments take the parameters from the first one of the formula on, whoever owns those.
TEST(FormulaRunTest, ParametersOfOthersInBetweenAreTaken) {
  const FormulaText own{"A", "1", "x : Real, y : Real, out Time : Time", "Time = 100 * x + y"};
  const FormulaText other{"B", "1", "y : Real, out Time : Time", "Time = y"};
  const auto parameters = ParameterList()
                              .Add(own, {{"x", "Real", "1"}})
                              .Add(other, {{"y", "Real", "7"}, {"Time", "Time", "0"}})
                              .Add(own, {{"y", "Real", "2"}, {"Time", "Time", "0"}});
  EXPECT_EQ(TimeOfFormulas(parameters), 107.0 + 7.0);
}

// ---- Roles ----

TEST(FormulaRoleTest, TheParameterNamesTheRole) {
  const FormulaText formula{"A", "1", "out result : Time, out count : Real, out words : String",
                            "result = 4; count = 3; words = 'grasp'"};
  EXPECT_EQ(CalculateLine(ParameterList().Add(
                formula, {{"Time", "Time", "0"}, {"Frequency", "Real", "0"}, {"Description", "String", ""}})),
            (LineResult{4.0, 3.0, "grasp"}));
}

TEST(FormulaRoleTest, OtherRolesAreIgnored) {
  const FormulaText formula{"A", "1", "out Time : Time, out Frequency : Real, out Description : String",
                            "Time = 4; Frequency = 3; Description = 'grasp'"};
  EXPECT_EQ(CalculateLine(ParameterList().Add(
                formula, {{"time", "Time", "0"}, {"", "Real", "0"}, {"Description ", "String", ""}})),
            LineResult{});
}

TEST(FormulaRoleTest, SeveralOutputsOfOneRole) {
  const FormulaText formula{"A", "1", "out a : Time, out b : Time, out c : Real, out d : Real",
                            "a = 4; b = 5; c = 2; d = 3"};
  EXPECT_EQ(
      CalculateLine(ParameterList().Add(
          formula,
          {{"Time", "Time", "0"}, {"Time", "Time", "0"}, {"Frequency", "Real", "0"}, {"Frequency", "Real", "0"}})),
      (LineResult{9.0, 3.0}))
      << "times add up, the last frequency counts";
}

TEST(FormulaRoleTest, InputsPlayNoRole) {
  const FormulaText formula{"A", "1", "Frequency : Real, Description : String, out Time : Time",
                            "Time = 2 * Frequency"};
  EXPECT_EQ(CalculateLine(ParameterList().Add(
                formula, {{"Frequency", "Real", "3"}, {"Description", "String", "grasp"}, {"Time", "Time", "0"}})),
            LineResult{6.0});
}

TEST(FormulaRoleTest, ATextAsTimeCountsNothingAndANumberAsDescriptionIsPrinted) {
  const FormulaText formula{"A", "1", "out a : String, out b : Real, out c : String", "a = '5'; b = 0.5; c = '3'"};
  EXPECT_EQ(CalculateLine(ParameterList().Add(
                formula, {{"Time", "String", ""}, {"Description", "Real", "0"}, {"Frequency", "String", ""}})),
            (LineResult{0.0, 0.0, "0.5"}));
}

// ---- Whether a formula speaks of its time: by the name of an argument, input or output, that had a parameter ----

class StoredTimeTest : public testing::Test {
 protected:
  const support::TimeAnalysis_var _Reused =
      MakeAnalysis("T", {Line("M10B").Timed("TTB", 10.0, 4.0).Formula(TimeFormula("T", "1", "0"))});

  double TimeOf(const char* signature, const char* body, const std::vector<support::ArgumentValue>& values) {
    return TimeOfFormulas(ParameterList().Add({"T", "1", signature, body}, values), _Reused);
  }
};

TEST_F(StoredTimeTest, StandsInForAFormulaWithoutTime) {
  EXPECT_EQ(TimeOf("out Frequency : Real", "Frequency = 2", {{"Frequency", "Real", "0"}}), 20.0);
  EXPECT_EQ(TimeOf("x : Real", "", {{"x", "Real", "5"}}), 10.0) << "without any output";
}

TEST_F(StoredTimeTest, DoesNotForAFormulaWithTheTimeAsInput) {
  EXPECT_EQ(TimeOf("Time : Time, out Frequency : Real", "Frequency = Time",
                   {{"Time", "Time", "2"}, {"Frequency", "Real", "0"}}),
            0.0);
}

TEST_F(StoredTimeTest, DoesNotForATimeInAnotherRole) {
  EXPECT_EQ(TimeOf("out Time : Time", "Time = 2", {{"other", "Time", "0"}}), 0.0);
}

TEST_F(StoredTimeTest, DoesNotBesideATimeUnderAnotherName) {
  EXPECT_EQ(TimeOf("out result : Time", "result = 2", {{"Time", "Time", "0"}}), 2.0);
  EXPECT_EQ(TimeOf("out result : Time", "result = 0", {{"Time", "Time", "0"}}), 10.0);
}

// ---- Lists that end before the signature ----

TEST_F(StoredTimeTest, StandsInWhereTheListEndsAheadOfTheTime) {
  EXPECT_EQ(TimeOf("out Frequency : Real, out Time : Time", "Frequency = 5; Time = 7", {{"Frequency", "Real", "2"}}),
            20.0)
      << "the run fails, and the frequency keeps the value of its parameter";
}

TEST(FormulaRunTest, AListThatEndsTooEarlyLeavesTheOutputsWithTheirValues) {
  const FormulaText formula{"A", "1", "out Time : Time, out Frequency : Real, x : Real", "Time = x; Frequency = x"};
  EXPECT_EQ(CalculateLine(ParameterList().Add(formula, {{"Time", "Time", "5"}, {"Frequency", "Real", "3"}})),
            (LineResult{5.0, 3.0}));
  EXPECT_EQ(CalculateLine(ParameterList().Add(formula, {{"Time", "Time", "5"}})), LineResult{5.0});
}

TEST(FormulaRunTest, MoreParametersThanArgumentsDoNoHarm) {
  const FormulaText formula{"A", "1", "out Time : Time", "Time = 4"};
  EXPECT_EQ(CalculateLine(ParameterList().Add(formula, {{"Time", "Time", "0"}, {"Frequency", "Real", "3"}})),
            LineResult{4.0});
}

TEST(FormulaRunTest, AFormulaWithoutArguments) {
  const auto reused = MakeAnalysis("T", {Line("M10B").Timed("TTB", 10.0), Line("M10B").Timed("TTB", 1.0)});
  const FormulaText formula{"T", "1", "", ""};
  EXPECT_EQ(TimeOfFormulas(ParameterList().Add(formula, {{"x", "Real", "0"}}), reused), 21.0)
      << "the stored time of its row, and the plain lines";
}

// ---- Null entries ----

TEST(FormulaRunTest, ANullEntryAmongTheValuesEndsTheCall) {
  const FormulaText formula{"A", "2", "x : Real, out Time : Time", "Time = x"};
  const auto reused = MakeAnalysis("T", {Line("M10B").Timed("TTB", 10.0)});
  const auto parameters = Outputs("A", "1", {"Time", "Frequency"}, "Time = 4; Frequency = 3")
                              .Add(formula, {{"x", "Real", "5"}})
                              .AddNull()
                              .Add(formula, {{"Time", "Time", "0"}});
  EXPECT_EQ(CalculateLine(parameters, reused), (LineResult{0.0, 3.0})) << "what was told before stays told";
}

TEST(FormulaRunTest, ANullEntryBehindTheValuesIsNotLookedAt) {
  EXPECT_EQ(TimeOfFormulas(TimeFormula("A", "1", "4").AddNull()), 4.0);
}

// ---- Formulas that are not valid ----

struct InvalidRow {
  const char* name;
  const char* signature;
  const char* body;
};
class InvalidFormulaTest : public testing::TestWithParam<InvalidRow> {
 protected:
  const ParameterList _Invalid =
      ParameterList().Add({"A", "9", GetParam().signature, GetParam().body}, {{"Time", "Time", "5"}});
  const ParameterList _Valid =
      Outputs("A", "1", {"Time", "Frequency", "Description"}, "Time = 4; Frequency = 3; Description = 'reach'");
  const support::TimeAnalysis_var _Reused = MakeAnalysis("T", {Line("M10B").Timed("TTB", 10.0)});
};

TEST_P(InvalidFormulaTest, TakesTheTimeOfTheWholeLine) {
  EXPECT_EQ(CalculateLine(_Invalid), LineResult{});
  EXPECT_EQ(CalculateLine(_Invalid, _Reused), LineResult{});
}

TEST_P(InvalidFormulaTest, LeavesWhatFormulasBeforeItTold) {
  EXPECT_EQ(CalculateLine(ParameterList(_Valid).Append(_Invalid), _Reused), (LineResult{0.0, 3.0, "reach"}));
}

TEST_P(InvalidFormulaTest, KeepsFormulasBehindItFromRunning) {
  EXPECT_EQ(CalculateLine(ParameterList(_Invalid).Append(_Valid), _Reused), LineResult{});
}

INSTANTIATE_TEST_SUITE_P(Formulas, InvalidFormulaTest,
                         testing::Values(InvalidRow{"UnreadableSignature", "out Time Time", "Time = 4"},
                                         InvalidRow{"UnknownType", "out Time : Colour", "Time = 4"},
                                         InvalidRow{"UnreadableBody", "out Time : Time", "Time = = 4"},
                                         InvalidRow{"BodyThatEndsTooEarly", "out Time : Time", "Time = (4"},
                                         InvalidRow{"BothUnreadable", ",", "end"}),
                         support::RowName());

// ---- Runs that fail ----

struct FailingRow {
  const char* name;
  const char* body;
};
class FailedRunTest : public testing::TestWithParam<FailingRow> {};

TEST_P(FailedRunTest, LeavesTheOutputsWithTheirValues) {
  const FormulaText formula{"A", "1", "out Time : Time, out Frequency : Real", GetParam().body};
  EXPECT_EQ(CalculateLine(ParameterList().Add(formula, {{"Time", "Time", "5"}, {"Frequency", "Real", "3"}})),
            (LineResult{5.0, 3.0}));
}

TEST_P(FailedRunTest, DoesNotStopTheOthers) {
  const FormulaText formula{"A", "1", "out Time : Time, out Frequency : Real", GetParam().body};
  const auto parameters = ParameterList()
                              .Add(formula, {{"Time", "Time", "5"}, {"Frequency", "Real", "-1"}})
                              .Append(TimeFormula("A", "2", "4"));
  EXPECT_EQ(CalculateLine(parameters, MakeAnalysis("T", {Line("M10B").Timed("TTB", 10.0)})), LineResult{19.0});
}

INSTANTIATE_TEST_SUITE_P(Bodies, FailedRunTest,
                         testing::Values(FailingRow{"CountsWithNothing", "Time = 1; Frequency = nil + 1"},
                                         FailingRow{"TextForANumber", "Frequency = 2; Time = 'four'"},
                                         FailingRow{"NeverEnds", "Time = 1; while true do Frequency = 2 end"},
                                         FailingRow{"RaisesAnError", "Time = 1; error('no')"}),
                         support::RowName());

}  // namespace
