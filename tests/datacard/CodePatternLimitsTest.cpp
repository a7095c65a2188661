// Code patterns and codes of outside size: each is answered rightly and quickly.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/PatternCheck.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::Check;
using support::Outcome;

std::string Repeat(const std::string& text, int times) {
  std::string repeated;
  repeated.reserve(text.size() * static_cast<std::size_t>(times));
  for (int time = 0; time < times; ++time) repeated += text;
  return repeated;
}

class BigPatternTest : public support::ServiceTest {
 protected:
  Outcome CheckBig(const std::string& code, const std::string& pattern) {
    return Check(_Services, code, pattern, static_cast<int>(pattern.size()) + 1);
  }

  VEXSTMTimeAnalysisDlgServices _Services;
};

TEST_F(BigPatternTest, HundredThousandTokens) {
  const Outcome outcome = CheckBig(Repeat("A", 100000), Repeat("\"A\"", 100000));
  EXPECT_TRUE(outcome.matched);
  EXPECT_EQ(outcome.count, 100000);
  EXPECT_EQ(outcome.flags[99999], 1);
  EXPECT_FALSE(CheckBig(Repeat("A", 99999), Repeat("\"A\"", 100000)).matched);
}

// Each parameter takes one zero off the run, which is read as one number from wherever it begins.
TEST_F(BigPatternTest, HundredThousandParametersOnARunOfZeros) {
  for (const char* parameter : {"%", "$"}) {
    const Outcome outcome = CheckBig(Repeat("0", 100000), Repeat(parameter, 100000));
    EXPECT_TRUE(outcome.matched) << parameter;
    EXPECT_EQ(outcome.count, 100000) << parameter;
    EXPECT_FALSE(CheckBig(Repeat("0", 99999), Repeat(parameter, 100000)).matched) << parameter;
  }
}

TEST_F(BigPatternTest, HundredThousandUnknownTokens) {
  EXPECT_FALSE(CheckBig("A", std::string(100000, 'x')).matched);
}

TEST_F(BigPatternTest, HundredThousandNestedGroups) {
  const std::string open = Repeat("(", 100000);
  const std::string close = Repeat(")", 100000);
  const Outcome outcome = CheckBig("A", open + "\"A\"" + close);
  EXPECT_TRUE(outcome.matched);
  EXPECT_EQ(outcome.count, 200001);
  EXPECT_EQ(outcome.flags[100000], 1);
  EXPECT_FALSE(CheckBig("B", open + "\"A\"" + close).matched);
  EXPECT_TRUE(CheckBig("A", open + "\"A\"").matched);
  EXPECT_FALSE(CheckBig("A", open).matched);
  EXPECT_FALSE(CheckBig("A", close).matched);
}

TEST_F(BigPatternTest, FiftyThousandNestedSequences) {
  const std::string pattern = Repeat("(\"A\"", 50000) + Repeat(")", 50000);
  const Outcome outcome = CheckBig(Repeat("A", 50000), pattern);
  EXPECT_TRUE(outcome.matched);
  EXPECT_EQ(outcome.count, 150000);
  EXPECT_EQ(outcome.flags[99999], 1);
  EXPECT_FALSE(CheckBig(Repeat("A", 49999), pattern).matched);
  EXPECT_FALSE(CheckBig(Repeat("A", 50001), pattern).matched);
}

TEST_F(BigPatternTest, FiftyThousandSequencesThatCloseBehindALiteral) {
  const std::string pattern = Repeat("(\"A\"", 50000) + Repeat("\"B\")", 50000);
  EXPECT_TRUE(CheckBig(Repeat("A", 50000) + Repeat("B", 50000), pattern).matched);
  EXPECT_FALSE(CheckBig(Repeat("A", 50000) + Repeat("B", 49999), pattern).matched);
}

TEST_F(BigPatternTest, FiftyThousandNestedAlternativesThatAllFail) {
  EXPECT_FALSE(CheckBig("B", Repeat("(|", 50000) + "\"A\"" + Repeat(")", 50000)).matched);
}

TEST_F(BigPatternTest, FiftyThousandNestedAlternativesWithAnOther) {
  const std::string pattern = Repeat("(|", 50000) + "\"A\"" + Repeat("|\"B\")", 50000);
  EXPECT_TRUE(CheckBig("A", pattern).matched);
  EXPECT_TRUE(CheckBig("B", pattern).matched);
  EXPECT_FALSE(CheckBig("C", pattern).matched);
}

TEST_F(BigPatternTest, HundredThousandAlternatives) {
  const std::string pattern = "(" + Repeat("|\"A\"", 100000) + "|\"B\")";
  EXPECT_TRUE(CheckBig("A", pattern).matched);
  EXPECT_TRUE(CheckBig("B", pattern).matched);
  EXPECT_FALSE(CheckBig("C", pattern).matched);
}

TEST_F(BigPatternTest, HundredThousandCharactersInACode) {
  EXPECT_FALSE(CheckBig(std::string(100000, 'A'), "\"A\"%").matched);
  EXPECT_TRUE(CheckBig(std::string(100000, 'A'), "\"" + std::string(100000, 'A') + "\"").matched);
}

TEST_F(BigPatternTest, HundredThousandPartsOfSam) {
  support::Select(_Services, "SAM");
  EXPECT_TRUE(CheckBig(Repeat("A+", 100000), Repeat("\"A\"", 100000)).matched);
  EXPECT_FALSE(CheckBig(std::string(100000, '+'), Repeat("\"A\"", 100000)).matched);
}

// An integer beyond 64 bits counts as the nearest one, of which the low 32 bits count; its printed form is shorter
// than what was typed.
TEST_F(BigPatternTest, LongDigitStrings) {
  const std::string digits(100000, '9');
  EXPECT_FALSE(CheckBig(digits, "%").matched);
  EXPECT_FALSE(CheckBig(digits, "$").matched);
  EXPECT_FALSE(CheckBig("A" + digits, "\"A\"%[1,80]").matched);
  EXPECT_FALSE(CheckBig("5", "%[" + digits + "," + digits + "]").matched);
  EXPECT_TRUE(CheckBig(digits, "\"" + digits + "\"").matched);
}

TEST_F(BigPatternTest, InfinityAndNoNumber) {
  EXPECT_FALSE(CheckBig("INF", "$").matched);
  // No number lies neither below nor above a bound; it is printed as it is read.
  EXPECT_TRUE(CheckBig("NAN", "$").matched);
}

TEST_F(BigPatternTest, BytesThatAreNoUtf8EndQuickly) {
  EXPECT_FALSE(CheckBig("\xFF\xFE\x80", "\"A\"%").matched);
  EXPECT_FALSE(CheckBig("A", "\xFF\x80(").matched);
  EXPECT_FALSE(CheckBig("A", "\"\xC3").matched);
}

TEST_F(BigPatternTest, ManyPatternsAreAllAnsweredRightly) {
  for (int number = 0; number < 20000; ++number) {
    const std::string literal = "C" + std::to_string(number) + "X";
    const Outcome outcome = Check(_Services, literal + "5", "\"" + literal + "\"%");
    ASSERT_TRUE(outcome.matched) << number;
    ASSERT_EQ(outcome.values[1], 5.0);
  }
  EXPECT_TRUE(Check(_Services, "C0X7", "\"C0X\"%").matched);
  EXPECT_FALSE(Check(_Services, "C0Y7", "\"C0X\"%").matched);
}

TEST_F(BigPatternTest, RememberedPatternsFollowTheSystem) {
  EXPECT_FALSE(Check(_Services, "X+Z", "\"X\"\"Z\"").matched);
  support::Select(_Services, "SAM");
  EXPECT_TRUE(Check(_Services, "X+Z", "\"X\"\"Z\"").matched);
  support::Select(_Services, "STD");
  EXPECT_FALSE(Check(_Services, "X+Z", "\"X\"\"Z\"").matched);
}

TEST_F(BigPatternTest, CopiesMatchOnTheirOwn) {
  EXPECT_TRUE(Check(_Services, "GR5", "\"GR\"%").matched);
  auto copy = std::make_unique<VEXSTMTimeAnalysisDlgServices>(_Services);
  EXPECT_TRUE(Check(*copy, "GR5", "\"GR\"%").matched);
  VEXSTMTimeAnalysisDlgServices assigned;
  assigned = *copy;
  copy.reset();
  EXPECT_TRUE(Check(assigned, "GR5", "\"GR\"%").matched);
  EXPECT_TRUE(Check(_Services, "GR5", "\"GR\"%").matched);
}

}  // namespace
