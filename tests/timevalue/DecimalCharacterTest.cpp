// Number texts between the "." notation and the decimal character of the locale.
#include "timevalue/DecimalCharacter.h"

#include <gtest/gtest.h>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/formula/ScopedLocale.h"
#include "tests/support/ServiceTest.h"

namespace {

using formulatest::ScopedLocale;
using formulatest::ScopedProcessLocale;

struct TextCase {
  const char* name;
  const char* text;
  const char* changed;
  long status;
};

void PrintTo(const TextCase& row, std::ostream* stream) {
  *stream << '"' << row.text << '"';
}

class DecimalCharacterTest : public support::ServiceRowTest<TextCase> {
 protected:
  static void Expect(long (*convert)(KORUnicodeString&)) {
    KORUnicodeString text(GetParam().text);
    EXPECT_EQ(convert(text), GetParam().status);
    EXPECT_EQ(support::Text(text), GetParam().changed);
  }
};

class ToDotUnderCommaTest : public DecimalCharacterTest {};

TEST_P(ToDotUnderCommaTest, OnTheThread) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  Expect(VEXSTMTimeAnalysisDlgServices::GetStringWithDotDecimalChar);
  Expect(timevalue::ToDotDecimalCharacter);
}

TEST_P(ToDotUnderCommaTest, InTheProcess) {
  const ScopedProcessLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  Expect(VEXSTMTimeAnalysisDlgServices::GetStringWithDotDecimalChar);
}

// That there is nothing to replace is no failure on this way.
INSTANTIATE_TEST_SUITE_P(Texts, ToDotUnderCommaTest,
                         testing::Values(TextCase{"Fraction", "1,5", "1.5", S_OK}, TextCase{"Whole", "15", "15", S_OK},
                                         TextCase{"Point", "1.5", "1.5", S_OK},
                                         TextCase{"EveryComma", "1,5+pow(2,5)", "1.5+pow(2.5)", S_OK},
                                         TextCase{"CommaAlone", ",", ".", S_OK},
                                         TextCase{"CommasInARow", ",,1,,", "..1..", S_OK},
                                         TextCase{"Letters", "\xC3\xA4,\xE2\x82\xAC", "\xC3\xA4.\xE2\x82\xAC", S_OK},
                                         TextCase{"Empty", "", "", E_FAIL}),
                         support::RowName());

class ToLocalUnderCommaTest : public DecimalCharacterTest {};

TEST_P(ToLocalUnderCommaTest, OnTheThread) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  Expect(VEXSTMTimeAnalysisDlgServices::GetStringWithLocalDecimalChar);
  Expect(timevalue::ToLocalDecimalCharacter);
}

TEST_P(ToLocalUnderCommaTest, InTheProcess) {
  const ScopedProcessLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  Expect(VEXSTMTimeAnalysisDlgServices::GetStringWithLocalDecimalChar);
}

// On this way a text without "." is a failure.
INSTANTIATE_TEST_SUITE_P(Texts, ToLocalUnderCommaTest,
                         testing::Values(TextCase{"Fraction", "1.5", "1,5", S_OK},
                                         TextCase{"Whole", "15", "15", E_FAIL}, TextCase{"Comma", "1,5", "1,5", E_FAIL},
                                         TextCase{"EveryPoint", "1.5+2.25.", "1,5+2,25,", S_OK},
                                         TextCase{"PointAlone", ".", ",", S_OK},
                                         TextCase{"CommaAndPoint", "1.5,2", "1,5,2", S_OK},
                                         TextCase{"Letters", "\xC3\xA4.\xE2\x82\xAC", "\xC3\xA4,\xE2\x82\xAC", S_OK},
                                         TextCase{"Empty", "", "", E_FAIL}),
                         support::RowName());

// A locale that needs no conversion reports failure, and the text stays as it was.
class DecimalPointTest : public DecimalCharacterTest {};

TEST_P(DecimalPointTest, FailsBothWays) {
  Expect(VEXSTMTimeAnalysisDlgServices::GetStringWithDotDecimalChar);
  Expect(VEXSTMTimeAnalysisDlgServices::GetStringWithLocalDecimalChar);
}

INSTANTIATE_TEST_SUITE_P(Texts, DecimalPointTest,
                         testing::Values(TextCase{"Fraction", "1.5", "1.5", E_FAIL},
                                         TextCase{"Comma", "1,5", "1,5", E_FAIL}, TextCase{"Whole", "15", "15", E_FAIL},
                                         TextCase{"Empty", "", "", E_FAIL}),
                         support::RowName());

// So does a decimal character that cannot be had, in any locale.
class NoDecimalCharacterTest : public DecimalCharacterTest {};

TEST_P(NoDecimalCharacterTest, FailsBothWays) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  _Session.InjectFault("KORSysGetLocalDecimalChar", E_FAIL);
  Expect(VEXSTMTimeAnalysisDlgServices::GetStringWithDotDecimalChar);
  Expect(VEXSTMTimeAnalysisDlgServices::GetStringWithLocalDecimalChar);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoDecimalCharacterTest,
                         testing::Values(TextCase{"Fraction", "1.5", "1.5", E_FAIL},
                                         TextCase{"Comma", "1,5", "1,5", E_FAIL}, TextCase{"Whole", "15", "15", E_FAIL},
                                         TextCase{"Empty", "", "", E_FAIL}),
                         support::RowName());

TEST(DecimalCharacterWayBackTest, GivesTheTextAgain) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  for (const char* given : {"1.5", ".", "12.25+3.5", "0.001"}) {
    KORUnicodeString text(given);
    EXPECT_EQ(VEXSTMTimeAnalysisDlgServices::GetStringWithLocalDecimalChar(text), S_OK);
    EXPECT_NE(support::Text(text), given);
    EXPECT_EQ(VEXSTMTimeAnalysisDlgServices::GetStringWithDotDecimalChar(text), S_OK);
    EXPECT_EQ(support::Text(text), given);
  }
}

}  // namespace
