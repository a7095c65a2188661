// The way up from an analysis to all that reuse it, and the names near a mistyped one.
#include "tools/impact/ImpactClimb.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tools/impact/NearestNames.h"

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

struct ClimbRow {
  const char* name;
  std::vector<std::vector<std::size_t>> reused;  // by analysis, by row
  std::size_t start;
  std::vector<std::pair<std::size_t, int>> steps;  // analysis and level
};

class ClimbTest : public testing::TestWithParam<ClimbRow> {};

TEST_P(ClimbTest, VisitsLowerLevelsFirst) {
  std::vector<std::pair<std::size_t, int>> steps;
  for (const tool::ClimbStep& step : tool::ClimbFrom(GetParam().start, GetParam().reused, none)) {
    steps.emplace_back(step.Analysis, step.Level);
  }
  EXPECT_EQ(steps, GetParam().steps);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ClimbTest,
    testing::Values(ClimbRow{"NothingReusesIt", {{}, {none}}, 0, {}}, ClimbRow{"OneRow", {{}, {0}}, 0, {{1, 1}}},
                    ClimbRow{"TwoRows", {{}, {0, none, 0}}, 0, {{1, 1}}},
                    ClimbRow{"Chain", {{}, {0}, {1}}, 0, {{1, 1}, {2, 2}}},
                    ClimbRow{"FromTheMiddleOfAChain", {{}, {0}, {1}}, 1, {{2, 1}}},
                    ClimbRow{"Diamond", {{}, {0}, {0}, {1, 2}}, 0, {{1, 1}, {2, 1}, {3, 2}}},
                    ClimbRow{"LevelIsTheLongestWay", {{}, {0}, {1}, {0, 2}}, 0, {{1, 1}, {2, 2}, {3, 3}}},
                    ClimbRow{"LowerLevelsFirst", {{}, {0}, {1}, {0}}, 0, {{1, 1}, {3, 1}, {2, 2}}},
                    ClimbRow{"OthersAreNotTouched", {{}, {}, {1}, {0}}, 0, {{3, 1}}}),
    [](const auto& row) { return std::string(row.param.name); });

struct NearestRow {
  const char* name;
  const char* typed;
  std::vector<std::string> names;
  std::vector<std::string> nearest;
};

class NearestNamesTest : public testing::TestWithParam<NearestRow> {};

TEST_P(NearestNamesTest, AreTheNearestFirst) {
  EXPECT_EQ(tool::NearestNames(GetParam().typed, GetParam().names), GetParam().nearest);
}

const std::string long_name(100, 'x');

INSTANTIATE_TEST_SUITE_P(
    Rows, NearestNamesTest,
    testing::Values(NearestRow{"None", "grip", {"walk", "place"}, {}},
                    NearestRow{"OneStroke", "grib", {"grip", "walk"}, {"grip"}},
                    NearestRow{"ByStrokes", "abcdef", {"abcxyf", "abcdeg"}, {"abcdeg", "abcxyf"}},
                    NearestRow{"FourStrokesAreTooFar", "abcdefgh", {"abcdwxyz"}, {}},
                    NearestRow{"SameNameInAFolder", "screw", {"parts/screw", "scre"}, {"parts/screw", "scre"}},
                    NearestRow{"OtherFolder", "pars/screw", {"parts/screw"}, {"parts/screw"}},
                    NearestRow{"AtMostFive", "aa", {"a", "ab", "ac", "ad", "ae", "af"}, {"a", "ab", "ac", "ad", "ae"}},
                    NearestRow{"NonAscii", "Grösse", {"Größe", "Maße"}, {"Größe"}},
                    NearestRow{"LongNames", long_name.c_str(), {long_name + "y", "y"}, {long_name + "y"}},
                    NearestRow{"Empty", "", {"a", "ab", "abc/"}, {"a"}}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
