// Patterns as written: the same tokens as the services compile, and the flaws of each.
#include "tools/PatternText.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "VEXSTMTimeAnalysisDlgServices.h"

namespace {

TEST(PatternText, HasTheTokensThatTheServicesCompile) {
  VEXSTMTimeAnalysisDlgServices service;
  std::mt19937 random(3);
  constexpr std::string_view pieces[] = {"(", ")", "|", "\"", "%", "$", "[", "]", ",", "1", "-20", "A", " ", "\n", "x"};
  for (int round = 0; round < 20000; ++round) {
    std::string pattern;
    for (auto count = random() % 14; count > 0; --count) pattern += pieces[random() % std::size(pieces)];
    VEXSTMDataCardCodeScan* compiled = nullptr;
    ASSERT_EQ(service.CreateCodeScanPattern(KORUnicodeString(std::string_view(pattern)), compiled), S_OK);
    const std::unique_ptr<VEXSTMDataCardCodeScan[]> owned(compiled);
    const std::vector<tool::PatternToken> tokens = tool::ReadPatternText(pattern);
    for (std::size_t position = 0; position < tokens.size(); ++position) {
      ASSERT_EQ(static_cast<int>(tokens[position].Kind), owned[position]._Type) << pattern << " at " << position;
      if (tokens[position].Kind == tool::PatternKind::Literal) {
        ASSERT_EQ(tokens[position].Text, owned[position]._Text.Bytes()) << pattern;
      }
    }
    ASSERT_EQ(owned[tokens.size()]._Type, 7) << pattern;
  }
}

TEST(PatternText, KeepsTheSource) {
  const auto tokens = tool::ReadPatternText("\"GR\"%[1,80](|$[-2, 5]|\"\")\xC3\xA4");
  std::vector<std::string> sources;
  for (const auto& token : tokens) sources.push_back(token.Source);
  EXPECT_EQ(sources,
            (std::vector<std::string>{"\"GR\"", "%[1,80]", "(", "|", "$[-2, 5]", "|", "\"\"", ")", "\xC3\xA4"}));
  EXPECT_EQ(tokens[1].Min, 1);
  EXPECT_EQ(tokens[1].Max, 80);
  EXPECT_EQ(tokens[4].Min, -2);
  EXPECT_EQ(tokens[4].Max, 5);
}

}  // namespace
