// The evaluator: values, statuses and positions of formulas, in both kinds of locale.
#include "formula/FormulaEvaluator.h"

#include <limits>

#include "tests/formula/FormulaTest.h"
#include "tests/formula/ScopedLocale.h"

namespace formulatest {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

class FormulaEvaluatorTest : public testing::TestWithParam<FormulaCase> {};

TEST_P(FormulaEvaluatorTest, HasValueAndStatus) {
  ExpectFormula(GetParam());
}

// Arithmetic by hand.
INSTANTIATE_TEST_SUITE_P(
    Values, FormulaEvaluatorTest,
    testing::Values(
        FormulaCase{"Number", L"42", 42.0, 0}, FormulaCase{"NumberWithBlanks", L"  42  ", 42.0, 0},
        FormulaCase{"Fraction", L"1.5", 1.5, 0}, FormulaCase{"FractionWithoutDigits", L"1.", 1.0, 0},
        FormulaCase{"LeadingZeros", L"007", 7.0, 0}, FormulaCase{"Exponent", L"1e3", 1000.0, 0},
        FormulaCase{"CapitalExponent", L"1E3", 1000.0, 0}, FormulaCase{"NegativeExponent", L"25e-2", 0.25, 0},
        FormulaCase{"PositiveExponent", L"1.5e+1", 15.0, 0}, FormulaCase{"Hexadecimal", L"0x1A", 26.0, 0},
        FormulaCase{"HexadecimalExponent", L"0x1.8p3", 12.0, 0}, FormulaCase{"BeyondTheRange", L"1e400", Infinity, 0},
        FormulaCase{"BelowTheRange", L"1e-400", 0.0, 0}, FormulaCase{"SignOfTheFirstTerm", L"-2*3", -6.0, 0},
        FormulaCase{"PlusSign", L"+5", 5.0, 0}, FormulaCase{"SignAndSum", L"-2*3+1", -5.0, 0},
        FormulaCase{"NegativeZero", L"-0", -0.0, 0}, FormulaCase{"SignBeforeParenthesis", L"-(2)", -2.0, 0},
        FormulaCase{"SignInParentheses", L"1+(-2)", -1.0, 0}, FormulaCase{"SignInAnArgument", L"abs(-3)", 3.0, 0},
        FormulaCase{"SubtractionGoesLeft", L"5-3-1", 1.0, 0}, FormulaCase{"DivisionGoesLeft", L"8/2/2", 2.0, 0},
        FormulaCase{"MixedGoesLeft", L"8/2*3", 12.0, 0}, FormulaCase{"ProductBindsTighter", L"1+2*3-4/2", 5.0, 0},
        FormulaCase{"ParenthesesFirst", L"(1+2)*(3-1)", 6.0, 0}, FormulaCase{"NestedParentheses", L"((((7))))", 7.0, 0},
        FormulaCase{"QuotientOfParentheses", L"(8)/(2)", 4.0, 0}, FormulaCase{"DivisionByNegative", L"6/(-2)", -3.0, 0},
        FormulaCase{"EveryWhiteSpace", L"\t1\n+\r2\v*\f3 ", 7.0, 0},
        FormulaCase{"InfinityLessInfinity", L"1e400-1e400", NotANumber, 0}),
    RowName());

INSTANTIATE_TEST_SUITE_P(UnmatchedParenthesisEndsTheFormula, FormulaEvaluatorTest,
                         testing::Values(FormulaCase{"ProductBehind", L"1+2)*99", 3.0, 0},
                                         FormulaCase{"SumBehindACall", L"pow(2,3))+1", 8.0, 0},
                                         FormulaCase{"AtTheEnd", L"1)", 1.0, 0},
                                         FormulaCase{"NothingBehindIsRead", L"1)$", 1.0, 0},
                                         FormulaCase{"NotEvenAnUnknownName", L"2*3)foo(", 6.0, 0},
                                         FormulaCase{"AnyNumberOfThem", L"(1)))", 1.0, 0},
                                         FormulaCase{"NothingBefore", L")", 0.0, 1},
                                         FormulaCase{"BehindAnOperator", L"1+)", 0.0, 3}),
                         RowName());

INSTANTIATE_TEST_SUITE_P(
    Calls, FormulaEvaluatorTest,
    testing::Values(
        FormulaCase{"Comma", L"pow(2,3)", 8.0, 0}, FormulaCase{"Underscore", L"pow(2_3)", 8.0, 0},
        FormulaCase{"BlanksEverywhere", L" pow ( 2 , 3 ) ", 8.0, 0},
        FormulaCase{"MissingArgumentIsZero", L"pow(2)", 1.0, 0},
        FormulaCase{"SurplusArgumentIsIgnored", L"sqrt(4,5)", 2.0, 0}, FormulaCase{"NoArguments", L"sin()", 0.0, 0},
        FormulaCase{"NoArgumentsBlank", L"exp( )", 1.0, 0}, FormulaCase{"TwoZerosToPower", L"pow()", 1.0, 0},
        FormulaCase{"CallsInCalls", L"sqrt(pow(3,2)+pow(4,2))", 5.0, 0},
        FormulaCase{"ArgumentIsAnExpression", L"abs(2*(1-3)+1)", 3.0, 0},
        FormulaCase{"ThreeLevels", L"abs(-abs(-abs(-2)))", 2.0, 0}, FormulaCase{"CallAsDivisor", L"8/sqrt(4)", 4.0, 0},
        FormulaCase{"FunctionDividesByZero", L"MTM1EYETRAVEL(1,0,0)", 20.0, 0},
        FormulaCase{"FunctionGivesNoNumber", L"sqrt(-1)", NotANumber, 0},
        FormulaCase{"FunctionOverflows", L"exp(1000)", Infinity, 0},
        FormulaCase{"TwentyOneArguments", L"pow(2,3,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,9)", 8.0, 0},
        FormulaCase{"SurplusArgumentMustStillEvaluate", L"pow(2,3,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,1/0)", 0.0, -2}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    DivisionByZero, FormulaEvaluatorTest,
    testing::Values(FormulaCase{"Plain", L"5/0", 0.0, -1}, FormulaCase{"Difference", L"5/(1-1)", 0.0, -1},
                    FormulaCase{"NegativeZeroToo", L"5/(-0)", 0.0, -1}, FormulaCase{"ZeroByZero", L"0/0", 0.0, -1},
                    FormulaCase{"InParentheses", L"1+(1/0)", 0.0, -1}, FormulaCase{"Underflow", L"5/1e-400", 0.0, -1},
                    FormulaCase{"ByACall", L"5/sin()", 0.0, -1},
                    FormulaCase{"CountsBeforeALaterError", L"5/0+", 0.0, -1},
                    FormulaCase{"NotBeforeWhatIsReadAhead", L"5/0$", 0.0, -2},
                    FormulaCase{"InAnArgumentList", L"pow(1/0,2)", 0.0, -2},
                    FormulaCase{"InALaterArgument", L"pow(2,1/0)", 0.0, -2},
                    FormulaCase{"AlmostZero", L"1/1e-300", 1.0 / 1e-300, 0}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    WhatStartsNoToken, FormulaEvaluatorTest,
    testing::Values(
        FormulaCase{"NumberWithoutWholePart", L".5", 0.0, -2}, FormulaCase{"Dollar", L"$", 0.0, -2},
        FormulaCase{"DollarBehindANumber", L"1$", 0.0, -2}, FormulaCase{"DollarBehindABlank", L"1 $", 0.0, -2},
        FormulaCase{"DollarBehindAnOperator", L"1+$", 0.0, -2},
        FormulaCase{"DollarBehindAParenthesis", L"(1)$", 0.0, -2}, FormulaCase{"SecondPoint", L"1.2.3", 0.0, -2},
        FormulaCase{"Semicolon", L"1;2", 0.0, -2}, FormulaCase{"Comparison", L"1<2", 0.0, -2},
        FormulaCase{"Power", L"2^3", 0.0, -2}, FormulaCase{"ExponentWithoutDigits", L"1e", 0.0, -2},
        FormulaCase{"HexadecimalWithoutDigits", L"0x", 0.0, -2}, FormulaCase{"InAnArgument", L"abs($)", 0.0, -2},
        FormulaCase{"BehindACall", L"abs(1)$", 0.0, -2}, FormulaCase{"LatinLetter", L"1\u00E4", 0.0, -2},
        FormulaCase{"NoBreakSpace", L"1\u00A0+1", 0.0, -2}, FormulaCase{"LowByteIsADigit", L"\u0131", 0.0, -2},
        FormulaCase{"LowByteIsABlank", L"1\u0120", 0.0, -2}, FormulaCase{"LowBytesAreADigit", L"\U00010031", 0.0, -2},
        FormulaCase{"FullWidthDigit", L"\uFF11", 0.0, -2}, FormulaCase{"LowByteEndsNothing", L"1\u0100", 0.0, -2}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    FailedNames, FormulaEvaluatorTest,
    testing::Values(
        FormulaCase{"Unknown", L"foo(1)", 0.0, -2}, FormulaCase{"NoParenthesis", L"sqrt", 0.0, -2},
        FormulaCase{"NumberBehind", L"sqrt 4", 0.0, -2}, FormulaCase{"Capitals", L"SQRT(4)", 0.0, -2},
        FormulaCase{"OneCapital", L"Sqrt(4)", 0.0, -2}, FormulaCase{"SmallLetters", L"mtm1reach(0,2,0,0)", 0.0, -2},
        FormulaCase{"PartOfAName", L"sqr(4)", 0.0, -2}, FormulaCase{"MoreThanAName", L"sqrt2(4)", 0.0, -2},
        FormulaCase{"UnderscoreInAName", L"MTM1_REACH(0,2,0,0)", 0.0, -2},
        FormulaCase{"EmptyFirstArgument", L"pow(,2)", 0.0, -2},
        FormulaCase{"EmptyMiddleArgument", L"pow(2,,3)", 0.0, -2},
        FormulaCase{"EmptyLastArgument", L"pow(2,)", 0.0, -2}, FormulaCase{"NotClosed", L"abs(1", 0.0, -2},
        FormulaCase{"NothingInside", L"abs(", 0.0, -2}, FormulaCase{"SyntaxErrorInside", L"abs(1 2)", 0.0, -2},
        FormulaCase{"TwoSignsInside", L"abs(--3)", 0.0, -2}, FormulaCase{"UnknownInside", L"abs(foo(1))", 0.0, -2},
        FormulaCase{"FailedBehindASum", L"1+foo(1)", 0.0, -2}, FormulaCase{"FailedAsLookAhead", L"1 foo(1)", 0.0, -2},
        FormulaCase{"ErrorBehindAParenthesis", L"abs((1)2)", 0.0, -2}, FormulaCase{"VariableLike", L"x", 0.0, -2},
        FormulaCase{"ConstantLike", L"pi*2", 0.0, -2}, FormulaCase{"InfinityIsNoNumber", L"inf", 0.0, -2},
        FormulaCase{"NanIsNoNumber", L"nan", 0.0, -2}),
    RowName());

// The status is the position, from 1, just behind the last token consumed.
INSTANTIATE_TEST_SUITE_P(
    SyntaxErrors, FormulaEvaluatorTest,
    testing::Values(
        FormulaCase{"Empty", L"", 0.0, 1}, FormulaCase{"Blanks", L"   ", 0.0, 1},
        FormulaCase{"SignInAProduct", L"2*-3", 0.0, 3}, FormulaCase{"SignInASum", L"1+-2", 0.0, 3},
        FormulaCase{"SignInAQuotient", L"5/-1", 0.0, 3}, FormulaCase{"NothingBehindPlus", L"1+", 0.0, 3},
        FormulaCase{"NothingBehindTimes", L"2*", 0.0, 3}, FormulaCase{"TwoSigns", L"--2", 0.0, 2},
        FormulaCase{"SignAlone", L"-", 0.0, 2}, FormulaCase{"TwoNumbers", L"1 2", 0.0, 2},
        FormulaCase{"BlanksBeforeCount", L"  1  2", 0.0, 4}, FormulaCase{"BlanksBehindDoNot", L"2 *   ", 0.0, 4},
        FormulaCase{"CommaOutsideACall", L"1,2", 0.0, 2}, FormulaCase{"UnderscoreOutsideACall", L"1_2", 0.0, 2},
        FormulaCase{"CommaFirst", L",1", 0.0, 1}, FormulaCase{"TimesFirst", L"*2", 0.0, 1},
        FormulaCase{"DivideFirst", L"/2", 0.0, 1}, FormulaCase{"NotClosed", L"(1", 0.0, 3},
        FormulaCase{"FactorNotClosed", L"2*(3", 0.0, 5}, FormulaCase{"NumberBehindParenthesis", L"(2)3", 0.0, 4},
        FormulaCase{"ParenthesisBehindNumber", L"2(3)", 0.0, 2}, FormulaCase{"NothingInParentheses", L"()", 0.0, 2},
        FormulaCase{"OpenAlone", L"(", 0.0, 2}, FormulaCase{"CommaInParentheses", L"(1,2)", 0.0, 3},
        FormulaCase{"NumberBehindCall", L"abs(1) 2", 0.0, 7}, FormulaCase{"CallBehindNumber", L"2abs(1)", 0.0, 2},
        FormulaCase{"CallBehindCall", L"abs(1)abs(2)", 0.0, 7}, FormulaCase{"TwoOperators", L"1*/2", 0.0, 3},
        FormulaCase{"PowerOfTwoStars", L"2**3", 0.0, 3}, FormulaCase{"SignBehindSignedTerm", L"-1+*2", 0.0, 4}),
    RowName());

// One token is read ahead, and a call read ahead counts as a number where only its closing parenthesis is missing.
INSTANTIATE_TEST_SUITE_P(ReadAhead, FormulaEvaluatorTest,
                         testing::Values(FormulaCase{"GroupEndsTheArgument", L"1 abs((1)$", 0.0, 2},
                                         FormulaCase{"EmptyListBehindAParenthesis", L"(1)abs($", 0.0, 4},
                                         FormulaCase{"NumberEndsTheArgument", L"1 abs(1$", 0.0, -2},
                                         FormulaCase{"EmptyListBehindANumber", L"1 abs($", 0.0, -2}),
                         RowName());

TEST(FormulaEvaluatorTest, LeavesTheStatusAloneWithoutAFormula) {
  int status = 7;
  EXPECT_TRUE(SameNumber(0.0, EvaluateFormula(nullptr, status)));
  EXPECT_EQ(status, 7);
}

TEST(FormulaEvaluatorTest, DoesNotDependOnTheEvaluationBefore) {
  const std::vector<std::wstring> texts = {L"1+2",     L"$",      L"(1)abs($", L"1 abs((1)$", L"abs(1",  L"pow(2,,3)",
                                           L"1/0",     L"",       L"1 2",      L"foo(1)",     L"abs()",  L"(((",
                                           L"abs(1)$", L"-abs(3", L")",        L"1)",         L"abs($)", L"sqrt(4,5)"};
  for (const std::wstring& text : texts) {
    const Evaluation alone = Evaluate(text);
    for (const std::wstring& before : texts) {
      Evaluate(before);
      const Evaluation result = Evaluate(text);
      EXPECT_EQ(result.Status, alone.Status) << Printable(text) << " behind " << Printable(before);
      EXPECT_TRUE(SameNumber(alone.Value, result.Value)) << Printable(text) << " behind " << Printable(before);
    }
  }
}

// ------------------------------------------------------------------------------------------------- Decimal comma

class CommaLocaleFormulaTest : public testing::TestWithParam<FormulaCase> {};

TEST_P(CommaLocaleFormulaTest, HasValueAndStatusOnTheThread) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  ExpectFormula(GetParam());
}

TEST_P(CommaLocaleFormulaTest, HasValueAndStatusInTheProcess) {
  const ScopedProcessLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  ExpectFormula(GetParam());
}

// Behind a digit the comma belongs to the number; elsewhere it separates.
INSTANTIATE_TEST_SUITE_P(
    Texts, CommaLocaleFormulaTest,
    testing::Values(FormulaCase{"Fraction", L"1,5", 1.5, 0}, FormulaCase{"Sum", L"1,5+2,25", 3.75, 0},
                    FormulaCase{"CommaWithoutDigits", L"1,", 1.0, 0},
                    FormulaCase{"CommaIsPartOfTheNumber", L"sqrt(6,25)", 2.5, 0},
                    FormulaCase{"OneArgumentOnly", L"pow(2,3)", 1.0, 0},
                    FormulaCase{"UnderscoreSeparates", L"pow(2_3)", 8.0, 0},
                    FormulaCase{"UnderscoreBehindAFraction", L"pow(1,5_2)", 2.25, 0},
                    FormulaCase{"CommaBehindABlankSeparates", L"pow(2 ,3)", 8.0, 0},
                    FormulaCase{"CommaBehindAParenthesisSeparates", L"pow((2),3)", 8.0, 0},
                    FormulaCase{"SecondCommaSeparates", L"pow(1,5,2)", 2.25, 0},
                    FormulaCase{"CommaBeforeABlank", L"pow(2, 3)", 0.0, -2}, FormulaCase{"Point", L"1.5", 0.0, -2},
                    FormulaCase{"PointInACall", L"abs(1.5)", 0.0, -2}, FormulaCase{"NoGrouping", L"1.000", 0.0, -2},
                    FormulaCase{"CommaFirst", L",5", 0.0, 1}, FormulaCase{"ExponentBehindComma", L"1,5e2", 150.0, 0},
                    FormulaCase{"TwoCommas", L"1,2,3", 0.0, 4}, FormulaCase{"TwoNumbers", L"1,2 3", 0.0, 4},
                    FormulaCase{"LatinLetter", L"1\u00E4", 0.0, -2}),
    RowName());

TEST(FormulaEvaluatorTest, ReadsThePointAgainWhenTheCommaLocaleIsGone) {
  {
    const ScopedLocale locale(COMMA_LOCALE);
    ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE;
    EXPECT_TRUE(SameNumber(2.5, Evaluate(L"2,5").Value));
  }
  EXPECT_TRUE(SameNumber(2.5, Evaluate(L"2.5").Value));
  EXPECT_EQ(Evaluate(L"2,5").Status, 2);
}

}  // namespace
}  // namespace formulatest
