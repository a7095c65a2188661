// Runs: how values go into a formula, and what comes out of it.
#include <cmath>
#include <limits>

#include "tests/knowledge/KnowledgeTest.h"

namespace knowledgetest {
namespace {

constexpr const char* Line = "x : Real, n : Integer, out Time : Time, out Frequency : Real, out Description : String";

struct RunCase {
  const char* Name;
  const char* Signature;
  const char* Body;
  std::vector<Given> Values;
  const char* Outcome;  // all values behind the run
};

void PrintTo(const RunCase& row, std::ostream* stream) {
  *stream << row.Signature << " | " << row.Body;
}

class FormulaRunTest : public testing::TestWithParam<RunCase> {};

TEST_P(FormulaRunTest, GivesItsOutcome) {
  const RunCase& row = GetParam();
  EXPECT_EQ(Outcome(row.Signature, row.Body, row.Values), row.Outcome);
}

INSTANTIATE_TEST_SUITE_P(
    Statements, FormulaRunTest,
    testing::Values(
        RunCase{"LineOfAnAnalysis",
                Line,
                "Time = 0.5 * n + x; Frequency = 2; Description = 'walk ' .. n",
                {R(2.5), I(3), D("Time", 0), R(1), T("")},
                "2.5 3 4 2 walk 3"},
        RunCase{"OutputNotAssignedKeepsItsStart",
                Line,
                "Time = x",
                {R(2.5), I(3), D("Time", 9), R(-1), T("old")},
                "2.5 3 2.5 -1 old"},
        RunCase{"NothingAssigned", Line, "", {R(2.5), I(3), D("Time", 9), R(-1), T("old")}, "2.5 3 9 -1 old"},
        RunCase{"OutputReadsItsStart", "out a : Real, out b : Real", "a = a + 1 b = a * 10", {R(4), R(0)}, "5 50"},
        RunCase{
            "InputsStay", "x : Real, out a : Real, out b : Real", "x = x * 2 a = x b = x", {R(3), R(0), R(0)}, "3 6 6"},
        RunCase{"Condition",
                "n : Integer, out Time : Time, out Frequency : Real",
                "if n > 10 then Time = 2 else Time = 1 end\nFrequency = n",
                {I(11), D("Time", 0), R(0)},
                "11 2 11"},
        RunCase{"Loop",
                "n : Integer, out a : Integer, out b : Integer",
                "for i = 1, n do a = a + i end b = -a",
                {I(4), I(0), I(0)},
                "4 10 -10"},
        RunCase{"EarlyReturn",
                "n : Integer, out a : Real, out b : Real",
                "if n == 0 then a = 1 return end a = 2",
                {I(0), R(7), R(8)},
                "0 1 8"},
        RunCase{"ReturnAtTheEnd", "out a : Real, out b : Real", "a = 1 return 99", {R(7), R(8)}, "1 8"},
        RunCase{"OwnFunction",
                "x : Real, out a : Real, out b : Real",
                "local function double(v) return 2 * v end\na = double(x)\nb = double(a)",
                {R(3), R(0), R(0)},
                "3 6 12"},
        RunCase{"FunctionThatAssignsAnOutput",
                "x : Real, out a : Real, out b : Real",
                "function set(v) a = v end set(x)",
                {R(3), R(0), R(0)},
                "3 3 0"},
        RunCase{"OwnVariables",
                "x : Real, out a : Real, out b : Real",
                "half = x / 2; a = half; b = half",
                {R(3), R(0), R(0)},
                "3 1.5 1.5"},
        RunCase{"LocalVariableHidesAnOutput", "out a : Real, out b : Real", "local a = 5 b = a", {R(1), R(0)}, "1 5"},
        RunCase{"Table",
                "out a : Real, out b : Real",
                "local t = {10, 20, 30} a = #t for _, v in ipairs(t) do b = b + v end",
                {R(0), R(0)},
                "3 60"},
        RunCase{"Label",
                "out a : Real, out b : Real",
                "::again:: a = a + 1 if a < 5 then goto again end",
                {R(0), R(0)},
                "5 0"},
        RunCase{"Comment", "out a : Real, out b : Real", "a = 1 -- b = 2", {R(0), R(0)}, "1 0"},
        RunCase{"LongComment", "out a : Real, out b : Real", "a = 1 --[[ end ]] b = 2", {R(0), R(0)}, "1 2"},
        RunCase{"NoOutput", "x : Real", "y = x", {R(3)}, "3"}, RunCase{"NoArgument", "", "y = 1", {}, ""},
        RunCase{"VarargsAreEmpty", "out a : Real, out b : Real", "a = select('#', ...)", {R(7), R(0)}, "0 0"},
        RunCase{"CalledAsTheLibrary",
                "math : Real, out type : Real, out b : Real",
                "type = math b = 1",
                {R(3), R(0), R(0)},
                "3 3 1"},
        RunCase{
            "CalledAsTheChunksOwnWords", "out body : Real, out arg : Real", "body = 1 arg = 2", {R(0), R(0)}, "1 2"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Expressions, FormulaRunTest,
    testing::Values(
        RunCase{
            "Sum", "x : Real, n : Integer, out Time : Time", "0.5 * n + x", {R(2.5), I(3), D("Time", 0)}, "2.5 3 4"},
        RunCase{"OutputAmongInputs", "out Time : Time, n : Integer", "2 * n", {D("Time", 0), I(3)}, "6 3"},
        RunCase{"CallOfAFunction", "x : Real, out Time : Time", "math.max(x, 3)", {R(2.5), D("Time", 0)}, "2.5 3"},
        RunCase{"WithAComment", "x : Real, out Time : Time", "x + 1 -- one more", {R(2.5), D("Time", 0)}, "2.5 3.5"},
        RunCase{"OverLines", "x : Real, out Time : Time", "\n x\n + 1\n", {R(2.5), D("Time", 0)}, "2.5 3.5"},
        RunCase{"Text", "n : Integer, out Description : String", "n .. ' steps'", {I(3), T("")}, "3 3 steps"},
        RunCase{"StartOfTheOutput", "out Time : Time", "Time * 2", {D("Time", 4)}, "8"},
        RunCase{"Choice", "n : Integer, out Time : Time", "n > 2 and 10 or 20", {I(3), D("Time", 0)}, "3 10"},
        RunCase{"Function", "out Time : Time", "(function() return 5 end)()", {D("Time", 0)}, "5"},
        RunCase{"StatementsForOneOutput", "n : Integer, out Time : Time", "Time = n", {I(3), D("Time", 0)}, "3 3"},
        RunCase{"StatementsWithReturn",
                "n : Integer, out Time : Time",
                "Time = n do return 7 end",
                {I(3), D("Time", 0)},
                "3 3"},
        RunCase{"Empty", "out Time : Time", "", {D("Time", 4)}, "4"},
        RunCase{"CommentAlone", "out Time : Time", "-- nothing", {D("Time", 4)}, "4"},
        RunCase{"SemicolonAlone", "out Time : Time", ";", {D("Time", 4)}, "4"},
        RunCase{"CallWithoutValue",
                "out Time : Time",
                "(function() end)()",
                {D("Time", 4)},
                "fails: the result for Time is no number"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Kinds, FormulaRunTest,
    testing::Values(
        RunCase{"IntegerIsWhole", "n : Integer, out s : String", "math.type(n)", {I(3), T("")}, "3 integer"},
        RunCase{"RealIsNot", "x : Real, out s : String", "math.type(x)", {R(3), T("")}, "3 float"},
        RunCase{"IntegerForAReal", "x : Real, out s : String", "math.type(x)", {I(3), T("")}, "3 float"},
        RunCase{"WholeRealForAnInteger", "n : Integer, out s : String", "math.type(n)", {R(3), T("")}, "3 integer"},
        RunCase{"WholeDivision", "n : Integer, out a : Integer", "n // 2", {I(7), I(0)}, "7 3"},
        RunCase{"WholeResultOfADivision", "n : Integer, out a : Integer", "n / 2", {I(8), I(0)}, "8 4"},
        RunCase{"LeastAndGreatest",
                "out a : Integer, out b : Integer",
                "a = -2147483648 b = 2147483647",
                {I(0), I(0)},
                "-2147483648 2147483647"},
        RunCase{"IntegerForAMagnitude", "l : Length, out a : Length", "l * 2", {I(3), I(0)}, "3 6"},
        RunCase{"DimensionForAReal", "x : Real, out a : Real", "x * 2", {D("Mass", 3), D("Time", 0)}, "3 6"},
        RunCase{"RealForAMagnitude", "m : Mass, out a : Mass", "m * 2", {R(3), R(0)}, "3 6"},
        RunCase{"PlainNumberForAMagnitude", "m : Mass, out a : Mass", "m * 2", {D("Number", 3), D("Number", 0)}, "3 6"},
        RunCase{
            "DimensionForAPlainNumber", "k : Number, out a : Number", "k * 2", {D("Angle", 3), D("Time", 0)}, "3 6"},
        RunCase{"UnknownMagnitudeForAMagnitude", "m : Mass, out a : Mass", "m * 2", {D("Colour", 3), D("", 0)}, "3 6"},
        RunCase{
            "TextOfLetters", "s : String, out a : String", "s .. '!'", {T("\xC3\xBC"), T("")}, "\xC3\xBC \xC3\xBC!"},
        RunCase{"TextOfDigitsStaysText", "s : String, out a : String", "s", {T("12"), T("")}, "12 12"},
        RunCase{"TextOfOtherBytesIsReadAsWindows1252", "out a : String", "'\\xFC'", {T("")}, "\xC3\xBC"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Failures, FormulaRunTest,
    testing::Values(
        RunCase{"NoValue", "x : Real", "", {}, "fails: 0 values for 1 arguments"},
        RunCase{"TooFewValues", Line, "Time = 1", {R(1), I(1), D("Time", 0), R(1)}, "fails: 4 values for 5 arguments"},
        RunCase{
            "TooManyValues", "x : Real, out a : Real", "a = x", {R(1), R(2), R(3)}, "fails: 3 values for 2 arguments"},
        RunCase{"TextForANumber", "x : Real", "", {T("1")}, "fails: the value of x does not fit its type Real"},
        RunCase{"TextForAnInteger", "n : Integer", "", {T("1")}, "fails: the value of n does not fit its type Integer"},
        RunCase{"TextForAMagnitude", "t : Time", "", {T("1")}, "fails: the value of t does not fit its type Time"},
        RunCase{"NumberForAText", "s : String", "", {R(1)}, "fails: the value of s does not fit its type String"},
        RunCase{"TextForAnOutput", "out a : Real", "1", {T("1")}, "fails: the value of a does not fit its type Real"},
        RunCase{
            "OtherMagnitude", "l : Length", "", {D("Mass", 1)}, "fails: the value of l does not fit its type Length"},
        RunCase{"OtherMagnitudeForAnOutput",
                "out t : Time",
                "1",
                {D("Length", 1)},
                "fails: the value of t does not fit its type Time"},
        RunCase{
            "FractionForAnInteger", "n : Integer", "", {R(1.5)}, "fails: the value of n does not fit its type Integer"},
        RunCase{"LargeNumberForAnInteger",
                "n : Integer",
                "",
                {R(2147483648.0)},
                "fails: the value of n does not fit its type Integer"},
        RunCase{"NoNumberForAnInteger",
                "n : Integer",
                "",
                {R(std::numeric_limits<double>::quiet_NaN())},
                "fails: the value of n does not fit its type Integer"},
        RunCase{"FractionAsAnInteger",
                "out n : Integer",
                "1.5",
                {I(7)},
                "fails: the result for n is no whole number of 32 bits"},
        RunCase{"FractionInAnIntegerParameter",
                "out x : Real",
                "1.5",
                {I(7)},
                "fails: the result for x is no whole number of 32 bits"},
        RunCase{"TooLargeAsAnInteger",
                "out n : Integer",
                "2147483648",
                {I(7)},
                "fails: the result for n is no whole number of 32 bits"},
        RunCase{"FarTooLargeAsAnInteger",
                "out n : Integer",
                "math.maxinteger",
                {I(7)},
                "fails: the result for n is no whole number of 32 bits"},
        RunCase{"NoNumberAsAnInteger",
                "out n : Integer",
                "0/0",
                {I(7)},
                "fails: the result for n is no whole number of 32 bits"},
        RunCase{"TextAsANumber", "out x : Real", "'1'", {R(7)}, "fails: the result for x is no number"},
        RunCase{"TextAsAnInteger",
                "out n : Integer",
                "'1'",
                {I(7)},
                "fails: the result for n is no whole number of 32 bits"},
        RunCase{"NumberAsAText", "out s : String", "1", {T("old")}, "fails: the result for s is no text"},
        RunCase{"NothingAsANumber", "out x : Real", "nil", {R(7)}, "fails: the result for x is no number"},
        RunCase{"BooleanAsANumber", "out x : Real", "1 > 2", {R(7)}, "fails: the result for x is no number"},
        RunCase{"TableAsANumber", "out x : Real", "{1}", {R(7)}, "fails: the result for x is no number"},
        RunCase{"SecondOfTwoIsWrong",
                "out a : Real, out b : Real",
                "a = 1 b = 'x'",
                {R(7), R(8)},
                "fails: the result for b is no number"},
        RunCase{"ErrorBehindAnAssignment",
                "out a : Real, out b : Real",
                "a = 1\nb = nothing + 1",
                {R(7), R(8)},
                "fails: body:2: attempt to perform arithmetic on a nil value (global 'nothing')"},
        RunCase{"ArithmeticOnText",
                "s : String, out a : Real",
                "s + 1",
                {T("1"), R(7)},
                "fails: body:1: attempt to perform arithmetic on a string value (upvalue 's')"},
        RunCase{"OwnError", "out a : Real", "a = 1 error('no such weight')", {R(7)}, "fails: body:1: no such weight"},
        RunCase{"ErrorWithoutText", "out a : Real", "a = 1 error({})", {R(7)}, "fails: the body ends with an error"},
        RunCase{"ErrorOfNothing", "out a : Real", "a = 1 error()", {R(7)}, "fails: the body ends with an error"},
        RunCase{"Assertion",
                "x : Real, out a : Real",
                "a = 1 assert(x > 5, 'too light')",
                {R(3), R(7)},
                "fails: body:1: too light"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    InvalidBodies, FormulaRunTest,
    testing::Values(
        RunCase{"Syntax",
                "out a : Real, out b : Real",
                "a = = 1",
                {R(0), R(0)},
                "invalid: body:1: unexpected symbol near '='"},
        RunCase{"LineOfTheError",
                "out a : Real, out b : Real",
                "a = 1\nb = 2 +\n",
                {R(0), R(0)},
                "invalid: body:3: unexpected symbol near <eof>"},
        RunCase{"NeitherExpressionNorStatements",
                "out a : Real",
                "1 +",
                {R(0)},
                "invalid: as an expression: body:1: unexpected symbol near <eof>; as statements: body:1: unexpected "
                "symbol near '1'"},
        RunCase{
            "ListOfExpressions",
            "out a : Real",
            "1, 2",
            {R(0)},
            "invalid: as an expression: body:1: ')' expected near ','; as statements: body:1: unexpected symbol near "
            "'1'"},
        RunCase{"ExpressionForTwoOutputs",
                "out a : Real, out b : Real",
                "1 + 2",
                {R(0), R(0)},
                "invalid: body:1: unexpected symbol near '1'"},
        RunCase{"ClosesWhatItDidNotOpen",
                "out a : Real, out b : Real",
                "end a = 1 do",
                {R(0), R(0)},
                "invalid: body:1: <eof> expected near 'end'"},
        RunCase{"ClosesAParenthesisNotItsOwn",
                "out a : Real",
                "1) + (2",
                {R(0)},
                "invalid: as an expression: body:1: <eof> expected near ')'; as statements: body:1: unexpected symbol "
                "near '1'"},
        RunCase{
            "LeavesTheFunctionAroundIt",
            "out a : Real",
            "1 end, function() return 2",
            {R(0)},
            "invalid: as an expression: body:1: <eof> expected near 'end'; as statements: body:1: unexpected symbol "
            "near '1'"},
        RunCase{"CommentWithoutEnd",
                "out a : Real, out b : Real",
                "a = 1 --[[",
                {R(0), R(0)},
                "invalid: body:1: unfinished long comment (starting at line 1) near <eof>"},
        RunCase{"TextWithoutEnd",
                "out a : Real, out b : Real",
                "a = 'x",
                {R(0), R(0)},
                "invalid: body:1: unfinished string near <eof>"},
        RunCase{"GotoWithoutLabel",
                "out a : Real, out b : Real",
                "goto nowhere",
                {R(0), R(0)},
                "invalid: body:1: no visible label 'nowhere' for <goto> at line 1"}),
    RowName());

struct OddNumberCase {
  const char* Name;
  const char* Body;
  double Value;
};

class OddNumberTest : public testing::TestWithParam<OddNumberCase> {};

TEST_P(OddNumberTest, PassesAsItIs) {
  Formula formula("out x : Real", GetParam().Body, {R(7)});
  ASSERT_EQ(formula.Run(), S_OK);
  if (std::isnan(GetParam().Value)) {
    EXPECT_TRUE(std::isnan(formula.Real(0)));
  } else {
    EXPECT_EQ(formula.Real(0), GetParam().Value);
    EXPECT_EQ(std::signbit(formula.Real(0)), std::signbit(GetParam().Value));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, OddNumberTest,
    testing::Values(OddNumberCase{"NoNumber", "0/0", std::numeric_limits<double>::quiet_NaN()},
                    OddNumberCase{"Infinity", "1/0", std::numeric_limits<double>::infinity()},
                    OddNumberCase{"NegativeInfinity", "-math.huge", -std::numeric_limits<double>::infinity()},
                    OddNumberCase{"NegativeZero", "-0.0", -0.0}, OddNumberCase{"Least", "5e-324", 5e-324},
                    OddNumberCase{"AllDigits", "0.1 + 0.2", 0.1 + 0.2}, OddNumberCase{"Hexadecimal", "0x10", 16.0},
                    OddNumberCase{"LargeInteger", "9007199254740993", 9007199254740992.0}),
    RowName());

TEST(OddNumberTest, GoesInAsItIs) {
  Formula formula("x : Real, out a : Real, out b : Real", "a = x b = x ~= x and 1 or 0",
                  {R(std::numeric_limits<double>::quiet_NaN()), R(0), R(0)});
  ASSERT_EQ(formula.Run(), S_OK);
  EXPECT_TRUE(std::isnan(formula.Real(1)));
  EXPECT_EQ(formula.Real(2), 1.0);
}

TEST(EvaluatorTest, IsOfferedByEveryExpression) {
  const KORICkeExpression_var expression = Expression("not a signature", "");
  const KORICkeEvaluator_var evaluator = expression;
  ASSERT_FALSE(evaluator.IsNull());
  EXPECT_TRUE(evaluator == expression);
  EXPECT_EQ(evaluator->Run(nullptr), E_FAIL);
  EXPECT_EQ(evaluator->GetProblem(), expression->GetProblem());
}

TEST(EvaluatorTest, RunsAgainWithTheSameValues) {
  Formula formula("out a : Real", "a = a + 1", {R(0)});
  for (int run = 1; run <= 3; ++run) {
    EXPECT_EQ(formula.Run(), S_OK);
    EXPECT_EQ(formula.Real(0), run);
  }
}

TEST(EvaluatorTest, ResetTakesValuesAndProblemAway) {
  const KORICkeEvaluator_var evaluator = Expression("x : Real, out a : Real", "x");
  const KORICkeParm_var output = Parameter("a", R(0));
  evaluator->AddValue(Parameter("x", R(1)));
  EXPECT_EQ(evaluator->Run(nullptr), E_FAIL);
  EXPECT_EQ(Text(evaluator->GetProblem()), "1 values for 2 arguments");
  evaluator->Reset();
  EXPECT_EQ(Text(evaluator->GetProblem()), "");
  evaluator->AddValue(Parameter("x", R(2)));
  evaluator->AddValue(output);
  EXPECT_EQ(evaluator->Run(nullptr), S_OK);
  EXPECT_EQ(output->Value()->AsReal(), 2.0);
}

TEST(EvaluatorTest, TakesNoNullValue) {
  const KORICkeEvaluator_var evaluator = Expression("x : Real", "");
  EXPECT_EQ(evaluator->AddValue(nullptr), E_INVALIDARG);
  EXPECT_EQ(evaluator->Run(nullptr), E_FAIL);
  EXPECT_EQ(Text(evaluator->GetProblem()), "0 values for 1 arguments");
}

TEST(EvaluatorTest, BindsByPositionWhateverTheNames) {
  const KORICkeEvaluator_var evaluator = Expression("x : Real, y : Real, out Time : Time", "x - y");
  const KORICkeParm_var result = Parameter("Frequency", R(0));
  evaluator->AddValue(Parameter("y", R(10)));
  evaluator->AddValue(Parameter("x", R(3)));
  evaluator->AddValue(result);
  ASSERT_EQ(evaluator->Run(nullptr), S_OK);
  EXPECT_EQ(result->Value()->AsReal(), 7.0);
  EXPECT_EQ(Text(result->RoleName()), "Frequency");
}

TEST(EvaluatorTest, OneParameterForTwoArguments) {
  const KORICkeEvaluator_var evaluator = Expression("x : Real, out a : Real", "x + 1");
  const KORICkeParm_var both = Parameter("p", R(1));
  evaluator->AddValue(both);
  evaluator->AddValue(both);
  ASSERT_EQ(evaluator->Run(nullptr), S_OK);
  EXPECT_EQ(both->Value()->AsReal(), 2.0);
}

TEST(EvaluatorTest, FailureIsForgottenByTheNextRun) {
  const KORICkeEvaluator_var evaluator = Expression("x : Real, out a : Real", "if x < 0 then error('x') end a = x");
  const KORICkeParm_var input = Parameter("x", R(-1));
  evaluator->AddValue(input);
  evaluator->AddValue(Parameter("a", R(0)));
  EXPECT_EQ(evaluator->Run(nullptr), E_FAIL);
  input->ValuateReal(1.0);
  EXPECT_EQ(evaluator->Run(nullptr), S_OK);
  EXPECT_EQ(Text(evaluator->GetProblem()), "");
}

}  // namespace
}  // namespace knowledgetest
