// The time of a code where the user's locale writes a comma ahead of the fraction.
#include <gtest/gtest.h>

#include <string>

#include "tests/formula/ScopedLocale.h"
#include "tests/support/CardTable.h"
#include "tests/support/ServiceTest.h"
#include "tests/support/ShippedCatalogue.h"

namespace {

using formulatest::ScopedLocale;
using support::Card;
using support::Patterned;
using support::Plain;
using support::Ranged;
using support::TableOf;
using support::TimeOf;

struct LocaleRow {
  const char* name;
  Card entry;
  const char* code;
  const char* with_point;  // time in a locale that writes "."
  const char* with_comma;
};

class CodeTimeLocaleTest : public support::ServiceRowTest<LocaleRow> {};

TEST_P(CodeTimeLocaleTest, GivesTheTimeOfTheLocale) {
  const LocaleRow& row = GetParam();
  VEXSTMTimeAnalysisDlgServices services;
  Load(services, "STD", TableOf({row.entry}));
  {
    const ScopedLocale point("C");
    ASSERT_TRUE(point.IsInForce("."));
    EXPECT_EQ(TimeOf(services, row.code), row.with_point);
  }
  const ScopedLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  EXPECT_EQ(TimeOf(services, row.code), row.with_comma);
}

// The commas of a call become "_", which no locale reads as a decimal character; those of other formulas stay.
INSTANTIATE_TEST_SUITE_P(
    Formulas, CodeTimeLocaleTest,
    testing::Values(LocaleRow{"CallSeparatedByCommas", Plain("1", "A", "pow(2,3)"), "A", "8", "8"},
                    LocaleRow{"CallSeparatedByUnderscores", Plain("1", "A", "pow(2_3)"), "A", "8", "8"},
                    LocaleRow{"BracketKeepsItsComma", Plain("1", "A", "(1,2)"), "A", "0", "1.2"},
                    LocaleRow{"NumberWithPoint", Plain("1", "A", "1.5*2"), "A", "3", "3"},
                    LocaleRow{"CallOfNumbersWithPoints", Plain("1", "A", "pow(1.5,2)"), "A", "2.25", "2.25"},
                    LocaleRow{"NumberBehindTheCode", Ranged("1", "X", "2*$1$", "1", "10"), "X2.5", "5", "5"},
                    LocaleRow{"NumberOfAPattern", Patterned("1", "\"GR\"$", "2*$1$"), "GR1.5", "3", "3"}),
    support::RowName());

}  // namespace
