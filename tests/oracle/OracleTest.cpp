// Tests of the yardsticks themselves: each plain machine is run on the boundary cases and the quirks of its field, so
// that a difference between a yardstick and the library points at the library.
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "CodePatternOracle.h"
#include "FormulaOracle.h"
#include "ModaptsNormOracle.h"
#include "MostNormOracle.h"

namespace oracle {
namespace {

int calls_made = 0;

double Sine(const Arguments& a) {
  return std::sin(a[0]);
}
double Cosine(const Arguments& a) {
  return std::cos(a[0]);
}
double Tangent(const Arguments& a) {
  return std::tan(a[0]);
}
double Exponential(const Arguments& a) {
  return std::exp(a[0]);
}
double Power(const Arguments& a) {
  return ++calls_made, std::pow(a[0], a[1]);
}
double SquareRoot(const Arguments& a) {
  return ++calls_made, std::sqrt(a[0]);
}
double Absolute(const Arguments& a) {
  return std::fabs(a[0]);
}
double Sum(const Arguments& a) {
  double sum = 0.0;
  for (const double argument : a) sum += argument;
  return sum;
}

// The seven standard functions, a sum of all twenty slots, and one name behind the free slot, which is never found.
constexpr Function Functions[] = {
    {L"sin", Sine},        {L"cos", Cosine},   {L"tan", Tangent}, {L"exp", Exponential}, {L"pow", Power},
    {L"sqrt", SquareRoot}, {L"abs", Absolute}, {L"sum", Sum},     {nullptr, nullptr},    {L"late", Sum},
};

double TimeOf(const std::string& formula) {
  return EvaluateFormula(std::wstring(formula.begin(), formula.end()), Functions, 100000).Value;
}

template <typename Row>
std::string NameOf(const testing::TestParamInfo<Row>& row) {
  return row.param.name;
}

// ---- formula ----

struct FormulaCase {
  const char* name;
  std::wstring formula;
  double value;
  int status;
};
void PrintTo(const FormulaCase& row, std::ostream* out) {
  *out << row.name;
}

class FormulaOracleTest : public testing::TestWithParam<FormulaCase> {};

TEST_P(FormulaOracleTest, GivesValueAndStatus) {
  const Result result = EvaluateFormula(GetParam().formula, Functions, 1000000);
  EXPECT_FALSE(result.OutOfSteps);
  EXPECT_EQ(result.Status, GetParam().status);
  EXPECT_DOUBLE_EQ(result.Value, GetParam().value);
}

// Arithmetic by hand; positions counted from 1, just behind the last token read.
INSTANTIATE_TEST_SUITE_P(
    Values, FormulaOracleTest,
    testing::Values(FormulaCase{"StopsAtAnUnopenedParenthesis", L"1+2)*99", 3.0, 0},
                    FormulaCase{"CallThenUnopenedParenthesis", L"pow(2,3))+1", 8.0, 0},
                    FormulaCase{"SignOfTheFirstTermAsAWhole", L"-2*3+1", -5.0, 0},
                    FormulaCase{"SubtractsFromTheLeft", L"5-3-1", 1.0, 0},
                    FormulaCase{"DividesFromTheLeft", L"8/2/2", 2.0, 0},
                    FormulaCase{"SignInParentheses", L"1+(-2)", -1.0, 0},
                    FormulaCase{"ParenthesesAsFactors", L"2*(3+4)*(1-3)", -28.0, 0},
                    FormulaCase{"Exponent", L"1e3", 1000.0, 0}, FormulaCase{"UnderscoreSeparates", L"pow(2_3)", 8.0, 0},
                    FormulaCase{"MissingArgumentIsZero", L"pow(2)", 1.0, 0},
                    FormulaCase{"SurplusArgumentIsIgnored", L"sqrt(4,5)", 2.0, 0},
                    FormulaCase{"NoArguments", L"sin()", 0.0, 0},
                    FormulaCase{"ArgumentIsAnExpression", L"pow(1+1, -(2-5)) ", 8.0, 0},
                    FormulaCase{"NestedCalls", L"sqrt(pow(3,2)+pow(4,2))", 5.0, 0},
                    FormulaCase{"TwentySlots", L"sum(1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,100,100)", 20.0, 0},
                    FormulaCase{"TerminatorInsideEndsTheText", std::wstring(L"1+2\0+4", 6), 3.0, 0},
                    FormulaCase{"AllWhiteSpaceIsSkipped", L"\t1\n + \r2", 3.0, 0}),
    NameOf<FormulaCase>);

INSTANTIATE_TEST_SUITE_P(
    Failures, FormulaOracleTest,
    testing::Values(
        FormulaCase{"SignBehindAnOperator", L"2*-3", 0.0, 3}, FormulaCase{"NothingBehindPlus", L"1+", 0.0, 3},
        FormulaCase{"NothingBehindTimes", L"2*", 0.0, 3}, FormulaCase{"TwoSigns", L"--2", 0.0, 2},
        FormulaCase{"TwoNumbers", L"1 2", 0.0, 2}, FormulaCase{"SeparatorOutsideACall", L"1,2", 0.0, 2},
        FormulaCase{"UnclosedParenthesis", L"(1", 0.0, 3}, FormulaCase{"UnclosedFactor", L"2*(3", 0.0, 5},
        FormulaCase{"EmptyText", L"", 0.0, 1}, FormulaCase{"Blanks", L"   ", 0.0, 1},
        FormulaCase{"NumberBehindParenthesis", L"(2)3", 0.0, 4},
        FormulaCase{"ParenthesisBehindNumber", L"2(3)", 0.0, 2}, FormulaCase{"NumberWithoutDigitAhead", L".5", 0.0, -2},
        FormulaCase{"NoToken", L"$", 0.0, -2}, FormulaCase{"NoTokenBehindANumber", L"1$", 0.0, -2},
        FormulaCase{"UnknownName", L"foo(1)", 0.0, -2}, FormulaCase{"NameInOtherCase", L"SIN(0)", 0.0, -2},
        FormulaCase{"NameBehindTheFreeSlot", L"late(1)", 0.0, -2}, FormulaCase{"NameAlone", L"sqrt", 0.0, -2},
        FormulaCase{"NameThenNumber", L"sqrt 4", 0.0, -2}, FormulaCase{"EmptyFirstArgument", L"pow(,2)", 0.0, -2},
        FormulaCase{"EmptyMiddleArgument", L"pow(2,,3)", 0.0, -2},
        FormulaCase{"EmptyLastArgument", L"pow(2,)", 0.0, -2}, FormulaCase{"UnclosedCall", L"pow(2,3", 0.0, -2},
        FormulaCase{"LetterAbove255", L"1+\u0416", 0.0, -2}, FormulaCase{"DivisionByZero", L"5/0", 0.0, -1},
        FormulaCase{"DivisionByAZeroResult", L"5/(1-1)", 0.0, -1},
        FormulaCase{"DivisionByZeroInAnArgument", L"pow(1/0,2)", 0.0, -2}),
    NameOf<FormulaCase>);

// Of the eighteen calls six are the root's and twelve the powers'; hence the cost of nesting.
TEST(FormulaOracle, CallsEachFunctionWheneverItsTokenIsRead) {
  calls_made = 0;
  EvaluateFormula(L"sqrt(pow(3,2)+pow(4,2))", Functions, 1000000);
  EXPECT_EQ(calls_made, 18);
}

TEST(FormulaOracle, WholeResultOfAFunctionPassesThrough) {
  const Result result = EvaluateFormula(L"sqrt(1-2)", Functions, 1000000);
  EXPECT_EQ(result.Status, 0);
  EXPECT_TRUE(std::isnan(result.Value));
}

TEST(FormulaOracle, GivesUpOnNestedCalls) {
  std::wstring formula = L"1";
  for (int depth = 0; depth < 30; ++depth) formula = L"abs(" + formula + L")";
  EXPECT_TRUE(EvaluateFormula(formula, Functions, 100000).OutOfSteps);
  EXPECT_FALSE(EvaluateFormula(L"abs(abs(1))", Functions, 100000).OutOfSteps);
}

TEST(FormulaOracle, GivesUpOnDeepNestingBeforeTheStackEnds) {
  EXPECT_TRUE(EvaluateFormula(std::wstring(100000, L'('), Functions, 10000000).OutOfSteps);
  std::wstring calls;
  for (int depth = 0; depth < 100000; ++depth) calls += L"abs(";
  EXPECT_TRUE(EvaluateFormula(calls, Functions, 10000000).OutOfSteps);
  EXPECT_EQ(EvaluateFormula(std::wstring(1000, L'(') + L"7" + std::wstring(1000, L')'), Functions, 1000000).Value, 7);
}

// ---- code patterns ----

struct PatternCase {
  const char* name;
  const char* system;
  const char* pattern;
  const char* code;
  bool matches;
  std::vector<int> flags = {};
  std::vector<double> values = {};
};
void PrintTo(const PatternCase& row, std::ostream* out) {
  *out << row.name << ": " << row.pattern << " on " << row.code;
}

class CodePatternOracleTest : public testing::TestWithParam<PatternCase> {};

TEST_P(CodePatternOracleTest, Matches) {
  const PatternCase& row = GetParam();
  int count = -7;
  std::vector<double> values{-7.0};
  std::vector<int> flags{-7};
  EXPECT_EQ(CheckPattern(row.system, row.code, row.pattern, count, values, flags), row.matches);
  if (!row.matches) {
    EXPECT_EQ(count, -7);
    EXPECT_EQ(values, std::vector<double>{-7.0});
    EXPECT_EQ(flags, std::vector<int>{-7});
    return;
  }
  EXPECT_EQ(static_cast<std::size_t>(count), flags.size());
  EXPECT_EQ(values.size(), flags.size());
  if (!row.flags.empty()) {
    EXPECT_EQ(flags, row.flags);
  }
  if (!row.values.empty()) {
    EXPECT_EQ(values, row.values);
  }
}

// Numbers are measured by their printed form; ranges are inclusive; the end of the code refuses what is still due.
INSTANTIATE_TEST_SUITE_P(
    Numbers, CodePatternOracleTest,
    testing::Values(PatternCase{"LiteralAndNumber", "STD", R"~("GR"%)~", "GR5", true, {1, 1}, {0, 5}},
                    PatternCase{"UpperBound", "STD", R"~("GR"%[1,80])~", "GR80", true, {1, 1}, {0, 80}},
                    PatternCase{"AboveTheRange", "STD", R"~("GR"%[1,80])~", "GR90", false},
                    PatternCase{"NumberIsDue", "STD", R"~("GR"%[1,80])~", "GR", false},
                    PatternCase{"Real", "STD", R"~("GR"$)~", "GR1.5", true, {1, 1}, {0, 1.5}},
                    PatternCase{"RealWithTrailingZero", "STD", R"~("GR"$)~", "GR1.50", false},
                    PatternCase{"RealWithZeroFraction", "STD", R"~("GR"$)~", "GR1.0", false},
                    PatternCase{"RealWithoutLeadingZero", "STD", R"~("GR"$)~", "GR.5", false},
                    PatternCase{"PlainNumber", "STD", "%", "7", true, {1}, {7}},
                    PatternCase{"LeadingZeros", "STD", "%", "007", false},
                    PatternCase{"NegativeNumber", "STD", "%", "-5", true, {1}, {-5}},
                    PatternCase{"PlusSign", "STD", "%", "+5", false},
                    PatternCase{"SixDigits", "STD", "$", "100000", true, {1}, {100000}},
                    PatternCase{"SevenDigitsPrintWithExponent", "STD", "$", "1000000", false},
                    PatternCase{"NumberPassedOver", "STD", R"~(%"A")~", "A", true, {0, 1}, {0, 0}},
                    PatternCase{"NumberRead", "STD", R"~(%"A")~", "5A", true, {1, 1}, {5, 0}},
                    PatternCase{"RealEatsALetterAsZero", "STD", R"~($"A")~", "A", false},
                    PatternCase{"RealEatsTheFirstLetter", "STD", R"~($"A")~", "XA", true, {1, 1}, {0, 0}},
                    PatternCase{"OutOfRangeIntegerGoesOn", "STD", R"~(%[1,3]"5X")~", "5X", true, {0, 1}, {5, 0}},
                    PatternCase{"OutOfRangeRealFails", "STD", "$[1,3]", "5", false},
                    PatternCase{"RangeWithoutCommaKeepsTheDefaults", "STD", "%[1]", "1000000", true},
                    PatternCase{"AboveTheDefaults", "STD", "%", "1000001", false},
                    PatternCase{"UnreadableBoundTakesTheOneBefore", "STD", "%[,0]%[5,x]", "5", true, {0, 1}, {5, 5}},
                    PatternCase{"UnreadableBoundIsThatBound", "STD", "%[5,x]", "6", false},
                    PatternCase{"RealHolderKeepsItsValue", "STD", R"~($"A"$)~", "2AX", true, {1, 1, 1}, {2, 0, 2}}),
    NameOf<PatternCase>);

INSTANTIATE_TEST_SUITE_P(
    Groups, CodePatternOracleTest,
    testing::Values(
        PatternCase{"FirstAlternative",
                    "STD",
                    R"~("M"(|"A"|"B")%)~",
                    "MA5",
                    true,
                    {1, 0, 0, 1, 0, 0, 0, 1},
                    {0, 0, 0, 0, 0, 0, 0, 5}},
        PatternCase{"SecondAlternative", "STD", R"~("M"(|"A"|"B")%)~", "MB5", true, {1, 0, 0, 0, 0, 1, 0, 1}},
        PatternCase{"NoAlternativeTakesTheNumber", "STD", R"~("M"(|"A"|"B")%)~", "M5", false},
        PatternCase{"NumberDueBehindTheGroup", "STD", R"~("M"(|"A"|"B")%)~", "MA", false},
        PatternCase{"OnlyAlternatives", "STD", R"~((|"A"|"B"))~", "B", true, {0, 0, 0, 0, 1, 0}},
        PatternCase{"NoAlternative", "STD", R"~((|"A"|"B"))~", "C", false},
        PatternCase{"WithoutAMarkAheadIsRequired", "STD", R"~(("A"|"B"))~", "A", true, {0, 1, 0, 0, 0}},
        PatternCase{"WithoutAMarkAheadFails", "STD", R"~(("A"|"B"))~", "B", false},
        PatternCase{"OptionalLeftOut", "STD", R"~("A"(|"B"|""))~", "A", true, {1, 0, 0, 0, 0, 1, 0}},
        PatternCase{"OptionalTaken", "STD", R"~("A"(|"B"|""))~", "AB", true, {1, 0, 0, 1, 0, 0, 0}},
        PatternCase{"OptionalAndMore", "STD", R"~("A"(|"B"|""))~", "AC", false},
        PatternCase{"FirstAlternativeWins", "STD", R"~((|"A"|"AB")"C")~", "ABC", false},
        PatternCase{"LongerAlternativeFirst", "STD", R"~((|"AB"|"A")"C")~", "ABC", true},
        PatternCase{"SequenceTaken", "STD", R"~("A"("B""C"))~", "ABC", true, {1, 0, 1, 1, 0}},
        PatternCase{"SequenceHalfTaken", "STD", R"~("A"("B""C"))~", "AB", false},
        PatternCase{"SequenceNotTaken", "STD", R"~("A"("B""C"))~", "A", false},
        PatternCase{"FailedSequenceIsCleared", "STD", R"~((|("A""C")|"AD"))~", "AD", true, {0, 0, 0, 0, 0, 0, 0, 1, 0}},
        PatternCase{"OuterMarkOfAFailedSequenceStays",
                    "STD",
                    R"~((|("A"("B"))|"A"))~",
                    "A",
                    true,
                    {0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0}},
        PatternCase{"EmptyGroup", "STD", R"~("A"()"B")~", "AB", true, {1, 0, 0, 1}},
        PatternCase{"GapOutsideAGroup", "STD", R"~("A"%"B")~", "AB", true, {1, 0, 1}},
        PatternCase{"GapInsideAGroup", "STD", R"~(("A"%"B"))~", "AB", false},
        PatternCase{"NoGapInsideAGroup", "STD", R"~(("A"%"B"))~", "A1B", true, {0, 1, 1, 1, 0}},
        PatternCase{"GapFailsItsOwnInnerGroup", "STD", R"~(("A"(%"")"B"))~", "AB", false},
        PatternCase{"InnerEmptyGroupIsNotAsked", "STD", R"~(("A"()"B"))~", "AB", true, {0, 1, 0, 0, 1, 0}},
        PatternCase{"GroupAsAlternative", "STD", R"~((|"X"|("A"%))"E")~", "A3E", true, {0, 0, 0, 0, 0, 1, 1, 0, 0, 1}},
        PatternCase{"UnknownToken", "STD", R"~("A"x)~", "A", false},
        PatternCase{"UnknownTokenBehindTheAlternativeTaken", "STD", R"~(|"A"|x)~", "A", true, {0, 1, 0, 0}},
        PatternCase{"EmptyPattern", "STD", "", "", false}, PatternCase{"EmptyPatternOnACode", "STD", "", "A", false}),
    NameOf<PatternCase>);

// Patterns that no catalogue should hold: the walk ends on them and steps over nothing.
INSTANTIATE_TEST_SUITE_P(
    Malformed, CodePatternOracleTest,
    testing::Values(PatternCase{"OpenLiteralRunsToTheEnd", "STD", "\"AB", "AB", true, {1}},
                    PatternCase{"LoneQuote", "STD", "\"A\"\"", "A", false},
                    PatternCase{"OpenRangeRunsToTheEnd", "STD", "%[1,3", "2", true, {1}, {2}},
                    PatternCase{"GroupWithoutItsEnd", "STD", R"~("A"("B")~", "AB", true, {1, 0, 1}},
                    PatternCase{"AlternativesWithoutTheirEnd", "STD", R"~((|"A"|"B")~", "A", true, {0, 0, 1, 0, 0}},
                    PatternCase{"OpenParenthesisLast", "STD", R"~("A"()~", "A", true, {1, 0}},
                    PatternCase{"MarkAndOpenParenthesisLast", "STD", R"~("A"|()~", "A", true, {1, 0, 0}},
                    PatternCase{"CloseWithoutOpenEndsTheWalk", "STD", R"~("A")"B")~", "A", true, {1, 0, 0}},
                    PatternCase{"BlankAtTheEnd", "STD", "\"A\" \n", "A", true, {1}},
                    PatternCase{"BlankBetween", "STD", "\"A\" \n\"B\"", "AB", true, {1, 1}},
                    PatternCase{"PrintedNumberOvertakesTheCode", "STD", R"~("A"$(|"B"|""))~", "A.5", false}),
    NameOf<PatternCase>);

// In this system a literal is a whole part of a chain joined by "+".
INSTANTIATE_TEST_SUITE_P(
    Chains, CodePatternOracleTest,
    testing::Values(PatternCase{"Alternatives", "SAM", R"~("X"(|"Y"|"Z"))~", "X+Z", true, {1, 0, 0, 0, 0, 1, 0}},
                    PatternCase{"PlusAtTheEnd", "SAM", R"~("X"(|"Y"|"Z"))~", "X+Z+", true},
                    PatternCase{"WithoutPlus", "SAM", R"~("X"(|"Y"|"Z"))~", "XZ", false},
                    PatternCase{"WholePart", "SAM", R"~("ABC""D")~", "ABC+D", true},
                    PatternCase{"ShortPart", "SAM", R"~("ABC""D")~", "AB+D", false},
                    PatternCase{"NumberBehindAPart", "SAM", R"~("A"%)~", "A+1", true, {1, 1}, {0, 1}},
                    PatternCase{"NumberLeavesItsPlus", "SAM", R"~("A"%"B")~", "A+1+B", false}),
    NameOf<PatternCase>);

TEST(CodePatternOracle, CompilesTypesTextsAndRanges) {
  const std::vector<Token> tokens = CompilePattern(R"~("GR"%[1,80]$(|"")x)~");
  std::vector<int> types;
  for (const Token& token : tokens) types.push_back(token.Type);
  EXPECT_EQ(types, (std::vector<int>{6, 4, 5, 0, 2, 3, 1, 8, 7}));
  EXPECT_EQ(tokens[0].Text, "GR");
  EXPECT_EQ(tokens[1].Min, 1);
  EXPECT_EQ(tokens[1].Max, 80);
  EXPECT_EQ(tokens[2].Min, -1000000);
  EXPECT_EQ(tokens[2].Max, 1000000);
}

TEST(CodePatternOracle, ScanAddsToTheConsumedCount) {
  std::vector<Token> tokens = CompilePattern(R"~("A"%)~");
  int consumed = 10;
  EXPECT_EQ(GetCodeScan("STD", "A12B", tokens, 0, consumed), 2);
  EXPECT_EQ(consumed, 13);
  EXPECT_EQ(tokens[1].IntValue, 12);
  EXPECT_EQ(tokens[1].Text, "12");
  EXPECT_EQ(GetCodeScan("STD", "B", tokens, 0, consumed), -1);
  EXPECT_FALSE(tokens[1].Matched);
}

// ---- MOST ----

struct NormCase {
  const char* name;
  const char* input;
  const char* frequency;
  const char* result;
};
void PrintTo(const NormCase& row, std::ostream* out) {
  *out << row.name << ": " << row.input;
}

class MostToNormTest : public testing::TestWithParam<NormCase> {};
class MostFromNormTest : public testing::TestWithParam<NormCase> {};

TEST_P(MostToNormTest, GivesTheNormFormat) {
  EXPECT_EQ(ConvertToMostNorm(GetParam().input, GetParam().frequency, TimeOf), GetParam().result);
}
TEST_P(MostFromNormTest, GivesTheCodeForm) {
  EXPECT_EQ(GetMostCodeFromNorm(GetParam().input, GetParam().frequency), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, MostToNormTest,
    testing::Values(NormCase{"GeneralMove", "A1-1 B0-1 G1-1 A1-3 B0-3 P3-3 A0-1", "3", "A1B0G1(A1B0P3)A0"},
                    NormCase{"AllRepeated", "A1-3 B0-3", "3", "(A1B0)"},
                    NormCase{"AllRepeatedOnce", "A1-1 B0-1", "1", "A1B0"},
                    NormCase{"FirstBracketPairTakenOut", "A1-1 B0-3 G1-1", "1", "A1B0(G1)"},
                    NormCase{"EmptyFrequencyIsZero", "A1-1 B0-1", "", "A1B0"},
                    NormCase{"FractionAsPrinted", "A1-2.5 B0-1", "2.5", "(A1)B0"},
                    NormCase{"FractionNotAsPrinted", "A1-2.50 B0-1", "2.5", "A1B0"},
                    NormCase{"FrequencyIsAFormula", "A1-6 B0-1", "2*3", "(A1)B0"},
                    NormCase{"NoFrequency", "A1B0-3", "3", "A1(B0)"}, NormCase{"NoSequence", "X12", "3", "X12"},
                    NormCase{"BlankAhead", " A1-3", "3", " A1-3"}, NormCase{"Empty", "", "3", ""}),
    NameOf<NormCase>);

INSTANTIATE_TEST_SUITE_P(Sequences, MostFromNormTest,
                         testing::Values(NormCase{"GeneralMove", "A1B0G1(A1B0P3)A0", "3",
                                                  "A1-1 B0-1 G1-1 A1-3 B0-3 P3-3 A0-1"},
                                         NormCase{"BracketAhead", "(A1B0G1)A0", "3", "A1-3 B0-3 G1-3 A0-1"},
                                         NormCase{"BracketLast", "A1B0(G1A1)", "3", "A1-1 B0-1 G1-3 A1-3 "},
                                         NormCase{"TwoLettersAhead", "AB1", "7", "AB1-1"},
                                         NormCase{"FrequencyIsNotEvaluated", "(A1)B0", "2*3", "A1-2*3 B0-1"},
                                         NormCase{"BlanksDoNotCount", "A1 B0", "3", "A1-1 B0-1"},
                                         NormCase{"BracketOpenedLast", "A1(", "3", "A1-1 -3"},
                                         NormCase{"NoSequence", "X12", "3", "X12"}, NormCase{"Empty", "", "3", ""}),
                         NameOf<NormCase>);

TEST(MostNormOracle, BracketFlagsDecideAndDropTheRest) {
  const std::string code = "A1-1 B0-1 G1-1 A1-1 P3-1";
  EXPECT_EQ(ConvertToMostNorm(code, "3", {true, true, false}, TimeOf), "(A1B0)G1");
  EXPECT_EQ(ConvertToMostNorm(code, "1", {true, true, true, true, true}, TimeOf), "(A1B0G1A1P3)");
  EXPECT_EQ(ConvertToMostNorm(code, "1", {false, true}, TimeOf), "A1(B0)");
  EXPECT_EQ(ConvertToMostNorm(code, "1", {}, TimeOf), "");
  EXPECT_EQ(ConvertToMostNorm("X12", "1", {true}, TimeOf), "X12");
}

TEST(SequentialCodeOracle, NeedsLettersThatStandApart) {
  for (const char* code : {"M4G1", "3(M4G1)"}) EXPECT_TRUE(IsSequentialCode(code)) << code;
  for (const char* code : {"GET", "M4", "4M", "ABC12", "", "123"}) EXPECT_FALSE(IsSequentialCode(code)) << code;
}

// ---- MODAPTS ----

class ModaptsNormTest : public testing::TestWithParam<NormCase> {};

TEST_P(ModaptsNormTest, GivesTheCodeForm) {
  EXPECT_EQ(GetModaptsCode(GetParam().input, TimeOf), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, ModaptsNormTest,
    testing::Values(NormCase{"TwoParameters", "M4G1", "", "M4-1 G1-1"},
                    NormCase{"FourParameters", "M1G1M1P0", "", "M1-1 G1-1 M1-1 P0-1"},
                    NormCase{"BlanksWithoutBrackets", "M 4 G 1", "", "M4-1 G1-1"},
                    NormCase{"SingleCode", "M4", "", "M4"}, NormCase{"Mnemonic", "GET", "", "GET"},
                    NormCase{"DigitAhead", "4M", "", "4M"}, NormCase{"Empty", "", "", ""},
                    NormCase{"SingleCodeKeepsItsBlanks", " M4 ", "", " M4 "},
                    NormCase{"Multiplier", "3(M4G1)", "", "M4-3.0001 G1-3.0001 "},
                    NormCase{"MultiplierInside", "M4G1 3(M3P0)", "", "M4-1 G1-1 M3-3.0001 P0-3.0001 "},
                    NormCase{"MultiplierEndedByABlank", "M4G1 3 (M3P0)", "", "M4-1 G1-1 -1 M3-3 P0-3 "},
                    NormCase{"BracketWithoutMultiplier", "M4G1(M3P0)", "", "M4-1 G1-1 M3-1 P0-1 "},
                    NormCase{"Product", "M4G1 2*3(M3P0)", "", "M4-1 G1-1 M3-6.0001 P0-6.0001 "},
                    NormCase{"Quotient", "M4G1 6/2(M3P0)", "", "M4-1 G1-1 M3-3.0001 P0-3.0001 "},
                    NormCase{"BracketAhead", "(M4G1)M3", "", "M4-1 G1-1 M3-1"},
                    NormCase{"SecondDigitIsLost", "M4B17G1", "", "M4-1 B1-1 G1-1"},
                    NormCase{"TwoDigitMultiplier", "12(M4G1)", "", "M4-12.0001 G1-12.0001 "},
                    NormCase{"SixSignificantDigits", "123(M4G1)", "", "M4-123 G1-123 "},
                    NormCase{"BlankRoundsUp", "59/20 (M4G1)", "", "M4-3 G1-3 "},
                    NormCase{"BlankRoundsDown", "57/20 (M4G1)", "", "M4-2 G1-2 "}),
    NameOf<NormCase>);

INSTANTIATE_TEST_SUITE_P(Failures, ModaptsNormTest,
                         testing::Values(NormCase{"Fraction", "1.5(M4G1)", "", "0"},
                                         NormCase{"PlusSign", "M4+G1", "", "0"},
                                         NormCase{"OperatorOutsideAMultiplier", "M4G1*2", "", "0"}),
                         NameOf<NormCase>);

}  // namespace
}  // namespace oracle
