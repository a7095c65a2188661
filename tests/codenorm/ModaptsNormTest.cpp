// MODAPTS sequences as typed, with multipliers ahead of brackets, and their code form.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/ServiceTest.h"

namespace {

using support::Text;
using support::Unicode;

struct ModaptsRow {
  const char* name;
  const char* norm;
  const char* code;
};

class ModaptsNormTest : public support::ServiceRowTest<ModaptsRow> {};

TEST_P(ModaptsNormTest, GivesTheCodeForm) {
  VEXSTMTimeAnalysisDlgServices services;
  support::Select(services, "MODAPTS");
  EXPECT_EQ(Text(services.GetMODAPTSCodeFromNormFormatService(GetParam().norm)), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(Sequences, ModaptsNormTest,
                         testing::Values(ModaptsRow{"TwoParameters", "M4G1", "M4-1 G1-1"},
                                         ModaptsRow{"FourParameters", "M1G1M1P0", "M1-1 G1-1 M1-1 P0-1"},
                                         ModaptsRow{"FourParametersOfTheArm", "M4G1M4P0", "M4-1 G1-1 M4-1 P0-1"},
                                         ModaptsRow{"BlanksWithoutBracketsGo", "M 4 G 1", "M4-1 G1-1"},
                                         ModaptsRow{"BlanksAtTheEndsGo", "  M4G1  ", "M4-1 G1-1"},
                                         ModaptsRow{"SecondDigitIsLost", "M4B17G1", "M4-1 B1-1 G1-1"},
                                         ModaptsRow{"FourDigitsLoseThree", "M4B1789G1", "M4-1 B1-1 G1-1"},
                                         ModaptsRow{"OneBracketAloneIsNoPair", "M 4(G 1", "M4-1 G1-1"},
                                         ModaptsRow{"LettersAtTheHeadStayTogether", "MG1M4", "MG1-1 M4-1"},
                                         ModaptsRow{"LettersInARow", "M4G1MM", "M4-1 G1-1 M-1 M-1"}),
                         [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(SingleCodes, ModaptsNormTest,
                         testing::Values(ModaptsRow{"OneParameter", "M4", "M4"}, ModaptsRow{"TwoDigits", "B17", "B17"},
                                         ModaptsRow{"Mnemonic", "GET", "GET"}, ModaptsRow{"DigitAhead", "4M", "4M"},
                                         ModaptsRow{"Empty", "", ""}, ModaptsRow{"BlanksStay", " M4 ", " M4 "},
                                         ModaptsRow{"BlanksAlone", "   ", "   "},
                                         ModaptsRow{"NoLetters", "12*3", "12*3"},
                                         ModaptsRow{"UnknownCharacterInASingleCode", "M4+", "M4+"}),
                         [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Brackets, ModaptsNormTest,
    testing::Values(ModaptsRow{"MultiplierAtTheHead", "3(M4G1)", "M4-3.0001 G1-3.0001 "},
                    ModaptsRow{"MultiplierInTheMiddle", "M4G1 3(M3P0)", "M4-1 G1-1 M3-3.0001 P0-3.0001 "},
                    ModaptsRow{"BlankBehindTheMultiplier", "M4G1 3 (M3P0)", "M4-1 G1-1 -1 M3-3 P0-3 "},
                    ModaptsRow{"WithoutMultiplier", "M4G1(M3P0)", "M4-1 G1-1 M3-1 P0-1 "},
                    ModaptsRow{"Product", "M4G1 2*3(M3P0)", "M4-1 G1-1 M3-6.0001 P0-6.0001 "},
                    ModaptsRow{"Quotient", "M4G1 6/2(M3P0)", "M4-1 G1-1 M3-3.0001 P0-3.0001 "},
                    ModaptsRow{"BracketAtTheHead", "(M4G1)M3", "M4-1 G1-1 M3-1"},
                    ModaptsRow{"TwoDigitMultiplier", "12(M4G1)", "M4-12.0001 G1-12.0001 "},
                    ModaptsRow{"ThreeDigitMultiplierKeepsSixDigits", "123(M4G1)", "M4-123 G1-123 "},
                    ModaptsRow{"FractionStays", "5/2(M4G1)", "M4-2.5001 G1-2.5001 "},
                    ModaptsRow{"DivisionByZeroIsZero", "5/0(M4G1)", "M4-0.0001 G1-0.0001 "},
                    ModaptsRow{"BehindTheBracketTheFactorIsOneAgain", "3(M4G1)M3P0", "M4-3.0001 G1-3.0001 M3-1 P0-1"},
                    ModaptsRow{"LostDigitsBecomeTheMultiplier", "M4B17(M3P0)", "M4-1 B1M3-7.0001 P0-7.0001 "}),
    [](const auto& row) { return std::string(row.param.name); });

// A multiplier that a blank ends becomes a whole number: 0.1 is added and the rest cut off.
INSTANTIATE_TEST_SUITE_P(MultipliersEndedByABlank, ModaptsNormTest,
                         testing::Values(ModaptsRow{"JustBelowThree", "59/20 (M4G1)", "M4-3 G1-3 "},
                                         ModaptsRow{"FurtherBelowThree", "57/20 (M4G1)", "M4-2 G1-2 "},
                                         ModaptsRow{"Whole", "3 (M4G1)", "M4-3 G1-3 "},
                                         // The number stays and a digit behind the blank starts it anew.
                                         ModaptsRow{"SecondNumberCounts", "3 4(M4G1)", "M4-4.0001 G1-4.0001 "},
                                         ModaptsRow{"BeyondThirtyTwoBits", "9999999999 (M4G1)",
                                                    "M4--2147483648 G1--2147483648 "}),
                         [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(Refused, ModaptsNormTest,
                         testing::Values(ModaptsRow{"FractionalMultiplier", "1.5(M4G1)", "0"},
                                         ModaptsRow{"Plus", "M4+G1", "0"}, ModaptsRow{"Minus", "M4-1 G1-1", "0"},
                                         ModaptsRow{"OperatorBehindAParameter", "M4G1*2", "0"},
                                         ModaptsRow{"OperatorAhead", "*2(M4G1)", "0"},
                                         ModaptsRow{"OperatorBehindABlank", "M4G1 *2(M3P0)", "0"},
                                         ModaptsRow{"TwoOperators", "2**3(M4G1)", "0"},
                                         ModaptsRow{"Comma", "M4,G1", "0"}, ModaptsRow{"LineFeed", "M4\nG1", "0"},
                                         ModaptsRow{"OtherBracket", "M4[G1]", "0"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ModaptsNormBadInputTest, LongAndOddTextsEndQuickly) {
  VEXSTMTimeAnalysisDlgServices services;
  std::string norm = "M4";
  std::string code = "M4-1";
  for (int parameter = 1; parameter < 50000; ++parameter) {
    norm += "G1";
    code += " G1-1";
  }
  EXPECT_EQ(Text(services.GetMODAPTSCodeFromNormFormatService(Unicode(norm))), code);
  const std::string digits(100000, '9');
  EXPECT_EQ(Text(services.GetMODAPTSCodeFromNormFormatService(Unicode("M4" + digits + "G1"))), "M4-1 G1-1");
  const std::string brackets = "M4G1" + std::string(50000, '(') + std::string(50000, ')');
  EXPECT_FALSE(services.GetMODAPTSCodeFromNormFormatService(Unicode(brackets)).IsEmpty());
  EXPECT_EQ(Text(services.GetMODAPTSCodeFromNormFormatService("M4G1\xE2\x82\xAC")), "0");
}

}  // namespace
