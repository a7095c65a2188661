// The time and the texts of a typed code, looked up in the entry table of a system.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/CardTable.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::Card;
using support::DataCardFile;
using support::Patterned;
using support::Plain;
using support::Ranged;
using support::TableOf;
using support::Text;
using support::Unicode;

// What a lookup writes, from arguments that held "before".
struct Found {
  KORUnicodeString code;
  KORUnicodeString time = "before", description = "before", time_type = "before", frequency = "before";
};

Found LookUp(VEXSTMTimeAnalysisDlgServices& services, const std::string& code) {
  Found found{.code = Unicode(code)};
  services.GetTimeToCode(found.code, found.time, found.description, found.time_type, found.frequency);
  return found;
}

// ---------------------------------------------------------------------------------------------------- Time of a code

struct TimeRow {
  const char* name;
  const char* system;
  std::vector<Card> table;
  std::string code;
  std::string time;
  std::string id;  // identifier of the entry found; empty: none
};

class TimeToCodeTest : public support::ServiceRowTest<TimeRow> {};

TEST_P(TimeToCodeTest, GivesTimeAndTextsOfTheLastMatch) {
  const TimeRow& row = GetParam();
  VEXSTMTimeAnalysisDlgServices services;
  Load(services, row.system, TableOf(row.table));
  const Found found = LookUp(services, row.code);
  EXPECT_EQ(Text(found.time), row.time);
  EXPECT_EQ(Text(services.GetTACodeID()), row.id);
  const bool is_found = !row.id.empty();
  EXPECT_EQ(Text(found.description), is_found ? "text of " + row.id : "before");
  EXPECT_EQ(Text(found.time_type), is_found ? "type of " + row.id : "before");
  EXPECT_EQ(Text(found.frequency), is_found ? "frequency of " + row.id : "before");
  EXPECT_EQ(Text(services.GetLocalDescription()), is_found ? "local text of " + row.id : "");
  EXPECT_EQ(Text(services.GetValueAdded()), is_found ? "value of " + row.id : "");
  const int index = services.GetCodeIndex();
  ASSERT_EQ(index != -1, is_found);
  if (is_found) {
    EXPECT_EQ(row.table[static_cast<std::size_t>(index)].id, row.id);
  }
}

const auto Name = [](const testing::TestParamInfo<TimeRow>& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(
    ExactCodes, TimeToCodeTest,
    testing::Values(TimeRow{"Found", "STD", {Plain("1", "GA", "3")}, "GA", "3", "1"},
                    TimeRow{"LowerCaseAndBlanks", "STD", {Plain("1", "GA", "3")}, " g a ", "3", "1"},
                    TimeRow{"NotFound", "STD", {Plain("1", "GA", "3")}, "GB", "0", ""},
                    TimeRow{"PrefixOfTheCode", "STD", {Plain("1", "GA", "3")}, "G", "0", ""},
                    TimeRow{"LongerThanTheCode", "STD", {Plain("1", "GA", "3")}, "GAX", "0", ""},
                    TimeRow{"LastOfTwo", "STD", {Plain("1", "GA", "3"), Plain("2", "GA", "4")}, "GA", "4", "2"},
                    TimeRow{"CodeWithABlankIsNeverFound", "STD", {Plain("1", "G A", "3")}, "G A", "0", ""},
                    TimeRow{"CodeInLowerCaseIsNeverFound", "STD", {Plain("1", "ga", "3")}, "ga", "0", ""},
                    TimeRow{"FormulaIsEvaluated", "STD", {Plain("1", "GA", "2*(1+0.5)")}, "GA", "3", "1"},
                    TimeRow{"SixSignificantDigits", "STD", {Plain("1", "GA", "1234567")}, "GA", "1.23457e+06", "1"},
                    TimeRow{"NoTime", "STD", {Plain("1", "GA", "")}, "GA", "0", "1"},
                    TimeRow{"FormulaZero", "STD", {Plain("1", "GA", "0")}, "GA", "0.0", "1"},
                    TimeRow{"FormulaZeroWithFraction", "STD", {Plain("1", "GA", "0.0")}, "GA", "0", "1"},
                    TimeRow{"FormulaThatFails", "STD", {Plain("1", "GA", "2*")}, "GA", "0", "1"},
                    TimeRow{"ReferenceWithoutPatternDisappears", "STD", {Plain("1", "GA", "4$1$")}, "GA", "4", "1"},
                    TimeRow{"BlanksAlone", "STD", {{.id = "1", .code = "A", .time = "1"}}, "  ", "0", ""},
                    TimeRow{"OptionWithoutPatternDoesNotCount",
                            "STD",
                            {{.id = "1", .code = "GA", .time = "3", .option_position = "1", .option_time = "+5"}},
                            "GA",
                            "3",
                            "1"}),
    Name);

// A short code of a move with a case letter is looked up with 1 behind it.
INSTANTIATE_TEST_SUITE_P(
    ShortMoves, TimeToCodeTest,
    testing::Values(
        TimeRow{"CaseA", "MTM1", {Plain("1", "M5A1", "2")}, "m 5 a", "2", "1"},
        TimeRow{"CaseB", "MTM1", {Plain("1", "M5B1", "2")}, "M5B", "2", "1"},
        TimeRow{"CaseC", "MTM1", {Plain("1", "M10C1", "2")}, "M10C", "2", "1"},
        TimeRow{"CaseD", "MTM1", {Plain("1", "M5D1", "2")}, "M5D", "0", ""},
        TimeRow{"FiveCharacters", "MTM1", {Plain("1", "M100A1", "2"), Plain("2", "M100A", "3")}, "M100A", "3", "2"},
        TimeRow{"BlanksDoNotCount", "MTM1", {Plain("1", "M10A1", "2")}, "M 1 0 A", "2", "1"},
        TimeRow{"CharactersCountNotBytes", "MTM1", {Plain("1", "MÄÖA1", "2")}, "MÄÖA", "2", "1"},
        TimeRow{"WithoutTheOne", "MTM1", {Plain("1", "M5A", "2")}, "M5A", "0", ""},
        TimeRow{"LettersAlone", "STD", {Plain("1", "MA1", "2")}, "MA", "2", "1"},
        TimeRow{"OtherFirstLetter", "MTM1", {Plain("1", "R5A1", "2")}, "R5A", "0", ""}),
    Name);

INSTANTIATE_TEST_SUITE_P(
    NumbersBehindTheCode, TimeToCodeTest,
    testing::Values(
        TimeRow{"Inside", "STD", {Ranged("1", "X", "2*$1$", "1", "10")}, "X5", "10", "1"},
        TimeRow{"OnTheLowerBound", "STD", {Ranged("1", "X", "2*$1$", "1", "10")}, "X1", "0", ""},
        TimeRow{"OnTheUpperBound", "STD", {Ranged("1", "X", "2*$1$", "1", "10")}, "X10", "0", ""},
        TimeRow{"Zero", "STD", {Ranged("1", "X", "2*$1$", "-1", "10")}, "X0", "0", ""},
        TimeRow{"Negative", "STD", {Ranged("1", "X", "10+$1$", "-5", "10")}, "X-2", "0", "1"},
        TimeRow{"Fraction", "STD", {Ranged("1", "X", "2*$1$", "1", "10")}, "X2.5", "5", "1"},
        TimeRow{"NumberAsTyped", "STD", {Ranged("1", "X", "2*$1$", "1", "10")}, "X05", "10", "1"},
        TimeRow{
            "TextBehindTheNumberGoesIntoTheFormula", "STD", {Ranged("1", "X", "2*$1$", "1", "10")}, "X5Y", "0", "1"},
        TimeRow{"TextBehindTheNumberMayBeAFormula", "STD", {Ranged("1", "X", "2*$1$", "1", "10")}, "X5+1", "11", "1"},
        TimeRow{"NoNumber", "STD", {Ranged("1", "X", "2*$1$", "1", "10")}, "XY", "0", ""},
        TimeRow{"EqualBoundsTakeTheTimeAsItStands", "STD", {Ranged("1", "X", "3", "7", "7")}, "X7", "3", "1"},
        TimeRow{"EqualBoundsReplaceNothing", "STD", {Ranged("1", "X", "3$1$", "7", "7")}, "X7", "3", "1"},
        TimeRow{"EqualBoundsOtherNumber", "STD", {Ranged("1", "X", "3", "7", "7")}, "X8", "0", ""},
        TimeRow{"NoBounds", "STD", {Plain("1", "X", "2*$1$")}, "X5", "0", ""},
        TimeRow{"UnreadableBoundsAreZero", "STD", {Ranged("1", "X", "2*$1$", "x", "10")}, "X5", "10", "1"},
        TimeRow{"BoundsAreCut", "STD", {Ranged("1", "X", "2*$1$", "1.9", "10.9")}, "X1.5", "3", "1"},
        TimeRow{"FirstPairOnlyIsReplaced", "STD", {Ranged("1", "X", "$1$+1$9$", "1", "10")}, "X5", "6", "1"},
        TimeRow{"WhatStandsInThePairDoesNotCount", "STD", {Ranged("1", "X", "1+$abc$", "1", "10")}, "X5", "6", "1"},
        TimeRow{"WithoutAPair", "STD", {Ranged("1", "X", "4", "1", "10")}, "X5", "4", "1"},
        TimeRow{"WithoutASecondSign", "STD", {Ranged("1", "X", "4$1", "1", "10")}, "X5", "4", "1"},
        TimeRow{"AlsoAfterAnExactMatch",
                "STD",
                {Plain("1", "X5", "1"), Ranged("2", "X", "2*$1$", "1", "10")},
                "X5",
                "10",
                "2"},
        TimeRow{"LaterExactMatchOverwrites",
                "STD",
                {Ranged("1", "X", "2*$1$", "1", "10"), Plain("2", "X5", "1")},
                "X5",
                "1",
                "2"},
        TimeRow{"LongerAndShorterCode",
                "STD",
                {Ranged("1", "X", "2*$1$", "1", "100"), Ranged("2", "X1", "3*$1$", "1", "10")},
                "X12",
                "6",
                "2"},
        TimeRow{"EmptyCodeElementLosesItsBounds", "STD", {Ranged("1", "", "", "1", "10")}, "5", "0", ""},
        TimeRow{"AlsoWithAPatternThatDoesNotMatch",
                "STD",
                {{.id = "1", .code = "X", .time = "2*$1$", .start = "1", .end = "10", .pattern = "\"Y\""}},
                "X5",
                "10",
                "1"},
        TimeRow{"InsteadOfTheTimeByPattern",
                "STD",
                {{.id = "1", .code = "X", .time = "2*$1$", .start = "1", .end = "10", .pattern = "\"X\"%"}},
                "X05",
                "10",
                "1"},
        TimeRow{"HexadecimalNumber", "STD", {Ranged("1", "X", "$1$", "1", "100")}, "X0X10", "16", "1"},
        TimeRow{"Exponent", "STD", {Ranged("1", "X", "4", "1", "100")}, "X1E1", "4", "1"},
        TimeRow{"Infinity", "STD", {Ranged("1", "X", "4", "1", "100")}, "XINF", "0", ""},
        TimeRow{"NoNumberAtAll", "STD", {Ranged("1", "X", "4", "1", "100")}, "XNAN", "0", ""},
        TimeRow{"SequenceInModapts", "MODAPTS", {Ranged("1", "M4G", "2*$1$", "0", "10")}, "M4G1", "0", ""},
        TimeRow{"SequenceInModaptsByPattern", "MODAPTS", {Patterned("2", "\"M\"%\"G\"%", "$1$+$3$")}, "M4G1", "5", "2"},
        TimeRow{"SequenceInModaptsByCode", "MODAPTS", {Plain("2", "M4G1", "5")}, "m4 g1", "5", "2"},
        TimeRow{"SequenceElsewhere", "STD", {Ranged("1", "M4G", "2*$1$", "0", "10")}, "M4G1", "2", "1"},
        TimeRow{"SingleCodeInModapts", "MODAPTS", {Ranged("2", "M", "$1$", "0", "10")}, "M4", "4", "2"}),
    Name);

INSTANTIATE_TEST_SUITE_P(
    Patterns, TimeToCodeTest,
    testing::Values(
        TimeRow{"NumberGoesIntoTheFormula", "STD", {Patterned("1", "\"GR\"%", "2*$1$")}, "GR5", "10", "1"},
        TimeRow{"RealNumber", "STD", {Patterned("1", "\"GR\"$", "2*$1$")}, "GR1.5", "3", "1"},
        TimeRow{"NoMatch", "STD", {Patterned("1", "\"GR\"%", "2*$1$")}, "GRX", "0", ""},
        TimeRow{"CodeOfAnEntryWithPatternIsNoMatch",
                "STD",
                {{.id = "1", .code = "GR", .time = "3", .pattern = "\"GR\"%"}},
                "GR",
                "0",
                ""},
        TimeRow{"OptionPositionDidNotTakePart", "STD", {Patterned("1", "%\"A\"", "7")}, "A", "0", ""},
        TimeRow{"OptionPositionTookPart", "STD", {Patterned("1", "%\"A\"", "7", "1")}, "A", "7", "1"},
        TimeRow{"OptionPositionBeyondThePattern", "STD", {Patterned("1", "\"A\"", "7", "1")}, "A", "0", ""},
        TimeRow{"OptionPositionFarBeyond", "STD", {Patterned("1", "\"A\"", "7", "2000000")}, "A", "0", ""},
        TimeRow{"OptionPositionBelowZero", "STD", {Patterned("1", "\"A\"", "7", "-1")}, "A", "0", ""},
        TimeRow{"OptionTimeIsAppended", "STD", {Patterned("1", "\"A\"(|\"B\"|\"\")", "7", "3", "+2")}, "AB", "9", "1"},
        TimeRow{"OptionLeftOutIsNoMatch", "STD", {Patterned("1", "\"A\"(|\"B\"|\"\")", "7", "3", "+2")}, "A", "0", ""},
        TimeRow{
            "OptionTimesOfSeveralEntriesAddUp",
            "STD",
            {Patterned("1", "\"A\"\"B\"\"C\"", "100", "1", "+1"), Patterned("2", "\"A\"\"B\"\"C\"", "200", "2", "+2"),
             Patterned("3", "\"A\"\"B\"\"C\"", "300", "0", "")},
            "ABC",
            "302",
            "3"},
        TimeRow{"OptionAtPositionZeroIsStoredAtOne",
                "STD",
                {Patterned("1", "\"A\"\"B\"", "100", "0", "+1"), Patterned("2", "\"A\"\"B\"", "200", "1", "+2")},
                "AB",
                "202",
                "2"},
        TimeRow{"OptionsGoInTheOrderOfTheirPositions",
                "STD",
                {Patterned("1", "\"A\"\"B\"\"C\"", "2", "2", "*10"), Patterned("2", "\"A\"\"B\"\"C\"", "3", "1", "+4")},
                "ABC",
                "43",
                "2"},
        TimeRow{"LaterOptionAtTheSamePositionOverwrites",
                "STD",
                {Patterned("1", "\"A\"\"B\"", "1", "1", "+1"), Patterned("2", "\"A\"\"B\"", "2", "1", "+5")},
                "AB",
                "7",
                "2"},
        TimeRow{"ListKeepsTheSizeOfTheFirstMatch",
                "STD",
                {Patterned("1", "\"AB\"", "1", "0", "+1"), Patterned("2", "\"A\"\"\"\"B\"", "2", "2", "+5")},
                "AB",
                "3",
                "2"},
        TimeRow{"OptionAtTheSizeOfTheListIsStored",
                "STD",
                {Patterned("1", "\"A\"\"B\"", "1", "0", "+1"), Patterned("2", "\"A\"\"\"\"B\"", "2", "2", "+5")},
                "AB",
                "8",
                "2"},
        TimeRow{"OptionTimesAreAppendedToAnExactMatchToo",
                "STD",
                {Patterned("1", "\"A\"\"B\"", "1", "1", "+1"), Plain("2", "AB", "20")},
                "AB",
                "21",
                "2"},
        TimeRow{"ReferencesGoToTheLastScanThatMatched",
                "STD",
                {Patterned("1", "\"A\"%", "$1$", "0"), Patterned("2", "%\"A5\"", "9", "0")},
                "A5",
                "0.0",
                "1"},
        TimeRow{"ScanThatMatchedWithoutItsOptionStillCounts",
                "STD",
                {Patterned("1", "\"A\"%", "1+$1$", "0"), Patterned("2", "%\"A5\"", "9", "0")},
                "A5",
                "1",
                "1"},
        TimeRow{"ScanThatDidNotMatchDoesNotCount",
                "STD",
                {Patterned("1", "\"A\"%", "1+$1$", "0"), Patterned("2", "%\"B5\"", "9", "0")},
                "A5",
                "6",
                "1"},
        TimeRow{"ReferenceBeyondTheLastScanDisappears",
                "STD",
                {Patterned("1", "\"A\"\"\"%", "1+$2$", "0"), Patterned("2", "\"A5\"", "9", "1")},
                "A5",
                "0",
                "1"},
        TimeRow{"ReferenceToALiteralIsZero", "STD", {Patterned("1", "\"A\"%", "4+$0$", "0")}, "A5", "4", "1"},
        TimeRow{"ReferenceThatDidNotTakePartDisappears",
                "STD",
                {Patterned("1", "\"A\"%[1,3]\"5\"", "4$1$", "0")},
                "A5",
                "4",
                "1"}),
    Name);

INSTANTIATE_TEST_SUITE_P(
    SystemFactors, TimeToCodeTest,
    testing::Values(TimeRow{"Rwf", "RWF", {Plain("1", "A", "3")}, "A", "5.0001", "1"},
                    TimeRow{"Sam", "SAM", {Plain("1", "A", "2")}, "A", "10", "1"},
                    TimeRow{"ModaptsIdentifierOne", "MODAPTS", {Plain("1", "A", "4")}, "A", "1.43333", "1"},
                    TimeRow{"ModaptsOtherIdentifier", "MODAPTS", {Plain("2", "A", "4")}, "A", "4", "2"},
                    TimeRow{"ModaptsIdentifierWithZero", "MODAPTS", {Plain("01", "A", "4")}, "A", "4", "01"},
                    TimeRow{"Standard", "STD", {Plain("1", "A", "4")}, "A", "4", "1"},
                    TimeRow{"Most", "MOST", {Plain("1", "A", "4")}, "A", "4", "1"},
                    TimeRow{"SamFormulaZero", "SAM", {Plain("1", "A", "0")}, "A", "0.0", "1"},
                    TimeRow{"SamFormulaZeroBehindAReference", "SAM", {Plain("1", "A", "0$9$")}, "A", "0.0", "1"},
                    TimeRow{"SamUnknownCode", "SAM", {Plain("1", "A", "2")}, "B", "0", ""},
                    TimeRow{"SamNameInLowerCase", "sam", {Plain("1", "A", "2")}, "A", "2", "1"}),
    Name);

// A formula that begins with a letter is a call; its commas become "_", which no locale reads as a decimal character.
INSTANTIATE_TEST_SUITE_P(
    Calls, TimeToCodeTest,
    testing::Values(TimeRow{"CallWithCommas", "STD", {Plain("1", "A", "pow(2,3)")}, "A", "8", "1"},
                    TimeRow{"CallWithUnderscores", "STD", {Plain("1", "A", "pow(2_3)")}, "A", "8", "1"},
                    TimeRow{"BracketAhead", "STD", {Plain("1", "A", "(pow(2,3))")}, "A", "8", "1"}),
    Name);

class CodeTimeTest : public support::ServiceTest {
 protected:
  VEXSTMTimeAnalysisDlgServices _Services;
};

TEST_F(CodeTimeTest, CodeComesBackInUpperCaseWithItsBlanks) {
  Load(_Services, "MTM1", TableOf({Plain("1", "M5A1", "2")}));
  EXPECT_EQ(Text(LookUp(_Services, "m 5 a").code), "M 5 A");
  EXPECT_EQ(Text(LookUp(_Services, "unknown").code), "UNKNOWN");
}

TEST_F(CodeTimeTest, EmptyCodeWritesNothing) {
  Load(_Services, "STD", TableOf({Plain("1", "A", "2")}));
  LookUp(_Services, "A");
  EXPECT_EQ(_Services.GetCodeIndex(), 0);
  const Found found = LookUp(_Services, "");
  for (const KORUnicodeString& text : {found.time, found.description, found.time_type, found.frequency}) {
    EXPECT_EQ(Text(text), "before");
  }
  EXPECT_EQ(_Services.GetCodeIndex(), -1);
  EXPECT_EQ(Text(_Services.GetTACodeID()), "1");
  EXPECT_EQ(Text(_Services.GetLocalDescription()), "local text of 1");
  EXPECT_EQ(Text(_Services.GetValueAdded()), "value of 1");
}

TEST_F(CodeTimeTest, UnknownCodeKeepsWhatTheLastMatchLeft) {
  Load(_Services, "STD", TableOf({Plain("1", "A", "2"), Plain("2", "B", "3")}));
  LookUp(_Services, "B");
  const Found found = LookUp(_Services, "C");
  EXPECT_EQ(Text(found.time), "0");
  EXPECT_EQ(Text(found.description), "before");
  EXPECT_EQ(_Services.GetCodeIndex(), 1);
  EXPECT_EQ(Text(_Services.GetTACodeID()), "");
  EXPECT_EQ(Text(_Services.GetLocalDescription()), "local text of 2");
  EXPECT_EQ(Text(_Services.GetValueAdded()), "value of 2");
}

TEST_F(CodeTimeTest, WithoutATableTheTimeIsZero) {
  support::Select(_Services, "SAM");
  const Found found = LookUp(_Services, "a");
  EXPECT_EQ(Text(found.code), "A");
  EXPECT_EQ(Text(found.time), "0");
  EXPECT_EQ(Text(found.description), "before");
  EXPECT_EQ(_Services.GetCodeIndex(), -1);
  long option = 3;
  _Services.GetOptionID("A", option);
  EXPECT_EQ(option, 3);
}

TEST_F(CodeTimeTest, TableWithoutEntriesIsLikeNone) {
  Load(_Services, "STD", DataCardFile(""));
  EXPECT_EQ(Text(LookUp(_Services, "A").time), "0");
  EXPECT_EQ(_Services.GetCodeIndex(), -1);
}

// A pattern needs both its elements; with the first alone the entry has none, and nothing behind it is read.
TEST_F(CodeTimeTest, HalfAPatternLeavesTheCode) {
  Load(_Services, "STD",
       DataCardFile(support::EntryElement(
           {{"CODE_ID", "7"}, {"CODE", "GA"}, {"TIME", "4"}, {"PATTERN", "\"Y\"%"}, {"TEXT", "lost"}})));
  const Found found = LookUp(_Services, "ga");
  EXPECT_EQ(Text(found.time), "4");
  EXPECT_EQ(Text(found.description), "");
  EXPECT_EQ(Text(_Services.GetTACodeID()), "7");
  EXPECT_EQ(Text(LookUp(_Services, "Y5").time), "0");
  EXPECT_EQ(Text(_Services.GetTACodeID()), "");
}

// A code of blanks has nothing left to compare, so that a record without code is what it finds.
TEST_F(CodeTimeTest, CodeOfBlanksFindsARecordWithoutCode) {
  Load(_Services, "STD",
       DataCardFile("<DATACARDENTRY/><DATACARDENTRY><CODE_ID>7</CODE_ID><TIME>4</TIME></DATACARDENTRY>"));
  const Found found = LookUp(_Services, "  ");
  EXPECT_EQ(Text(found.time), "4");
  EXPECT_EQ(Text(found.description), "");
  EXPECT_EQ(_Services.GetCodeIndex(), 1);
  EXPECT_EQ(Text(_Services.GetTACodeID()), "7");
}

TEST_F(CodeTimeTest, RecordWithoutCodeReadsTheWholeCodeAsNumber) {
  Load(_Services, "STD",
       DataCardFile("<DATACARDENTRY><CODE_ID>7</CODE_ID><TIME>2*$1$</TIME><PAR_1_START>1</PAR_1_START>"
                    "<PAR_1_END>10</PAR_1_END></DATACARDENTRY>"));
  EXPECT_EQ(Text(LookUp(_Services, "5").time), "10");
  EXPECT_EQ(_Services.GetCodeIndex(), 0);
  EXPECT_EQ(Text(LookUp(_Services, "X").time), "0");
}

TEST_F(CodeTimeTest, SystemMayChangeBetweenLookups) {
  Load(_Services, "STD", TableOf({Plain("1", "A", "2"), Patterned("2", "\"X\"\"Y\"", "3")}));
  EXPECT_EQ(Text(LookUp(_Services, "A").time), "2");
  EXPECT_EQ(Text(LookUp(_Services, "XY").time), "3");
  support::Select(_Services, "SAM");
  EXPECT_EQ(Text(LookUp(_Services, "A").time), "10");
  EXPECT_EQ(Text(LookUp(_Services, "XY").time), "0");
  EXPECT_EQ(Text(LookUp(_Services, "X+Y").time), "15");
}

TEST_F(CodeTimeTest, CopiesLookUpOnTheirOwn) {
  auto original = std::make_unique<VEXSTMTimeAnalysisDlgServices>();
  Load(*original, "STD", TableOf({Plain("1", "A", "2"), Plain("2", "B", "3")}));
  LookUp(*original, "B");
  VEXSTMTimeAnalysisDlgServices copy(*original);
  EXPECT_EQ(copy.GetCodeIndex(), 1);
  EXPECT_EQ(Text(copy.GetTACodeID()), "2");
  LookUp(copy, "A");
  EXPECT_EQ(original->GetCodeIndex(), 1);
  original.reset();
  EXPECT_EQ(Text(LookUp(copy, "B").time), "3");
}

TEST_F(CodeTimeTest, OddCodesEndQuickly) {
  Load(_Services, "STD",
       TableOf({Patterned("1", "\"A\"%", "$1$"), Ranged("2", "X", "2*$1$", "1", "10"), Plain("3", "B", "1"),
                Patterned("4", "$", "1")}));
  EXPECT_EQ(Text(LookUp(_Services, std::string(100000, 'a')).time), "0");
  EXPECT_EQ(Text(LookUp(_Services, "X" + std::string(100000, '9')).time), "0");
  EXPECT_EQ(Text(LookUp(_Services, std::string(100000, ' ') + "B").time), "1");
  EXPECT_EQ(Text(LookUp(_Services, "\xFF\xFE").time), "0");
  EXPECT_EQ(Text(LookUp(_Services, "\xC3\xA4").code), "\xC3\x84");
}

}  // namespace
