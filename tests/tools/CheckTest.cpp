// The flaws that a check finds in patterns, and the shipped catalogue, which has none.
#include <gtest/gtest.h>

#include "tests/tools/ToolRun.h"
#include "tools/PatternText.h"
#include "tools/check/PatternFlaws.h"
#include "tools/check/SampleCodes.h"

namespace {

struct FlawRow {
  const char* name;
  const char* pattern;
  std::string flaw;  // start of the first flaw; empty: none
  bool sam = false;
};

class PatternFlawTest : public testing::TestWithParam<FlawRow> {};

TEST_P(PatternFlawTest, IsTold) {
  const auto flaws = tool::FindPatternFlaws(tool::ReadPatternText(GetParam().pattern), GetParam().sam);
  if (GetParam().flaw.empty()) {
    EXPECT_TRUE(flaws.empty()) << flaws.front().Text;
  } else {
    ASSERT_FALSE(flaws.empty());
    EXPECT_EQ(flaws.front().Text.substr(0, GetParam().flaw.size()), GetParam().flaw);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PatternFlawTest,
    testing::Values(
        FlawRow{"Sound", "\"M\"(|\"AB\"|\"A\"|\"\")%[1,80]$", ""}, FlawRow{"BlankAtTheEnd", "\"A\" \n", ""},
        FlawRow{"BlankAhead", " \"A\"", ""},
        FlawRow{"BlankBetween", "\"A\" \"B\"", "a blank or a line break ahead of \"B\""},
        FlawRow{"UnknownToken", "\"A\"x", "x at position 1 begins no token"},
        FlawRow{"GroupNotClosed", "(|\"A\"", "the group opened at position 0 is not closed"},
        FlawRow{"GroupsNotClosed", "((\"A\"", "the group opened at position 1 is not closed, nor are 1 around it"},
        FlawRow{"GroupNotOpened", "\"A\")", "\")\" at position 1 closes no group"},
        FlawRow{"LiteralNotClosed", "\"A", "the literal \"A at position 0 lacks its closing quote"},
        FlawRow{"RangeNotClosed", "%[1,2", "the range of %[1,2 at position 0 lacks"},
        FlawRow{"RangeWithoutComma", "%[1]", "the range of %[1] at position 0 has no comma"},
        FlawRow{"BoundNotRead", "$[a,2]", "a bound of $[a,2] at position 0 is no whole number"},
        FlawRow{"BoundWithFraction", "$[0.5,2]", "a bound of $[0.5,2] at position 0 is no whole number"},
        FlawRow{"BoundsSwapped", "%[2,1]", "the lower bound of %[2,1] at position 0 is above"},
        FlawRow{"LowerCase", "\"a\"", "the literal \"a\" at position 0 has lower case letters"},
        FlawRow{"BlankInLiteral", "\"A B\"", "the literal \"A B\" at position 0 has a blank"},
        FlawRow{"NoMarkAhead", "(\"A\"|\"B\")", "the mark | has to stand ahead of the first alternative too"},
        FlawRow{"EarlierPrefix", "(|\"A\"|\"AB\")", "the alternative \"AB\" at position 4 is never reached"},
        FlawRow{"TwoInOneAlternative", "(|\"A\"%|\"B\")", "% at position 3 is an alternative of its own"},
        FlawRow{"GroupInAnAlternative", "(|(\"A\"%)|\"B\")", ""}, FlawRow{"PrefixInSam", "(|\"A\"|\"AB\")", "", true},
        FlawRow{"SameInSam", "(|\"A\"|\"A\")", "the alternative \"A\" at position 4 is never reached", true},
        FlawRow{"PlusInSam", "\"A+B\"", "the literal \"A+B\" at position 0 has a \"+\"", true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PatternFlaws, EndOnAnyDepth) {
  const std::string deep = std::string(100000, '(') + "\"A\"" + std::string(100000, ')');
  EXPECT_TRUE(tool::FindPatternFlaws(tool::ReadPatternText(deep), false).empty());
}

TEST(SampleCodes, TakeEachAlternativeInTurn) {
  tool::SampleCodes samples(tool::ReadPatternText("\"M\"(|\"A\"|\"B\")%[3,3](|\"X\"|\"\")"), false);
  EXPECT_EQ(samples.RoundsInTurn(), 2u);
  EXPECT_EQ(samples.Build(0), "MA3X");
  EXPECT_EQ(samples.Build(1), "MB3");
}

TEST(SampleCodes, JoinPartsInSam) {
  tool::SampleCodes samples(tool::ReadPatternText("\"X\"(|\"Y\"|\"Z\")"), true);
  EXPECT_EQ(samples.Build(1), "X+Z");
}

TEST(ShippedCatalogue, HasNoFindings) {
  const ToolOutcome outcome = RunInProcess({"catalogue", "check", CATALOGUE_FOLDER});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Output;
  EXPECT_EQ(outcome.Errors, "");
  EXPECT_NE(outcome.Output.find(" no findings\n"), std::string::npos) << outcome.Output;
}

}  // namespace
