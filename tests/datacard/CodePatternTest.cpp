// Code patterns: what they compile to, and which codes they match with which values.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/PatternCheck.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::Check;
using support::Outcome;
using support::Text;
using support::Unicode;

// ------------------------------------------------------------------------------------------------------ Compilation

struct Token {
  int type;
  std::string text = {};
  int min = 0;
  int max = 0;

  friend bool operator==(const Token&, const Token&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Token& token) {
    return out << token.type << " '" << token.text << "' " << token.min << ".." << token.max;
  }
};

struct CompileRow {
  const char* name;
  std::string pattern;
  std::vector<Token> tokens;  // without the end token
};

class CompilePatternTest : public testing::TestWithParam<CompileRow> {};

TEST_P(CompilePatternTest, GivesTheTokensAndOneEndToken) {
  const VEXSTMTimeAnalysisDlgServices services;
  VEXSTMDataCardCodeScan* scans = nullptr;
  ASSERT_EQ(services.CreateCodeScanPattern(Unicode(GetParam().pattern), scans), S_OK);
  ASSERT_NE(scans, nullptr);
  const std::unique_ptr<VEXSTMDataCardCodeScan[]> owned(scans);
  std::vector<Token> tokens;
  for (; scans->_Type != 7; ++scans) {
    tokens.push_back({scans->_Type, Text(scans->_Text), scans->_Min, scans->_Max});
    EXPECT_EQ(scans->_Matched, 0);
    EXPECT_EQ(scans->_IntValue, 0);
    EXPECT_EQ(scans->_RealValue, 0.0);
  }
  EXPECT_EQ(tokens, GetParam().tokens);
}

constexpr int Low = -1000000;
constexpr int High = 1000000;

INSTANTIATE_TEST_SUITE_P(
    Tokens, CompilePatternTest,
    testing::Values(CompileRow{"Nothing", "", {}}, CompileRow{"GroupOpen", "(", {{0}}},
                    CompileRow{"GroupClose", ")", {{1}}}, CompileRow{"AlternativeMark", "|", {{2}}},
                    CompileRow{"EmptyLiteral", "\"\"", {{3}}}, CompileRow{"Integer", "%", {{4, "", Low, High}}},
                    CompileRow{"Real", "$", {{5, "", Low, High}}}, CompileRow{"Literal", "\"AB 1\"", {{6, "AB 1"}}},
                    CompileRow{"LiteralWithSigns", "\"(|%$[\"", {{6, "(|%$["}}},
                    CompileRow{"LiteralWithoutItsEnd", "\"AB", {{6, "AB"}}},
                    CompileRow{"LoneQuoteAtTheEnd", "\"A\"\"", {{6, "A"}, {6}}},
                    CompileRow{"LiteralsInARow", "\"A\"\"B\"", {{6, "A"}, {6, "B"}}}, CompileRow{"Unknown", "x", {{8}}},
                    CompileRow{"UnknownOneByOne", "A1]", {{8}, {8}, {8}}}, CompileRow{"Tabulator", "\t", {{8}}},
                    CompileRow{"CarriageReturn", "%\r", {{4, "", Low, High}, {8}}},
                    CompileRow{"PositionsCountEveryToken",
                               "\"M\"(|\"A\"|\"B\")%",
                               {{6, "M"}, {0}, {2}, {6, "A"}, {2}, {6, "B"}, {1}, {4, "", Low, High}}},
                    CompileRow{"BlankAtTheEnd", "% ", {{4, "", Low, High}}},
                    CompileRow{"LineFeedAtTheEnd", "%\n", {{4, "", Low, High}}},
                    CompileRow{"BlanksAloneAreNoToken", " \n ", {}},
                    // Blanks between tokens are passed over.
                    CompileRow{"BlankBetweenTokens", "\"A\" %", {{6, "A"}, {4, "", Low, High}}},
                    CompileRow{"BlanksAheadAndBetween", " \n( |\n\"A\" )", {{0}, {2}, {6, "A"}, {1}}}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Ranges, CompilePatternTest,
    testing::Values(
        CompileRow{"Integer", "%[1,80]", {{4, "", 1, 80}}}, CompileRow{"Real", "$[-5,5]", {{5, "", -5, 5}}},
        CompileRow{"Blanks", "%[ 1 , 80 ]", {{4, "", 1, 80}}},
        CompileRow{"FractionsAreCut", "$[1.9,2.9]", {{5, "", 1, 2}}},
        CompileRow{"WithoutComma", "%[7]", {{4, "", Low, High}}}, CompileRow{"Empty", "%[]", {{4, "", Low, High}}},
        CompileRow{"CommaAlone", "%[,]", {{4, "", 0, 0}}},
        CompileRow{"LowerUnreadableIsZeroAtFirst", "%[x,7]", {{4, "", 0, 7}}},
        CompileRow{"UpperUnreadableIsTheLower", "%[7,]", {{4, "", 7, 7}}},
        CompileRow{"UnreadableBoundsTakeTheNumberBefore", "%[1,80]$[x,y]", {{4, "", 1, 80}, {5, "", 80, 80}}},
        CompileRow{"LowerUnreadableTakesTheNumberBefore", "%[1,80]%[,90]", {{4, "", 1, 80}, {4, "", 80, 90}}},
        CompileRow{"RangeWithoutCommaKeepsTheNumber",
                   "%[1,80]%[5]%[,90]",
                   {{4, "", 1, 80}, {4, "", Low, High}, {4, "", 80, 90}}},
        CompileRow{"SecondCommaEndsTheNumber", "%[1,2,3]", {{4, "", 1, 2}}},
        CompileRow{"WithoutItsEnd", "%[1,80", {{4, "", 1, 80}}},
        CompileRow{"WithoutItsEndAndWithoutComma", "%[1\"A\"", {{4, "", Low, High}}},
        CompileRow{"EndsAtTheNextBracket", "%[1,80]]", {{4, "", 1, 80}, {8}}},
        CompileRow{"HoldsWhatStandsInIt", "%[1,\"A\"80]", {{4, "", 1, 1}}},
        CompileRow{"CommaBehindTheRange", "%[5]\"A,\"", {{4, "", Low, High}, {6, "A,"}}},
        CompileRow{"BehindABlankIsNoRange", "% [5]", {{4, "", Low, High}, {8}, {8}, {8}}},
        CompileRow{"WithoutParameter", "[1,2]", {{8}, {8}, {8}, {8}, {8}}}),
    [](const auto& row) { return std::string(row.param.name); });

// --------------------------------------------------------------------------------------------------------- Matching

struct MatchRow {
  const char* name;
  const char* system;
  std::string pattern;
  std::string code;
  bool matches;
  std::vector<double> values = {};
  std::vector<int> flags = {};
};

class MatchTest : public support::ServiceRowTest<MatchRow> {};

TEST_P(MatchTest, GivesValuesAndFlagsOrLeavesThemUntouched) {
  const MatchRow& row = GetParam();
  VEXSTMTimeAnalysisDlgServices services;
  support::Select(services, row.system);
  // The second round meets a pattern that has been seen before.
  for (int round = 1; round <= 2; ++round) {
    const Outcome outcome = Check(services, row.code, row.pattern);
    ASSERT_EQ(outcome.matched, row.matches) << row.pattern << " on " << row.code << ", round " << round;
    if (!row.matches) {
      EXPECT_EQ(outcome.count, -1);
      EXPECT_EQ(outcome.values, std::vector<double>(64, -77.0));
      EXPECT_EQ(outcome.flags, std::vector<int>(64, -77));
      continue;
    }
    const auto count = static_cast<std::size_t>(outcome.count);
    ASSERT_LT(count, 64u);
    EXPECT_EQ(std::vector<double>(outcome.values.begin(), outcome.values.begin() + outcome.count), row.values);
    EXPECT_EQ(std::vector<int>(outcome.flags.begin(), outcome.flags.begin() + outcome.count), row.flags);
    EXPECT_EQ(outcome.values[count], -77.0);
    EXPECT_EQ(outcome.flags[count], -77);
  }
}

const auto Name = [](const testing::TestParamInfo<MatchRow>& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(
    IntegerParameters, MatchTest,
    testing::Values(
        MatchRow{"NumberBehindALiteral", "STD", "\"GR\"%", "GR5", true, {0, 5}, {1, 1}},
        MatchRow{"UpperBoundIsInside", "STD", "\"GR\"%[1,80]", "GR80", true, {0, 80}, {1, 1}},
        MatchRow{"LowerBoundIsInside", "STD", "\"GR\"%[1,80]", "GR1", true, {0, 1}, {1, 1}},
        MatchRow{"AboveTheRangeIsNotConsumed", "STD", "\"GR\"%[1,80]", "GR90", false},
        MatchRow{"BelowTheRangeIsNotConsumed", "STD", "\"GR\"%[1,80]", "GR0", false},
        MatchRow{"CodeEndsAtTheParameter", "STD", "\"GR\"%[1,80]", "GR", false},
        MatchRow{"Alone", "STD", "%", "7", true, {7}, {1}}, MatchRow{"LeadingZeros", "STD", "%", "007", false},
        MatchRow{"Negative", "STD", "%", "-5", true, {-5}, {1}}, MatchRow{"PlusSign", "STD", "%", "+5", false},
        MatchRow{"NegativeZero", "STD", "%", "-0", false}, MatchRow{"Zero", "STD", "%", "0", true, {0}, {1}},
        MatchRow{"BlankAhead", "STD", "%", " 5", false}, MatchRow{"Fraction", "STD", "%", "1.5", false},
        MatchRow{"DefaultUpperBound", "STD", "%", "1000000", true, {1000000}, {1}},
        MatchRow{"AboveTheDefaultBound", "STD", "%", "1000001", false},
        MatchRow{"DefaultLowerBound", "STD", "%", "-1000000", true, {-1000000}, {1}},
        MatchRow{"Missing", "STD", "%\"A\"", "A", true, {0, 0}, {0, 1}},
        MatchRow{"Present", "STD", "%\"A\"", "5A", true, {5, 0}, {1, 1}},
        MatchRow{"OutOfRangeLetsTheLiteralTakeOver", "STD", "%[1,3]\"5X\"", "5X", true, {5, 0}, {0, 1}},
        MatchRow{"MissingBetweenLiterals", "STD", "\"A\"%\"B\"", "AB", true, {0, 0, 0}, {1, 0, 1}},
        MatchRow{"MissingInAGroup", "STD", "(\"A\"%\"B\")", "AB", false},
        MatchRow{"PresentInAGroup", "STD", "(\"A\"%\"B\")", "A1B", true, {0, 0, 1, 0, 0}, {0, 1, 1, 1, 0}},
        MatchRow{"OutOfRangeInAGroup", "STD", "(\"A\"%[1,3]\"5\")", "A5", false},
        MatchRow{"TwoNumbers", "STD", "%[0,9]\"X\"%", "3X12", true, {3, 0, 12}, {1, 1, 1}},
        MatchRow{"TwoMissingNumbers", "STD", "%%\"A\"", "A", true, {0, 0, 0}, {0, 0, 1}},
        MatchRow{
            "AsAnAlternative", "STD", "\"A\"(|%[1,3]|\"X\")", "A2", true, {0, 0, 0, 2, 0, 0, 0}, {1, 0, 0, 1, 0, 0, 0}},
        MatchRow{"OutOfRangeAlternativeKeepsItsValue",
                 "STD",
                 "\"A\"(|%[1,3]|\"7\")",
                 "A7",
                 true,
                 {0, 0, 0, 7, 0, 0, 0},
                 {1, 0, 0, 0, 0, 1, 0}},
        MatchRow{"UnreadableAlternative",
                 "STD",
                 "\"A\"(|%|\"X\")",
                 "AX",
                 true,
                 {0, 0, 0, 0, 0, 0, 0},
                 {1, 0, 0, 0, 0, 1, 0}},
        MatchRow{"AlternativeAtTheEndOfTheCode",
                 "STD",
                 "\"A\"(|%|\"\")",
                 "A",
                 true,
                 {0, 0, 0, 0, 0, 0, 0},
                 {1, 0, 0, 0, 0, 1, 0}}),
    Name);

INSTANTIATE_TEST_SUITE_P(
    RealParameters, MatchTest,
    testing::Values(
        MatchRow{"Fraction", "STD", "\"GR\"$", "GR1.5", true, {0, 1.5}, {1, 1}},
        MatchRow{"TrailingZero", "STD", "\"GR\"$", "GR1.50", false},
        MatchRow{"WholeNumberWithFraction", "STD", "\"GR\"$", "GR1.0", false},
        MatchRow{"NoDigitAheadOfThePoint", "STD", "\"GR\"$", "GR.5", false},
        MatchRow{"WholeNumber", "STD", "$", "12", true, {12}, {1}},
        MatchRow{"SixDigits", "STD", "$", "100000", true, {100000}, {1}},
        MatchRow{"SevenDigitsArePrintedWithAnExponent", "STD", "$", "1000000", false},
        MatchRow{"LowerCaseExponent", "STD", "$", "1e+06", true, {1000000}, {1}},
        MatchRow{"UpperCaseExponent", "STD", "$", "1E+06", true, {1000000}, {1}},
        MatchRow{"SixSignificantDigits", "STD", "$", "1.23457", true, {1.23457}, {1}},
        MatchRow{"SevenSignificantDigitsAreRounded", "STD", "$", "1.234567", false},
        MatchRow{"ManyDigitsOnBothSidesOfThePoint", "STD", "$", "9999999.9999999", false},
        MatchRow{"Negative", "STD", "$", "-2.5", true, {-2.5}, {1}},
        MatchRow{"UnreadableEatsItsPrintedLength", "STD", "$\"A\"", "XA", true, {0, 0}, {1, 1}},
        MatchRow{"UnreadableEatsTheLiteral", "STD", "$\"A\"", "A", false},
        MatchRow{"AboveTheRange", "STD", "$[1,3]", "5", false},
        MatchRow{"OnTheBounds", "STD", "$[1,3]\"X\"$[1,3]", "3X1", true, {3, 0, 1}, {1, 1, 1}},
        MatchRow{"JustBelowTheRange", "STD", "$[1,3]", "0.99", false},
        MatchRow{"OutOfRangeFailsBeforeTheLiteral", "STD", "$[1,3]\"5X\"", "5X", false},
        MatchRow{"CodeEndsAtTheParameter", "STD", "\"A\"$", "A", false},
        MatchRow{
            "OutOfRangeAlternative", "STD", "(|$[1,3]|\"5X\")", "5X", true, {0, 0, 5, 0, 0, 0}, {0, 0, 0, 0, 1, 0}},
        // The value that the level read last stands in for one that cannot be read.
        MatchRow{"UnreadableKeepsTheValueOfTheLevel", "STD", "$\"A\"$", "5AB", true, {5, 0, 5}, {1, 1, 1}},
        MatchRow{"GroupStartsFromZero", "STD", "$\"A\"($)", "5AB", true, {5, 0, 0, 0, 0}, {1, 1, 0, 1, 0}},
        MatchRow{"AlternativeAtTheEndOfTheCode",
                 "STD",
                 "\"A\"(|$|\"\")",
                 "A",
                 true,
                 {0, 0, 0, 0, 0, 0, 0},
                 {1, 0, 0, 0, 0, 1, 0}}),
    Name);

INSTANTIATE_TEST_SUITE_P(
    Alternatives, MatchTest,
    testing::Values(
        MatchRow{
            "First", "STD", "\"M\"(|\"A\"|\"B\")%", "MA5", true, {0, 0, 0, 0, 0, 0, 0, 5}, {1, 0, 0, 1, 0, 0, 0, 1}},
        MatchRow{
            "Second", "STD", "\"M\"(|\"A\"|\"B\")%", "MB5", true, {0, 0, 0, 0, 0, 0, 0, 5}, {1, 0, 0, 0, 0, 1, 0, 1}},
        MatchRow{"None", "STD", "\"M\"(|\"A\"|\"B\")%", "M5", false},
        MatchRow{"CodeEndsBehindTheGroup", "STD", "\"M\"(|\"A\"|\"B\")%", "MA", false},
        MatchRow{"SecondAlone", "STD", "(|\"A\"|\"B\")", "B", true, {0, 0, 0, 0, 0, 0}, {0, 0, 0, 0, 1, 0}},
        MatchRow{"NeitherAlone", "STD", "(|\"A\"|\"B\")", "C", false},
        MatchRow{"WithoutTheFirstMarkTheFirstIsRequired",
                 "STD",
                 "(\"A\"|\"B\")",
                 "A",
                 true,
                 {0, 0, 0, 0, 0},
                 {0, 1, 0, 0, 0}},
        MatchRow{"WithoutTheFirstMarkTheSecondIsOutOfReach", "STD", "(\"A\"|\"B\")", "B", false},
        MatchRow{
            "OptionalLeftOut", "STD", "\"A\"(|\"B\"|\"\")", "A", true, {0, 0, 0, 0, 0, 0, 0}, {1, 0, 0, 0, 0, 1, 0}},
        MatchRow{
            "OptionalTaken", "STD", "\"A\"(|\"B\"|\"\")", "AB", true, {0, 0, 0, 0, 0, 0, 0}, {1, 0, 0, 1, 0, 0, 0}},
        MatchRow{"OptionalOther", "STD", "\"A\"(|\"B\"|\"\")", "AC", false},
        MatchRow{"ShorterFirstWinsAndIsNotTakenBack", "STD", "(|\"A\"|\"AB\")\"C\"", "ABC", false},
        MatchRow{
            "LongerFirst", "STD", "(|\"AB\"|\"A\")\"C\"", "ABC", true, {0, 0, 0, 0, 0, 0, 0}, {0, 0, 1, 0, 0, 0, 1}},
        MatchRow{"LongerFirstTakesTheShorter",
                 "STD",
                 "(|\"AB\"|\"A\")\"C\"",
                 "AC",
                 true,
                 {0, 0, 0, 0, 0, 0, 0},
                 {0, 0, 0, 0, 1, 0, 1}},
        MatchRow{"GroupAsAlternativeFailsAndIsCleared",
                 "STD",
                 "(|(\"A\"\"C\")|\"AD\")",
                 "AD",
                 true,
                 {0, 0, 0, 0, 0, 0, 0, 0, 0},
                 {0, 0, 0, 0, 0, 0, 0, 1, 0}},
        MatchRow{"GroupAsAlternativeMatches",
                 "STD",
                 "(|(\"A\"\"C\")|\"AD\")",
                 "AC",
                 true,
                 {0, 0, 0, 0, 0, 0, 0, 0, 0},
                 {0, 0, 0, 1, 1, 0, 0, 0, 0}},
        MatchRow{"EmptyLiteralFirstWinsOverAll", "STD", "\"A\"(|\"\"|\"B\")", "AB", false},
        MatchRow{"AlternativesWithoutAGroup", "STD", "|\"A\"|\"B\"", "B", true, {0, 0, 0, 0}, {0, 0, 0, 1}},
        // Without a group the end of the pattern ends the walk, matched or not.
        MatchRow{"AlternativesWithoutAGroupNoneMatches", "STD", "|\"A\"|\"B\"", "C", false},
        MatchRow{"UnknownInALaterAlternative", "STD", "(|\"A\"|x)", "A", true, {0, 0, 0, 0, 0, 0}, {0, 0, 1, 0, 0, 0}},
        MatchRow{"UnknownInAnEarlierAlternative", "STD", "(|x|\"A\")", "A", false}),
    Name);

INSTANTIATE_TEST_SUITE_P(
    Groups, MatchTest,
    testing::Values(
        MatchRow{"Sequence", "STD", "\"A\"(\"B\"\"C\")", "ABC", true, {0, 0, 0, 0, 0}, {1, 0, 1, 1, 0}},
        MatchRow{"SequenceCutShort", "STD", "\"A\"(\"B\"\"C\")", "AB", false},
        MatchRow{"SequenceLeftOut", "STD", "\"A\"(\"B\"\"C\")", "A", false},
        MatchRow{"EmptyGroup", "STD", "\"A\"()\"B\"", "AB", true, {0, 0, 0, 0}, {1, 0, 0, 1}},
        MatchRow{"EmptyGroupAtTheEnd", "STD", "\"A\"()", "A", true, {0, 0, 0}, {1, 0, 0}},
        MatchRow{"MissingNumberInAGroup", "STD", "\"A\"(%)\"B\"", "AB", true, {0, 0, 0, 0, 0}, {1, 0, 0, 0, 1}},
        MatchRow{"InnerGroupsAreNotAsked",
                 "STD",
                 "(\"A\"(%)\"B\")",
                 "AB",
                 true,
                 {0, 0, 0, 0, 0, 0, 0},
                 {0, 1, 0, 0, 0, 1, 0}},
        MatchRow{"EmptyLiteralCountsAsMatched", "STD", "(\"A\"\"\")", "A", true, {0, 0, 0, 0}, {0, 1, 1, 0}},
        MatchRow{"NestedGroups", "STD", "((\"A\"))", "A", true, {0, 0, 0, 0, 0}, {0, 0, 1, 0, 0}},
        MatchRow{"GroupWithoutItsEnd", "STD", "\"A\"(\"B\"", "AB", true, {0, 0, 0}, {1, 0, 1}},
        MatchRow{"GroupsWithoutTheirEnds", "STD", "(((\"A\"", "A", true, {0, 0, 0, 0}, {0, 0, 0, 1}},
        MatchRow{"StrayEndWithoutAMatch", "STD", ")\"A\"", "A", false},
        MatchRow{"StrayEndBehindAMatch", "STD", "\"A\")\"B\"", "AB", false},
        MatchRow{"StrayEndStopsTheWalk", "STD", "\"A\")\"B\"", "A", true, {0, 0, 0}, {1, 0, 0}},
        MatchRow{"Unknown", "STD", "\"A\"x", "A", false}, MatchRow{"UnknownAlone", "STD", "x", "x", false},
        MatchRow{"EmptyPattern", "STD", "", "A", false}, MatchRow{"EmptyPatternAndCode", "STD", "", "", false},
        MatchRow{"BlankPatternAndCode", "STD", " ", "A", false}),
    Name);

INSTANTIATE_TEST_SUITE_P(
    Literals, MatchTest,
    testing::Values(MatchRow{"Whole", "STD", "\"ABC\"", "ABC", true, {0}, {1}},
                    MatchRow{"PrefixOfTheCode", "STD", "\"AB\"", "ABC", false},
                    MatchRow{"LongerThanTheCode", "STD", "\"ABC\"", "AB", false},
                    MatchRow{"LowerCase", "STD", "\"a\"", "A", false},
                    MatchRow{"WithoutItsEnd", "STD", "\"AB", "AB", true, {0}, {1}},
                    MatchRow{"EmptyCode", "STD", "\"A\"", "", false},
                    MatchRow{"EmptyLiteralOnTheEmptyCode", "STD", "\"\"", "", true, {0}, {1}},
                    MatchRow{"BlankInTheLiteral", "STD", "\"A B\"", "A B", true, {0}, {1}},
                    MatchRow{"BlankBetweenTokens", "STD", "\"A\" %", "A5", true, {0, 5}, {1, 1}},
                    MatchRow{"PlusHasNoMeaning", "STD", "\"A\"\"+\"\"B\"", "A+B", true, {0, 0, 0}, {1, 1, 1}}),
    Name);

// In "SAM" a code is a chain of parts joined by "+", and a literal stands for one whole part.
INSTANTIATE_TEST_SUITE_P(
    ChainsOfSam, MatchTest,
    testing::Values(
        MatchRow{"SecondAlternative",
                 "SAM",
                 "\"X\"(|\"Y\"|\"Z\")",
                 "X+Z",
                 true,
                 {0, 0, 0, 0, 0, 0, 0},
                 {1, 0, 0, 0, 0, 1, 0}},
        MatchRow{
            "PlusAtTheEnd", "SAM", "\"X\"(|\"Y\"|\"Z\")", "X+Z+", true, {0, 0, 0, 0, 0, 0, 0}, {1, 0, 0, 0, 0, 1, 0}},
        MatchRow{"WithoutPlus", "SAM", "\"X\"(|\"Y\"|\"Z\")", "XZ", false},
        MatchRow{"WholeParts", "SAM", "\"ABC\"\"D\"", "ABC+D", true, {0, 0}, {1, 1}},
        MatchRow{"PartIsShorter", "SAM", "\"ABC\"\"D\"", "AB+D", false},
        MatchRow{"PartIsLonger", "SAM", "\"AB\"\"D\"", "ABC+D", false},
        MatchRow{"NumberAsAPart", "SAM", "\"A\"%", "A+1", true, {0, 1}, {1, 1}},
        MatchRow{"NumberDoesNotStepOverThePlus", "SAM", "\"A\"%\"B\"", "A+1+B", false},
        MatchRow{"NumberBeforeTheEnd", "SAM", "\"A\"%", "A+1+", false},
        MatchRow{"TwoPlusSigns", "SAM", "\"A\"\"B\"", "A++B", false},
        MatchRow{"OnlyThisSystem", "STD", "\"X\"\"Z\"", "X+Z", false},
        MatchRow{"SystemIsComparedExactly", "sam", "\"X\"\"Z\"", "X+Z", false}),
    Name);

// ------------------------------------------------------------------------------------------------- One level by itself

class OneLevelTest : public support::ServiceTest {
 protected:
  VEXSTMDataCardCodeScan* Compile(const std::string& pattern) {
    VEXSTMDataCardCodeScan* scans = nullptr;
    _Services.CreateCodeScanPattern(Unicode(pattern), scans);
    _Owned.reset(scans);
    return scans;
  }

  VEXSTMTimeAnalysisDlgServices _Services;
  std::unique_ptr<VEXSTMDataCardCodeScan[]> _Owned;
};

TEST_F(OneLevelTest, ConsumedIsAddedTo) {
  VEXSTMDataCardCodeScan* tokens = Compile("\"AB\"%");
  int consumed = 10;
  EXPECT_EQ(_Services.GetDataCardCodeScan("AB12REST", tokens, consumed), tokens + 2);
  EXPECT_EQ(consumed, 14);
  EXPECT_EQ(tokens[0]._Matched, 1);
  EXPECT_EQ(tokens[1]._Matched, 1);
  EXPECT_EQ(tokens[1]._IntValue, 12);
  EXPECT_EQ(Text(tokens[1]._Text), "12");
}

TEST_F(OneLevelTest, PrintedNumberIsTheTextOfTheToken) {
  VEXSTMDataCardCodeScan* tokens = Compile("$");
  int consumed = 0;
  EXPECT_EQ(_Services.GetDataCardCodeScan("1.50", tokens, consumed), tokens + 1);
  EXPECT_EQ(consumed, 3);
  EXPECT_EQ(tokens[0]._RealValue, 1.5);
  EXPECT_EQ(Text(tokens[0]._Text), "1.5");
}

TEST_F(OneLevelTest, FailureClearsTheMarks) {
  VEXSTMDataCardCodeScan* tokens = Compile("\"A\"\"B\"\"C\"");
  tokens[2]._Matched = 1;
  int consumed = 10;
  EXPECT_EQ(_Services.GetDataCardCodeScan("ABX", tokens, consumed), nullptr);
  EXPECT_EQ(consumed, 12) << "what matched ahead of the failure stays counted";
  for (int token = 0; token < 3; ++token) EXPECT_EQ(tokens[token]._Matched, 0) << token;
}

TEST_F(OneLevelTest, GroupThatFailsLeavesTheMarksOfItsOuterLevel) {
  VEXSTMDataCardCodeScan* tokens = Compile("\"A\"(\"B\"\"C\")");
  int consumed = 0;
  EXPECT_EQ(_Services.GetDataCardCodeScan("ABX", tokens, consumed), nullptr);
  EXPECT_EQ(tokens[0]._Matched, 1);
  EXPECT_EQ(tokens[2]._Matched, 0);
  EXPECT_EQ(tokens[3]._Matched, 0);
}

TEST_F(OneLevelTest, InsideOfAGroupStopsAtItsEnd) {
  VEXSTMDataCardCodeScan* tokens = Compile("(\"A\"\"B\")\"C\"");
  int consumed = 0;
  EXPECT_EQ(_Services.GetDataCardCodeScan("ABC", tokens + 1, consumed), tokens + 3);
  EXPECT_EQ(consumed, 2);
}

TEST_F(OneLevelTest, AlternativesStopAtTheEndOfTheirGroup) {
  VEXSTMDataCardCodeScan* tokens = Compile("(|\"A\"|\"B\")\"C\"");
  int consumed = 0;
  EXPECT_EQ(_Services.GetDataCardCodeScan("AC", tokens + 1, consumed), tokens + 5);
  EXPECT_EQ(consumed, 1);
}

TEST_F(OneLevelTest, AlternativesWithoutAGroupStopInFrontOfTheEnd) {
  VEXSTMDataCardCodeScan* tokens = Compile("|\"A\"|\"B\"");
  int consumed = 0;
  EXPECT_EQ(_Services.GetDataCardCodeScan("A", tokens, consumed), tokens + 3);
  EXPECT_EQ(tokens[3]._Type, 6);
}

TEST_F(OneLevelTest, EndTokenAloneIsReturned) {
  VEXSTMDataCardCodeScan* tokens = Compile("");
  int consumed = 3;
  EXPECT_EQ(_Services.GetDataCardCodeScan("A", tokens, consumed), tokens);
  EXPECT_EQ(consumed, 3);
}

TEST_F(OneLevelTest, NullTokensAreRefused) {
  int consumed = 3;
  EXPECT_EQ(_Services.GetDataCardCodeScan("A", nullptr, consumed), nullptr);
  EXPECT_EQ(consumed, 3);
}

TEST_F(OneLevelTest, NullCodeCountsAsEmpty) {
  VEXSTMDataCardCodeScan* tokens = Compile("\"A\"");
  int consumed = 3;
  EXPECT_EQ(_Services.GetDataCardCodeScan(nullptr, tokens, consumed), nullptr);
  tokens = Compile("\"\"");
  EXPECT_EQ(_Services.GetDataCardCodeScan(nullptr, tokens, consumed), tokens + 1);
  EXPECT_EQ(consumed, 3);
}

// A printed number may be longer than the typed one; the code then counts as ended.
TEST_F(OneLevelTest, PrintedFormBeyondTheEndOfTheCode) {
  VEXSTMDataCardCodeScan* tokens = Compile("$");
  int consumed = 0;
  EXPECT_EQ(_Services.GetDataCardCodeScan(".5", tokens, consumed), tokens + 1);
  EXPECT_EQ(consumed, 3);
  tokens = Compile("$\"A\"");
  EXPECT_EQ(_Services.GetDataCardCodeScan(".5", tokens, consumed), nullptr);
  tokens = Compile("$%$");
  EXPECT_EQ(_Services.GetDataCardCodeScan(".5", tokens, consumed), nullptr);
  tokens = Compile("$\"\"");
  EXPECT_EQ(_Services.GetDataCardCodeScan(".5", tokens, consumed), tokens + 2);
}

// Tokens that a caller fills by hand are as good as compiled ones.
TEST_F(OneLevelTest, TokensMadeByHand) {
  VEXSTMDataCardCodeScan tokens[3];
  tokens[0]._Type = 6;
  tokens[0]._Text = "A";
  tokens[1]._Type = 4;
  tokens[1]._Min = 2;
  tokens[1]._Max = 3;
  tokens[2]._Type = 7;
  int consumed = 0;
  EXPECT_EQ(_Services.GetDataCardCodeScan("A3", tokens, consumed), tokens + 2);
  EXPECT_EQ(consumed, 2);
  EXPECT_EQ(tokens[1]._IntValue, 3);
}

}  // namespace
