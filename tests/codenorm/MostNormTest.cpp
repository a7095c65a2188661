// MOST sequences: code form to norm format and back, the test for a sequence, and the process-time codes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/DataCardText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::ListOf;
using support::Text;
using support::Texts;
using support::Unicode;

// ------------------------------------------------------------------------------------------- Code form to norm format

struct ToNormRow {
  const char* name;
  const char* code;
  const char* frequency;
  const char* norm;
};

class ToNormTest : public support::ServiceRowTest<ToNormRow> {};

TEST_P(ToNormTest, BracketsTheParametersOfTheLineFrequency) {
  VEXSTMTimeAnalysisDlgServices services;
  EXPECT_EQ(Text(services.ConvertToMOSTNormFormatService(GetParam().code, GetParam().frequency)), GetParam().norm);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, ToNormTest,
    testing::Values(ToNormRow{"GeneralMove", "A1-1 B0-1 G1-1 A1-3 B0-3 P3-3 A0-1", "3", "A1B0G1(A1B0P3)A0"},
                    ToNormRow{"WholeSequence", "A1-3 B0-3", "3", "(A1B0)"},
                    ToNormRow{"WholeSequenceOfFrequencyOne", "A1-1 B0-1", "1", "A1B0"},
                    ToNormRow{"TwoRuns", "A1-3 B0-1 G1-3", "3", "(A1)B0(G1)"},
                    ToNormRow{"TwoRunsOfFrequencyOneLoseOneOfEach", "A1-1 B0-3 G1-1", "1", "A1B0(G1)"},
                    ToNormRow{"OneRunAtTheHeadOfFrequencyOne", "A1-1 B0-3", "1", "(A1)B0"},
                    ToNormRow{"OneRunAtTheEndOfFrequencyOne", "A1-3 B0-1", "1", "A1(B0)"},
                    ToNormRow{"EmptyFrequencyIsZero", "A1-1 B0-1", "", "A1B0"},
                    ToNormRow{"EmptyFrequencyMatchesZero", "A1-0 B0-1", "", "(A1)B0"},
                    ToNormRow{"ThreeRunsOfFrequencyOne", "A1-1 B0-3 G1-1 A1-3 P3-1", "1", "A1B0(G1)A1(P3)"},
                    ToNormRow{"Fraction", "A1-2.5 B0-1", "2.5", "(A1)B0"},
                    ToNormRow{"FractionWrittenOtherwise", "A1-2.50 B0-1", "2.5", "A1B0"},
                    ToNormRow{"FrequencyIsEvaluated", "A1-6 B0-1", "2*3", "(A1)B0"},
                    ToNormRow{"FrequencyIsPrinted", "A1-2.5 B0-1", "2.50", "(A1)B0"},
                    ToNormRow{"FrequencyEvaluatedToOneUnwraps", "A1-1 B0-1", "3-2", "A1B0"},
                    ToNormRow{"FrequencyThatCannotBeEvaluatedIsZero", "A1-0 B0-1", "x", "(A1)B0"},
                    ToNormRow{"BlanksAreNotSignificant", "A 1 - 3B0-1", "3", "(A1)B0"},
                    ToNormRow{"WithoutBlanks", "A1-3B0-1", "3", "(A1)B0"},
                    ToNormRow{"LettersInARow", "AB1-3", "3", "A(B1)"},
                    // A token without "-" has the empty frequency.
                    ToNormRow{"TokenWithoutFrequency", "A1B0-3", "3", "A1(B0)"},
                    ToNormRow{"NormFormatGoesThrough", "A1B0G1", "3", "A1B0G1"},
                    ToNormRow{"SecondDashBelongsToTheFrequency", "A1-3-4 B0-3", "3", "A1(B0)"},
                    ToNormRow{"EmptyFrequencyOfAToken", "A1- B0-1", "1", "A1(B0)"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(OtherTexts, ToNormTest,
                         testing::Values(ToNormRow{"Empty", "", "3", ""}, ToNormRow{"PlainCode", "X12", "3", "X12"},
                                         ToNormRow{"BlankAhead", " A1-3 B0-3", "3", " A1-3 B0-3"},
                                         ToNormRow{"BracketAhead", "(A1-3)", "3", "(A1-3)"},
                                         ToNormRow{"LowerCase", "a1-3", "3", "a1-3"},
                                         ToNormRow{"LetterAlone", "A", "3", "A"}),
                         [](const auto& row) { return std::string(row.param.name); });

struct FlagRow {
  const char* name;
  const char* code;
  std::vector<KORBoolean> flags;
  const char* norm;
};

class ToNormByFlagsTest : public support::ServiceRowTest<FlagRow> {};

TEST_P(ToNormByFlagsTest, BracketsWhereTheFlagsAreSet) {
  KORListValKORBoolean flags;
  for (const KORBoolean flag : GetParam().flags) flags.Append(flag);
  VEXSTMTimeAnalysisDlgServices services;
  for (const char* frequency : {"1", "3", ""}) {
    EXPECT_EQ(Text(services.ConvertToMOSTNormFormatService(GetParam().code, frequency, flags)), GetParam().norm)
        << frequency;
  }
}

// The frequency plays no part.
INSTANTIATE_TEST_SUITE_P(
    Flags, ToNormByFlagsTest,
    testing::Values(FlagRow{"FewerFlagsThanParameters", "A1-1 B0-1 G1-1 A1-3 B0-3", {1, 1, 0}, "(A1B0)G1"},
                    FlagRow{"OpenBracketIsClosedWhereTheFlagsEnd", "A1-1 B0-1 G1-1", {0, 1}, "A1(B0)"},
                    FlagRow{"OneForEachParameter", "A1-1 B0-1 G1-1", {0, 1, 0}, "A1(B0)G1"},
                    FlagRow{"MoreFlagsThanParameters", "A1-1 B0-1", {0, 1, 1, 0}, "A1(B0)"},
                    FlagRow{"BracketAroundTheWholeStays", "A1-1 B0-1", {1, 1}, "(A1B0)"},
                    FlagRow{"TwoRuns", "A1-1 B0-1 G1-1", {1, 0, 1}, "(A1)B0(G1)"},
                    FlagRow{"AnyValueOtherThanZeroIsOn", "A1-1 B0-1", {2, 0}, "(A1)B0"},
                    FlagRow{"NoFlags", "A1-1 B0-1", {}, ""}, FlagRow{"PlainCode", "X12", {1, 1}, "X12"},
                    FlagRow{"BlankAhead", " A1-1", {1}, " A1-1"}, FlagRow{"Empty", "", {1}, ""}),
    [](const auto& row) { return std::string(row.param.name); });

// ------------------------------------------------------------------------------------------- Norm format to code form

struct ToCodeRow {
  const char* name;
  const char* norm;
  const char* frequency;
  const char* code;
};

class ToCodeTest : public support::ServiceRowTest<ToCodeRow> {};

TEST_P(ToCodeTest, PutsAFrequencyOnEachParameter) {
  VEXSTMTimeAnalysisDlgServices services;
  EXPECT_EQ(Text(services.GetMOSTCodeFromNormFormatService(GetParam().norm, GetParam().frequency)), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, ToCodeTest,
    testing::Values(ToCodeRow{"GeneralMove", "A1B0G1(A1B0P3)A0", "3", "A1-1 B0-1 G1-1 A1-3 B0-3 P3-3 A0-1"},
                    ToCodeRow{"BracketAtTheHead", "(A1B0G1)A0", "3", "A1-3 B0-3 G1-3 A0-1"},
                    ToCodeRow{"BracketAtTheEndLeavesABlank", "A1B0(G1A1)", "3", "A1-1 B0-1 G1-3 A1-3 "},
                    ToCodeRow{"BracketAroundTheWhole", "(A1B0)", "3", "A1-3 B0-3 "},
                    ToCodeRow{"WithoutBracket", "A1B0G1", "3", "A1-1 B0-1 G1-1"},
                    ToCodeRow{"TwoBrackets", "A1(B0)G1(A1)A0", "3", "A1-1 B0-3 G1-1 A1-3 A0-1"},
                    ToCodeRow{"FrequencyStandsAsItIs", "A1(B0)G1", "2*3", "A1-1 B0-2*3 G1-1"},
                    ToCodeRow{"EmptyFrequency", "A1(B0)G1", "", "A1-1 B0- G1-1"},
                    ToCodeRow{"BlanksGo", "A 1 ( B0 ) G1", "3", "A1-1 B0-3 G1-1"},
                    ToCodeRow{"LongIndexes", "A16B0(P24)A330", "3", "A16-1 B0-1 P24-3 A330-1"},
                    ToCodeRow{"LettersAtTheHeadStayTogether", "AB1", "3", "AB1-1"},
                    ToCodeRow{"LettersAtTheHeadInABracket", "(AB1)C2", "3", "A-3 B1-3 C2-1"},
                    ToCodeRow{"LetterAlone", "A", "3", "A-1"}, ToCodeRow{"BracketAlone", "(", "3", "-3"},
                    ToCodeRow{"BracketsInARow", "A1(B0)(C1)", "3", "A1-1 B0-3 (-1 C1-1 "},
                    ToCodeRow{"EndWithoutHead", "A1)B0", "3", "A1-1 B0-1"},
                    ToCodeRow{"HeadAtTheEnd", "A1(", "3", "A1-1 -3"},
                    ToCodeRow{"EmptyBrackets", "A1()B0", "3", "A1-1 )-3 B0-3"},
                    ToCodeRow{"OtherCharacters", "A1+2B0", "3", "A1+2-1 B0-1"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(OtherTexts, ToCodeTest,
                         testing::Values(ToCodeRow{"Empty", "", "3", ""}, ToCodeRow{"PlainCode", "X12", "3", "X12"},
                                         ToCodeRow{"BlankAhead", " A1", "3", " A1"},
                                         ToCodeRow{"LowerCase", "a1b0", "3", "a1b0"},
                                         ToCodeRow{"EndAhead", ")A1", "3", ")A1"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(MostNormRoundTripTest, CodeFormComesBack) {
  VEXSTMTimeAnalysisDlgServices services;
  const KORUnicodeString code = "A1-1 B0-1 G1-1 A1-3 B0-3 P3-3 A0-1";
  const KORUnicodeString norm = services.ConvertToMOSTNormFormatService(code, "3");
  EXPECT_EQ(Text(services.GetMOSTCodeFromNormFormatService(norm, "3")), Text(code));
}

// --------------------------------------------------------------------------------------------------- Sequential codes

struct SequentialRow {
  const char* name;
  const char* code;
  int sequential;
};

class SequentialCodeTest : public support::ServiceRowTest<SequentialRow> {};

TEST_P(SequentialCodeTest, HasLettersThatDoNotAllStandTogether) {
  EXPECT_EQ(VEXSTMTimeAnalysisDlgServices().IsSequentialCode(GetParam().code), GetParam().sequential);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, SequentialCodeTest,
    testing::Values(SequentialRow{"TwoParameters", "M4G1", 1}, SequentialRow{"InBrackets", "3(M4G1)", 1},
                    SequentialRow{"Mnemonic", "GET", 0}, SequentialRow{"OneParameter", "M4", 0},
                    SequentialRow{"DigitAhead", "4M", 0}, SequentialRow{"LettersThenDigits", "ABC12", 0},
                    SequentialRow{"Empty", "", 0}, SequentialRow{"DigitsAlone", "123", 0},
                    SequentialRow{"BlankBetweenLetters", "A B", 1}, SequentialRow{"LowerCase", "m4g1", 1},
                    SequentialRow{"SameLetterTwice", "A1A", 1},
                    // The letters together stand inside the code although other letters stand before them.
                    SequentialRow{"OneLetter", "A", 0}, SequentialRow{"LettersBetweenDigits", "1AB2", 0},
                    SequentialRow{"LettersApartByASign", "A-B", 1}),
    [](const auto& row) { return std::string(row.param.name); });

// ------------------------------------------------------------------------------------------------- Process-time codes

class ProcessTimeCodesTest : public support::ServiceTest {};

TEST_F(ProcessTimeCodesTest, EntriesWithTheIdentifierZeroAreAppendedInOrder) {
  VEXSTMTimeAnalysisDlgServices services;
  Load(services, "MOST",
       support::DataCardFile(support::EntryElement({{"CODE_ID", "0"}, {"CODE", "PT1"}, {"TEXT", "#Machine"}}) +
                             support::EntryElement({{"CODE_ID", "1"}, {"CODE", "A1"}, {"TEXT", "Reach"}}) +
                             support::EntryElement({{"CODE_ID", "00"}, {"CODE", "PT2"}}) +
                             support::EntryElement({{"CODE_ID", " 0"}, {"CODE", "PT3"}}) + "<DATACARDENTRY/>" +
                             support::EntryElement({{"CODE_ID", "0"}, {"CODE", "PT4"}}) +
                             support::EntryElement({{"CODE_ID", "0"}, {"CODE", ""}, {"TEXT", "lost"}})));
  KORListValKORUnicodeString codes = ListOf({"before"});
  KORListValKORUnicodeString texts = ListOf({"first", "second"});
  services.GetMOSTProcessTimeCodes(codes, texts);
  EXPECT_EQ(Texts(codes), (std::vector<std::string>{"before", "PT1", "PT4", ""}));
  EXPECT_EQ(Texts(texts), (std::vector<std::string>{"first", "second", "Machine", "", ""}));
  services.GetMOSTProcessTimeCodes(codes, texts);
  EXPECT_EQ(codes.Size(), 7);
}

TEST_F(ProcessTimeCodesTest, WithoutATableNothingHappens) {
  VEXSTMTimeAnalysisDlgServices services;
  KORListValKORUnicodeString codes = ListOf({"before"});
  KORListValKORUnicodeString texts;
  services.GetMOSTProcessTimeCodes(codes, texts);
  Load(services, "MOST", support::DataCardFile(""));
  services.GetMOSTProcessTimeCodes(codes, texts);
  EXPECT_EQ(Texts(codes), std::vector<std::string>{"before"});
  EXPECT_EQ(texts.Size(), 0);
}

// ---------------------------------------------------------------------------------------------------------- Bad input

TEST(MostNormBadInputTest, LongAndOddTextsEndQuickly) {
  VEXSTMTimeAnalysisDlgServices services;
  std::string norm = "A1";
  std::string code = "A1-1";
  for (int parameter = 1; parameter < 50000; ++parameter) {
    norm += "B0";
    code += " B0-1";
  }
  EXPECT_EQ(Text(services.GetMOSTCodeFromNormFormatService(Unicode(norm), "3")), code);
  EXPECT_EQ(Text(services.ConvertToMOSTNormFormatService(Unicode(code), "3")), norm);
  EXPECT_EQ(services.IsSequentialCode(Unicode(norm)), 1);
  EXPECT_EQ(services.IsSequentialCode(Unicode(std::string(100000, 'A'))), 0);
  EXPECT_EQ(services.IsSequentialCode(Unicode(std::string(100000, 'A') + "1A")), 1);
  const std::string open(100000, '(');
  EXPECT_EQ(Text(services.GetMOSTCodeFromNormFormatService(Unicode(open), "3")), "-3");
  EXPECT_EQ(Text(services.GetMOSTCodeFromNormFormatService("\xFF\xFE", "3")), "\xC3\xBF\xC3\xBE");
  EXPECT_EQ(Text(services.ConvertToMOSTNormFormatService("\xFF\xFE", "3")), "\xC3\xBF\xC3\xBE");
}

}  // namespace
