// Random patterns and codes: the matcher against the plain walk, token by token.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/oracle/CodePatternOracle.h"
#include "tests/support/RandomPattern.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::RandomPattern;
using support::Unicode;

struct SystemRow {
  const char* name;
  const char* system;
  unsigned seed;
};

class CodePatternDifferentialTest : public support::ServiceRowTest<SystemRow> {
 protected:
  void SetUp() override { support::Select(_Services, GetParam().system); }

  void CompareCheck(const std::string& pattern, const std::string& code);
  void CompareLevel(const std::string& pattern, const std::string& code);

  VEXSTMTimeAnalysisDlgServices _Services;
  std::size_t _Matches = 0;
};

std::uint64_t BitsOf(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

void CodePatternDifferentialTest::CompareCheck(const std::string& pattern, const std::string& code) {
  int expected_count = -3;
  std::vector<double> expected_values;
  std::vector<int> expected_flags;
  const bool expected =
      oracle::CheckPattern(GetParam().system, code, pattern, expected_count, expected_values, expected_flags);
  int count = -3;
  std::vector<double> values(pattern.size() + 1, -77.0);
  std::vector<int> flags(pattern.size() + 1, -77);
  const bool matched =
      _Services.CheckDataCardCodePattern(Unicode(code), Unicode(pattern), count, values.data(), flags.data()) == 1;
  ASSERT_EQ(matched, expected);
  ASSERT_EQ(count, expected_count);
  if (expected) ++_Matches;
  for (std::size_t token = 0; token < values.size(); ++token) {
    const bool is_written = token < expected_values.size();
    ASSERT_EQ(BitsOf(values[token]), BitsOf(is_written ? expected_values[token] : -77.0)) << "value " << token;
    ASSERT_EQ(flags[token], is_written ? expected_flags[token] : -77) << "flag " << token;
  }
}

void CodePatternDifferentialTest::CompareLevel(const std::string& pattern, const std::string& code) {
  std::vector<oracle::Token> expected = oracle::CompilePattern(pattern);
  VEXSTMDataCardCodeScan* tokens = nullptr;
  ASSERT_EQ(_Services.CreateCodeScanPattern(Unicode(pattern), tokens), S_OK);
  const std::unique_ptr<VEXSTMDataCardCodeScan[]> owned(tokens);
  int expected_consumed = 5;
  const int expected_stop = oracle::GetCodeScan(GetParam().system, code, expected, 0, expected_consumed);
  int consumed = 5;
  const VEXSTMDataCardCodeScan* stop = _Services.GetDataCardCodeScan(code.c_str(), tokens, consumed);
  ASSERT_EQ(stop == nullptr ? -1 : static_cast<int>(stop - tokens), expected_stop);
  ASSERT_EQ(consumed, expected_consumed);
  for (std::size_t token = 0; token < expected.size(); ++token) {
    ASSERT_EQ(tokens[token]._Type, expected[token].Type) << "token " << token;
    ASSERT_EQ(tokens[token]._Matched != 0, expected[token].Matched) << "token " << token;
    ASSERT_EQ(tokens[token]._IntValue, expected[token].IntValue) << "token " << token;
    ASSERT_EQ(BitsOf(tokens[token]._RealValue), BitsOf(expected[token].RealValue)) << "token " << token;
    ASSERT_EQ(tokens[token]._Min, expected[token].Min) << "token " << token;
    ASSERT_EQ(tokens[token]._Max, expected[token].Max) << "token " << token;
    ASSERT_EQ(support::Text(tokens[token]._Text), expected[token].Text) << "token " << token;
  }
}

TEST_P(CodePatternDifferentialTest, AgreesWithThePlainWalk) {
  std::mt19937 generator(GetParam().seed);
  const bool chain = std::string(GetParam().system) == "SAM";
  for (int round = 0; round < 24000; ++round) {
    RandomPattern random(generator, chain);
    const std::string pattern = random.Pattern();
    for (int attempt = 0; attempt < 5; ++attempt) {
      const std::string code = random.Code();
      SCOPED_TRACE(testing::Message() << "round " << round << ": pattern <" << pattern << "> code <" << code << ">");
      ASSERT_NO_FATAL_FAILURE(CompareCheck(pattern, code));
      ASSERT_NO_FATAL_FAILURE(CompareLevel(pattern, code));
    }
  }
  // The pairs are worth something only if many of them match.
  EXPECT_GT(_Matches, 5000u);
}

INSTANTIATE_TEST_SUITE_P(Systems, CodePatternDifferentialTest,
                         testing::Values(SystemRow{"Prefixes", "STD", 20261}, SystemRow{"Chains", "SAM", 20262}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
