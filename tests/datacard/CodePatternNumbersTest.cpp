// Numbers in codes: they match only in the form in which they are printed. The yardstick's walk agrees.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/oracle/CodePatternOracle.h"
#include "tests/support/PatternCheck.h"
#include "tests/support/ServiceTest.h"

namespace {

struct NumberRow {
  const char* name;
  std::string pattern;
  std::string code;
  bool matches;
  std::vector<double> values = {};
  std::vector<int> flags = {};
};

class NumberFormTest : public support::ServiceRowTest<NumberRow> {};

TEST_P(NumberFormTest, MatchesAsThePrintedFormSays) {
  const NumberRow& row = GetParam();
  VEXSTMTimeAnalysisDlgServices services;
  support::Select(services, "STD");
  const support::Outcome outcome = support::Check(services, row.code, row.pattern);
  ASSERT_EQ(outcome.matched, row.matches) << row.pattern << " on " << row.code;
  int count = -1;
  std::vector<double> values;
  std::vector<int> flags;
  EXPECT_EQ(oracle::CheckPattern("STD", row.code, row.pattern, count, values, flags), row.matches);
  EXPECT_EQ(values, row.values);
  EXPECT_EQ(flags, row.flags);
  EXPECT_EQ(outcome.count, count);
  if (!row.matches) return;
  EXPECT_EQ(std::vector<double>(outcome.values.begin(), outcome.values.begin() + outcome.count), row.values);
  EXPECT_EQ(std::vector<int>(outcome.flags.begin(), outcome.flags.begin() + outcome.count), row.flags);
}

// Reals are printed with six significant digits, without zeros at the end of the fraction.
INSTANTIATE_TEST_SUITE_P(Reals, NumberFormTest,
                         testing::Values(NumberRow{"SevenDigitsOnBothSides", "\"A\"$", "A1234567.1234567", false},
                                         NumberRow{"SevenSignificantDigits", "\"A\"$", "A123456.7", false},
                                         NumberRow{"SevenWholeDigits", "\"A\"$", "A1234567", false},
                                         NumberRow{"SixWholeDigits", "\"A\"$", "A123456", true, {0, 123456}, {1, 1}},
                                         NumberRow{"ZeroAheadOfThePoint", "\"A\"$", "A0.5", true, {0, 0.5}, {1, 1}},
                                         NumberRow{"ZeroAtTheEnd", "\"A\"$", "A12.50", false},
                                         NumberRow{"WithoutThatZero", "\"A\"$", "A12.5", true, {0, 12.5}, {1, 1}}),
                         support::RowName());

INSTANTIATE_TEST_SUITE_P(Integers, NumberFormTest,
                         testing::Values(NumberRow{"AboveTheBound", "%", "1234567", false},
                                         NumberRow{"Zero", "%", "0", true, {0}, {1}},
                                         NumberRow{"TwoZeros", "%", "00", false},
                                         NumberRow{"ZeroAhead", "%", "01", false},
                                         NumberRow{"ZeroBelowZero", "%", "-0", false}),
                         support::RowName());

// A quote that stands alone at the end of a pattern opens a literal without text, which is not the empty literal: it
// fails where the code has ended.
INSTANTIATE_TEST_SUITE_P(
    LoneQuotes, NumberFormTest,
    testing::Values(NumberRow{"BehindALiteral", "\"A\"\"", "A", false}, NumberRow{"Alone", "\"", "", false},
                    NumberRow{"AloneOnACode", "\"", "A", false}, NumberRow{"BehindANumber", "%\"", "5", false},
                    NumberRow{"PairBehindANumber", "%\"\"", "5", true, {5, 0}, {1, 1}},
                    NumberRow{"AsTheLastAlternative", "(|\"A\"|\"", "A", true, {0, 0, 0, 0, 0}, {0, 0, 1, 0, 0}}),
    support::RowName());

}  // namespace
