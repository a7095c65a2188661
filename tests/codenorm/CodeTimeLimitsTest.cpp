// Patterns with more positions than a time formula and an option can refer to, which are 2000.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/CardTable.h"
#include "tests/support/PatternCheck.h"
#include "tests/support/ServiceTest.h"
#include "tests/support/ShippedCatalogue.h"

namespace {

using support::Patterned;
using support::TableOf;
using support::Text;
using support::TimeOf;
using support::Unicode;

// A number at position 1999, a letter at 2000 and a number at 2001, behind empty literals.
std::string LongPattern() {
  std::string pattern;
  for (int position = 0; position < 1999; ++position) pattern += "\"\"";
  return pattern + "%\"A\"%";
}

TEST(LongPatternTest, MatchesOnAllItsPositions) {
  VEXSTMTimeAnalysisDlgServices services;
  const support::Outcome outcome = support::Check(services, "5A7", LongPattern(), 2048);
  ASSERT_TRUE(outcome.matched);
  EXPECT_EQ(outcome.count, 2002);
  EXPECT_EQ(outcome.flags[1999], 1);
  EXPECT_EQ(outcome.values[1999], 5.0);
  EXPECT_EQ(outcome.flags[2000], 1);
  EXPECT_EQ(outcome.values[2001], 7.0);
}

struct LimitRow {
  const char* name;
  const char* time;
  const char* option_position;
  const char* expected_time;
  bool is_found;
};

class ReferenceLimitTest : public support::ServiceRowTest<LimitRow> {};

TEST_P(ReferenceLimitTest, PositionsBeyondCountAsNotMatched) {
  const LimitRow& row = GetParam();
  VEXSTMTimeAnalysisDlgServices services;
  Load(services, "STD", TableOf({Patterned("1", LongPattern(), row.time, row.option_position, "+100", "4")}));
  EXPECT_EQ(TimeOf(services, "5A7"), row.expected_time);
  EXPECT_EQ(Text(services.GetTACodeID()), row.is_found ? "1" : "");
  long option = 0;
  services.GetOptionID(Unicode("5A7"), option);
  EXPECT_EQ(option, row.is_found ? 4 : 0);
}

INSTANTIATE_TEST_SUITE_P(Positions, ReferenceLimitTest,
                         testing::Values(LimitRow{"LastReference", "1+$1999$", "0", "106", true},
                                         LimitRow{"FirstReferenceBeyond", "1$2000$", "0", "101", true},
                                         LimitRow{"NumberBeyond", "1$2001$", "0", "101", true},
                                         LimitRow{"ReferenceBelowZero", "1$-1$", "0", "101", true},
                                         LimitRow{"LastOption", "1", "1999", "101", true},
                                         LimitRow{"FirstOptionBeyond", "1", "2000", "0", false},
                                         LimitRow{"OptionAtTheNumberBeyond", "1", "2001", "0", false},
                                         LimitRow{"OptionBehindThePattern", "1", "2002", "0", false}),
                         support::RowName());

}  // namespace
