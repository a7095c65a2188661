// Tests of the yardstick for the formulas of a line: which occurrences are evaluated, where a time comes from that a
// formula doesn't yield, what is weighed, and what reaches the line.
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "CalculationOracle.h"
#include "OracleAnalysis.h"
#include "tests/support/ToyEngine.h"

namespace oracle {
namespace {

using support::ToyEngine;

// A parameter without source texts; Occurrence adds them.
FormulaParameter Value(const char* name, const char* type, const char* text) {
  FormulaParameter parameter;
  parameter.name = name;
  parameter.value_type = type;
  parameter.value_text = text;
  return parameter;
}

const FormulaParameter TimeValue = Value("Time", "Time", "0");
const FormulaParameter FrequencyValue = Value("Frequency", "Real", "0");
const FormulaParameter DescriptionValue = Value("Description", "String", "");

struct Formula {
  const char* signature;
  const char* body;
  std::vector<FormulaParameter> values;
};

// The parameters of one formula occurrence.
FormulaParameters Occurrence(const char* owner, const char* row, const Formula& formula, int kind = 0) {
  FormulaParameters parameters;
  for (FormulaParameter parameter : formula.values) {
    parameter.owner_id = owner;
    parameter.owner_row = row;
    parameter.signature = formula.signature;
    parameter.body = formula.body;
    parameter.kind = kind;
    parameters.emplace_back(parameter);
  }
  return parameters;
}

FormulaParameters Together(const std::vector<FormulaParameters>& lists) {
  FormulaParameters all;
  for (const FormulaParameters& list : lists) all.insert(all.end(), list.begin(), list.end());
  return all;
}

Formula TimeOnly(const char* body) {
  return {"out Time : Time", body, {TimeValue}};
}

const Formula FourTimesThree = {
    "out Time : Time, out Frequency : Real", "Time = 4; Frequency = 3", {TimeValue, FrequencyValue}};

Line Ttb(double time, double factor = 1.0) {
  return LineOf({{"TimeType", Text("TTB")}, {"TTBTime", time}, {"Factor", factor}});
}

// The line under test stands in the analysis A and, mostly, reuses B. The frequency is 7.0 and the description "kept"
// as long as nobody changes them.
class FormulaOnLineTest : public testing::Test {
 protected:
  double Calculate(const FormulaParameters& parameters, const Analysis* reused = nullptr) {
    return FormulaOnLine(parameters, "A", reused, _Frequency, _Description, _Engine);
  }
  void ExpectNothingTold() {
    EXPECT_EQ(_Frequency, 7.0);
    EXPECT_EQ(_Description, "kept");
  }

  ToyEngine _Engine;
  double _Frequency = 7.0;
  std::string _Description = "kept";
};

TEST_F(FormulaOnLineTest, NoParametersNoTime) {
  Analysis b = AnalysisOf("B", {Ttb(2.0)});
  EXPECT_EQ(Calculate({}, &b), 0.0);
  ExpectNothingTold();
}

TEST_F(FormulaOnLineTest, OnlyNullParametersLeaveTheReusedAnalysis) {
  Analysis b = AnalysisOf("B", {Ttb(2.0, 3.0)});
  EXPECT_EQ(Calculate({std::nullopt}), 0.0);
  EXPECT_EQ(Calculate({std::nullopt}, &b), 6.0);
}

TEST_F(FormulaOnLineTest, OneOwnerAndRowIsOneEvaluation) {
  EXPECT_EQ(Calculate(Occurrence("A", "1", FourTimesThree)), 4.0);
  EXPECT_EQ(_Engine.Runs(), 1);
  EXPECT_EQ(Calculate(Together({Occurrence("A", "1", FourTimesThree), Occurrence("A", "1", FourTimesThree)})), 4.0);
  EXPECT_EQ(_Engine.Runs(), 2);
  EXPECT_EQ(Calculate(Together({Occurrence("A", "1", FourTimesThree), Occurrence("A", "2", FourTimesThree)})), 8.0);
  EXPECT_EQ(_Engine.Runs(), 4);
}

TEST_F(FormulaOnLineTest, TheOwnFormulaTellsItsFrequencyAndIsNotWeighed) {
  EXPECT_EQ(Calculate(Occurrence("A", "1", FourTimesThree)), 4.0);
  EXPECT_EQ(_Frequency, 3.0);
}

TEST_F(FormulaOnLineTest, TheFormulaOfAReusedAnalysisIsWeighedAndTellsNothing) {
  Analysis b = AnalysisOf("B", {Ttb(2.0, 0.5)});
  EXPECT_EQ(Calculate(Occurrence("B", "1", FourTimesThree), &b), 12.0 + 1.0);
  ExpectNothingTold();
}

TEST_F(FormulaOnLineTest, TheFormulaOfAnUnknownOwnerIsWeighedToo) {
  EXPECT_EQ(Calculate(Occurrence("nowhere", "1", FourTimesThree)), 12.0);
  ExpectNothingTold();
}

struct FrequencyCase {
  const char* name;
  const char* body;
  double frequency;
};
void PrintTo(const FrequencyCase& row, std::ostream* out) {
  *out << row.body;
}
class OwnFrequencyTest : public FormulaOnLineTest, public testing::WithParamInterface<FrequencyCase> {};
TEST_P(OwnFrequencyTest, IsToldUnlessItPrintsLikeTheMarker) {
  Calculate(Occurrence("A", "1", {"out Frequency : Real", GetParam().body, {FrequencyValue}}));
  EXPECT_EQ(_Frequency, GetParam().frequency);
}
INSTANTIATE_TEST_SUITE_P(Frequencies, OwnFrequencyTest,
                         testing::Values(FrequencyCase{"Marker", "Frequency = -1", 7.0},
                                         FrequencyCase{"NearTheMarker", "Frequency = -1.0000001", 7.0},
                                         FrequencyCase{"NotSoNear", "Frequency = -1.00001", -1.00001},
                                         FrequencyCase{"Zero", "Frequency = 0", 0.0},
                                         FrequencyCase{"FailedRunLeavesTheStartValue", "Frequency = nil + 1", 0.0}),
                         NameOf<testing::TestParamInfo<FrequencyCase>>);

TEST_F(FormulaOnLineTest, TheOwnDescriptionIsToldUnlessEmpty) {
  const char* signature = "out Description : String";
  EXPECT_EQ(Calculate(Occurrence("A", "1", {signature, "Description = \"\"", {DescriptionValue}})), 0.0);
  ExpectNothingTold();
  Calculate(Occurrence("B", "1", {signature, "Description = \"walk\"", {DescriptionValue}}));
  ExpectNothingTold();
  Calculate(Occurrence("A", "1", {signature, "Description = \"walk\"", {DescriptionValue}}));
  EXPECT_EQ(_Description, "walk");
}

// ---- What goes in ----

struct InputCase {
  const char* name;
  const char* type;
  const char* text;
  double time;
};
void PrintTo(const InputCase& row, std::ostream* out) {
  *out << row.type << " " << row.text;
}
class InputTest : public FormulaOnLineTest, public testing::WithParamInterface<InputCase> {};
TEST_P(InputTest, IsReadByItsType) {
  const FormulaParameter input = Value("x", GetParam().type, GetParam().text);
  EXPECT_EQ(Calculate(Occurrence("A", "1", {"x : Real, out Time : Time", "Time = 2*x", {input, TimeValue}})),
            GetParam().time);
}
INSTANTIATE_TEST_SUITE_P(
    Inputs, InputTest,
    testing::Values(InputCase{"Integer", "Integer", "3", 6.0},
                    InputCase{"IntegerStopsAtThePoint", "Integer", "3.5", 6.0},
                    InputCase{"IntegerWithBlanksAndTail", "Integer", "  -4x", -8.0},
                    InputCase{"UnreadableInteger", "Integer", "x", 0.0}, InputCase{"Real", "Real", "3.5", 7.0},
                    InputCase{"RealWithExponent", "Real", "1e1", 20.0}, InputCase{"UnreadableReal", "Real", "", 0.0},
                    InputCase{"Dimension", "Length", "3.5", 7.0}, InputCase{"TextFailsTheRun", "String", "3", 0.0}),
    NameOf<testing::TestParamInfo<InputCase>>);

TEST_F(FormulaOnLineTest, AFailedRunLeavesTheStartValues) {
  const FormulaParameter time = Value("Time", "Time", "5");
  EXPECT_EQ(Calculate(Occurrence("A", "1", {"out Time : Time", "Time = 9; Time = nil + 1", {time}})), 5.0);
}

TEST_F(FormulaOnLineTest, AListThatEndsEarlyFailsTheRun) {
  const FormulaParameter time = Value("Time", "Time", "5");
  EXPECT_EQ(Calculate(Occurrence("A", "1", {"out Time : Time, x : Real", "Time = 9", {time}})), 5.0);
}

TEST_F(FormulaOnLineTest, ATimeArgumentBehindTheEndIsNotSeen) {
  Analysis b = AnalysisOf("B", {Ttb(2.0)});
  b.lines[0].parameters.emplace_back();
  const Formula formula = {"x : Real, out Time : Time", "Time = 9", {Value("x", "Real", "1")}};
  EXPECT_EQ(Calculate(Occurrence("B", "1", formula), &b), 2.0);
}

TEST_F(FormulaOnLineTest, ANullAmongTheArgumentsLosesEverything) {
  FormulaParameters parameters = Together({Occurrence("A", "1", FourTimesThree), Occurrence("A", "2", FourTimesThree)});
  parameters[3].reset();
  EXPECT_EQ(Calculate(parameters), 0.0);
  // What the first formula has told stays told.
  EXPECT_EQ(_Frequency, 3.0);
}

TEST_F(FormulaOnLineTest, ANullBehindTheArgumentsDoesNotMatter) {
  FormulaParameters parameters = Occurrence("A", "1", FourTimesThree);
  parameters.emplace_back();
  EXPECT_EQ(Calculate(parameters), 4.0);
}

TEST_F(FormulaOnLineTest, ArgumentsTakeTheNextParametersWhoeverOwnsThem) {
  const Formula formula = {"x : Real, out Time : Time", "Time = x", {Value("x", "Real", "3"), TimeValue}};
  FormulaParameters parameters = Occurrence("A", "1", formula);
  const FormulaParameters other = Occurrence("B", "1", TimeOnly("Time = 100"));
  parameters.insert(parameters.begin() + 1, other[0]);
  // The second argument of the first formula takes the parameter of the second; each of them runs once.
  EXPECT_EQ(Calculate(parameters), 103.0);
  EXPECT_EQ(_Engine.Runs(), 2);
}

TEST_F(FormulaOnLineTest, AnOutputPlaysTheRoleOfItsParameter) {
  const Formula formula = {"out Time : Time, out other : Real",
                           "Time = 4; other = 5",
                           {Value("Frequency", "Real", "0"), Value("Time", "Real", "0")}};
  EXPECT_EQ(Calculate(Occurrence("A", "1", formula)), 5.0);
  EXPECT_EQ(_Frequency, 4.0);
}

TEST_F(FormulaOnLineTest, TwoTimesAddUp) {
  const Formula formula = {"out Time : Time, out other : Real", "Time = 4; other = 5", {TimeValue, TimeValue}};
  EXPECT_EQ(Calculate(Occurrence("A", "1", formula)), 9.0);
}

struct BadFormulaCase {
  const char* name;
  const char* signature;
  const char* body;
};
void PrintTo(const BadFormulaCase& row, std::ostream* out) {
  *out << row.signature << " / " << row.body;
}
class BadFormulaTest : public FormulaOnLineTest, public testing::WithParamInterface<BadFormulaCase> {};
TEST_P(BadFormulaTest, LosesTheSumSoFar) {
  Analysis b = AnalysisOf("B", {Ttb(2.0)});
  const Formula bad = {GetParam().signature, GetParam().body, {TimeValue}};
  const FormulaParameters good = Occurrence("B", "1", FourTimesThree);
  EXPECT_EQ(Calculate(Together({good, Occurrence("B", "2", bad)}), &b), 0.0);
  EXPECT_EQ(Calculate(Together({Occurrence("B", "2", bad), good}), &b), 0.0);
}
INSTANTIATE_TEST_SUITE_P(Formulas, BadFormulaTest,
                         testing::Values(BadFormulaCase{"NoSignature", "out Time", "Time = 1"},
                                         BadFormulaCase{"InvalidBody", "out Time : Time", "Time = = 1"}),
                         NameOf<testing::TestParamInfo<BadFormulaCase>>);

TEST_F(FormulaOnLineTest, WithoutAnEvaluatorOnlyThePlainLinesCount) {
  _Engine.WithholdEvaluators();
  Analysis b = AnalysisOf("B", {Ttb(2.0)});
  EXPECT_EQ(Calculate(Occurrence("B", "1", FourTimesThree), &b), 2.0);
  EXPECT_EQ(_Engine.Runs(), 0);
}

// ---- Where a missing time comes from ----

struct KindCase {
  const char* name;
  int kind;
  const char* row;
  double time;  // 100 times the row that is read
};
void PrintTo(const KindCase& row, std::ostream* out) {
  *out << "kind " << row.kind << " row " << row.row;
}
class TargetRowTest : public FormulaOnLineTest, public testing::WithParamInterface<KindCase> {
 protected:
  // Lines with a formula, so that none of them counts by itself.
  static Analysis EightRows() {
    Analysis b = AnalysisOf("B", {});
    for (int row = 1; row <= 8; ++row) {
      b.lines.push_back(Ttb(100.0 * row, 10.0 + row));
      b.lines.back().parameters.emplace_back();
    }
    return b;
  }
};
TEST_P(TargetRowTest, GivesTheTimeThatTheFormulaDoesNot) {
  Analysis b = EightRows();
  EXPECT_EQ(Calculate(Occurrence("B", GetParam().row, TimeOnly("Time = 0"), GetParam().kind), &b), GetParam().time);
}
TEST_P(TargetRowTest, GivesTheTimeOfAFormulaThatSpeaksOfNone) {
  Analysis b = EightRows();
  const Formula formula = {"out other : Real", "other = 1", {Value("other", "Real", "0")}};
  EXPECT_EQ(Calculate(Occurrence("B", GetParam().row, formula, GetParam().kind), &b), GetParam().time);
}
TEST_P(TargetRowTest, GivesTheFrequencyForTheMarker) {
  Analysis b = EightRows();
  const Formula formula = {
      "out Time : Time, out Frequency : Real", "Time = 1; Frequency = -1", {TimeValue, FrequencyValue}};
  const double frequency = GetParam().time == 0.0 ? 1.0 : 10.0 + GetParam().time / 100.0;
  EXPECT_EQ(Calculate(Occurrence("B", GetParam().row, formula, GetParam().kind), &b), frequency);
  ExpectNothingTold();
}
INSTANTIATE_TEST_SUITE_P(Kinds, TargetRowTest,
                         testing::Values(KindCase{"PlainKind", 0, "3", 300.0}, KindCase{"OtherKind", 5, "3", 300.0},
                                         KindCase{"OddRows", 4, "3", 500.0}, KindCase{"EvenRows", 7, "3", 600.0},
                                         KindCase{"RowBehindTheLast", 7, "5", 0.0}, KindCase{"RowZero", 0, "0", 0.0},
                                         KindCase{"UnreadableRow", 0, "x", 0.0}, KindCase{"EmptyRow", 7, "", 0.0},
                                         KindCase{"RowWithTail", 0, " 3x", 300.0},
                                         KindCase{"NegativeRow", 0, "-1", 0.0},
                                         KindCase{"LargestRow", 7, "2147483647", 0.0},
                                         KindCase{"LeastRow", 4, "-2147483648", 0.0}),
                         NameOf<testing::TestParamInfo<KindCase>>);

TEST_F(FormulaOnLineTest, AMissingTimeOfTheOwnAnalysisStaysMissing) {
  Analysis a = AnalysisOf("A", {Ttb(2.0)});
  a.lines[0].parameters.emplace_back();
  EXPECT_EQ(Calculate(Occurrence("A", "1", TimeOnly("Time = -2")), &a), -2.0);
}

TEST_F(FormulaOnLineTest, AnUnknownOwnerHasNoTime) {
  EXPECT_EQ(Calculate(Occurrence("nowhere", "1", TimeOnly("Time = -2"))), 0.0);
}

TEST_F(FormulaOnLineTest, ATimeAsInputIsASignThatTheFormulaSpeaksOfIt) {
  Analysis b = AnalysisOf("B", {Ttb(2.0)});
  b.lines[0].parameters.emplace_back();
  const Formula formula = {"Time : Time, out other : Real", "other = Time", {TimeValue, Value("other", "Real", "0")}};
  EXPECT_EQ(Calculate(Occurrence("B", "1", formula), &b), 0.0);
}

TEST_F(FormulaOnLineTest, ATimeByTheNameOfTheParameterIsKeptUnlessItIsMissingElsewhere) {
  Analysis b = AnalysisOf("B", {Ttb(2.0)});
  b.lines[0].parameters.emplace_back();
  const Formula four = {"out other : Real", "other = 4", {TimeValue}};
  const Formula missing = {"out other : Real", "other = -4", {TimeValue}};
  EXPECT_EQ(Calculate(Occurrence("B", "1", four), &b), 4.0);
  EXPECT_EQ(Calculate(Occurrence("B", "1", missing), &b), 2.0);
  EXPECT_EQ(Calculate(Occurrence("A", "1", missing), &b), -4.0);
}

TEST_F(FormulaOnLineTest, TheMarkerOnTheRowIsTakenAsItStands) {
  Analysis b = AnalysisOf("B", {Ttb(2.0, -1.0)});
  b.lines[0].parameters.emplace_back();
  const Formula formula = {
      "out Time : Time, out Frequency : Real", "Time = 4; Frequency = -1", {TimeValue, FrequencyValue}};
  // The negative time leaves the reused analysis untouched in the end, so that its plain lines are asked for once more.
  EXPECT_EQ(Calculate(Occurrence("B", "1", formula), &b), -4.0);
}

// ---- Running times of reused analyses ----

TEST_F(FormulaOnLineTest, TheRunningTimeOfAReusedAnalysisReplacesTheSum) {
  Analysis c = AnalysisOf("C", {Ttb(2.0)});
  Analysis b = AnalysisOf("B", {Ttb(50.0), Reusing(c)});
  const FormulaParameters parameters =
      Together({Occurrence("C", "1", TimeOnly("Time = 3")),    // C: 3, and 2 of its plain line
                Occurrence("B", "1", TimeOnly("Time = 10")),   // B: 10, and 50 of its plain line; 65 so far
                Occurrence("B", "2", TimeOnly("Time = 0"))});  // row 2 of B reuses C, whose running time is 5
  EXPECT_EQ(Calculate(parameters, &b), 5.0);
}

TEST_F(FormulaOnLineTest, PlainLinesFollowAReplacedSum) {
  Analysis c = AnalysisOf("C", {Ttb(2.0)});
  Analysis b = AnalysisOf("B", {Ttb(50.0), Reusing(c)});
  const FormulaParameters parameters =
      Together({Occurrence("C", "1", TimeOnly("Time = 3")), Occurrence("B", "2", TimeOnly("Time = 0"))});
  EXPECT_EQ(Calculate(parameters, &b), 5.0 + 50.0);
}

TEST_F(FormulaOnLineTest, AReusedAnalysisThatIsNotListedGivesTheTimeOfTheRow) {
  Analysis c = AnalysisOf("C", {});
  c.offers_rep_reference = false;
  Analysis b = AnalysisOf("B", {Ttb(50.0)});
  b.lines[0].reused = &c;
  b.lines[0].parameters.emplace_back();
  EXPECT_EQ(Calculate(Occurrence("B", "1", TimeOnly("Time = 0")), &b), 50.0);
}

TEST_F(FormulaOnLineTest, PlainLinesCountOnceWhileTheOwnerStays) {
  Analysis b = AnalysisOf("B", {Ttb(2.0)});
  const FormulaParameters one = Occurrence("B", "1", TimeOnly("Time = 10"));
  const FormulaParameters two = Occurrence("B", "2", TimeOnly("Time = 20"));
  const FormulaParameters other = Occurrence("C", "1", TimeOnly("Time = 30"));
  EXPECT_EQ(Calculate(Together({one, two}), &b), 32.0);
  // An owner that nobody knows doesn't come between.
  EXPECT_EQ(Calculate(Together({one, other, two}), &b), 62.0);
}

TEST_F(FormulaOnLineTest, PlainLinesCountAgainWhenTheOwnerReturns) {
  Analysis c = AnalysisOf("C", {Ttb(5.0)});
  Analysis b = AnalysisOf("B", {Ttb(2.0), Reusing(c)});
  const FormulaParameters one = Occurrence("B", "1", TimeOnly("Time = 10"));
  const FormulaParameters two = Occurrence("B", "2", TimeOnly("Time = 20"));
  const FormulaParameters other = Occurrence("C", "1", TimeOnly("Time = 30"));
  EXPECT_EQ(Calculate(Together({one, other, two}), &b), 10.0 + 2.0 + 30.0 + 5.0 + 20.0 + 2.0);
}

TEST_F(FormulaOnLineTest, AnOwnerWithoutIdentifierHasNoPlainLines) {
  Analysis b = AnalysisOf("", {Ttb(2.0)});
  EXPECT_EQ(Calculate(Occurrence("", "1", TimeOnly("Time = 10")), &b), 10.0);
}

TEST_F(FormulaOnLineTest, AReusedAnalysisThatNoFormulaTouchesGivesItsPlainLines) {
  Analysis b = AnalysisOf("B", {Ttb(2.0, 3.0)});
  EXPECT_EQ(Calculate(Occurrence("A", "1", TimeOnly("Time = 10")), &b), 16.0);
  b.offers_rep_reference = false;
  EXPECT_EQ(Calculate(Occurrence("A", "1", TimeOnly("Time = 10")), &b), 10.0);
}

TEST_F(FormulaOnLineTest, NoNumberIsNoMissingTime) {
  Analysis b = AnalysisOf("B", {Ttb(2.0)});
  b.lines[0].parameters.emplace_back();
  const FormulaParameter time = Value("Time", "Time", "nan");
  EXPECT_TRUE(std::isnan(Calculate(Occurrence("B", "1", {"out Time : Time", "", {time}}), &b)));
}

// ---- Bars ----

struct CutCase {
  const char* name;
  const char* text;
  std::vector<std::string> pieces;
};
void PrintTo(const CutCase& row, std::ostream* out) {
  *out << row.text;
}
class CutAtTest : public testing::TestWithParam<CutCase> {};
TEST_P(CutAtTest, GivesThePieces) {
  EXPECT_EQ(CutAt('|', GetParam().text), GetParam().pieces);
}
INSTANTIATE_TEST_SUITE_P(Texts, CutAtTest,
                         testing::Values(CutCase{"Empty", "", {}}, CutCase{"OnePiece", "A", {"A"}},
                                         CutCase{"Two", "A|B", {"A", "B"}}, CutCase{"EmptySecond", "A|", {"A", ""}},
                                         CutCase{"EmptyFirst", "|A", {"", "A"}},
                                         CutCase{"EmptyMiddle", "A||B", {"A", "", "B"}}),
                         NameOf<testing::TestParamInfo<CutCase>>);

TEST_F(FormulaOnLineTest, AnOwnerWithABarInItsIdentifierIsPassedOver) {
  Analysis b = AnalysisOf("B|C", {Ttb(2.0)});
  EXPECT_EQ(Calculate(Together({Occurrence("B|C", "1", FourTimesThree), Occurrence("A", "1", FourTimesThree)}), &b),
            4.0 + 2.0);
  EXPECT_EQ(_Engine.Runs(), 1);
}

}  // namespace
}  // namespace oracle
