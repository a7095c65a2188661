// Worked examples of the motion-time systems with published totals, as far as single codes and their sums go.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/ShippedCatalogue.h"

namespace {

// One code and how often it occurs.
struct Line {
  const char* code;
  int frequency;
  double time;  // TMU of the code alone
};

struct WorkedExample {
  const char* name;
  const char* system;
  std::vector<Line> lines;
  double tmu;
  double seconds;
};

class WorkedExamplesTest : public support::ShippedCatalogueSession,
                           public testing::WithParamInterface<WorkedExample> {};

TEST_P(WorkedExamplesTest, TotalsAreThePublishedOnes) {
  const WorkedExample& example = GetParam();
  VEXSTMTimeAnalysisDlgServices services;
  LoadSystem(services, example.system);
  double total = 0.0;
  for (const Line& line : example.lines) {
    const double time = support::NumberOf(support::TimeOf(services, line.code));
    EXPECT_FALSE(services.GetTACodeID().IsEmpty()) << line.code;
    // The lookup prints six significant digits.
    EXPECT_NEAR(time, line.time, 5e-4) << line.code;
    total += line.frequency * time;
  }
  EXPECT_NEAR(total, example.tmu, 5e-3);
  EXPECT_NEAR(services.UnitConvertor(total, 0, 4), example.seconds, 2e-4);
}

const auto Name = [](const testing::TestParamInfo<WorkedExample>& row) { return std::string(row.param.name); };

// The index stands in the code: ten times the sum of the indexes in TMU for BasicMOST, once for MiniMOST.
INSTANTIATE_TEST_SUITE_P(
    MostFamily, WorkedExamplesTest,
    testing::Values(WorkedExample{"GeneralMoveWithBend", "MOST", {{"A10B6G1A10B0P1A0", 1, 280}}, 280, 10.08},
                    WorkedExample{"GeneralMoveThreeSteps", "MOST", {{"A6B6G1A6B0P1A0", 1, 200}}, 200, 7.20},
                    WorkedExample{"GeneralMoveWithAdjustment", "MOST", {{"A6B6G1A1B0P3A0", 1, 170}}, 170, 6.12},
                    WorkedExample{"ControlledMove", "MOST", {{"A6B0G1M1X6I0A0", 1, 140}}, 140, 5.04},
                    WorkedExample{"ToolUse", "MOST", {{"A1B0G1A1B0P3F10A1B0P1A0", 1, 180}}, 180, 6.48},
                    WorkedExample{"GeneralMoveThreeTimes", "MOST", {{"A1B0G1A1B0P3A0", 3, 60}}, 180, 6.48},
                    WorkedExample{"ControlledMoveWithProcessTime", "MOST", {{"A1B0G1M1X16I0A0", 1, 190}}, 190, 6.84},
                    WorkedExample{"MiniMostGeneralMove", "MiniMOST", {{"A6B0G6A10B0P6A0", 1, 28}}, 28, 1.008}),
    Name);

// 1 MOD is 0.129 s, which is 3.58333 TMU.
constexpr double Mod = 0.129 / 0.036;

INSTANTIATE_TEST_SUITE_P(
    Modapts, WorkedExamplesTest,
    testing::Values(WorkedExample{"WalkBendAndPlace",
                                  "MODAPTS",
                                  {{"W5", 4, 5 * Mod},
                                   {"B17", 1, 17 * Mod},
                                   {"G3", 1, 3 * Mod},
                                   {"M5", 1, 5 * Mod},
                                   {"W5", 5, 5 * Mod},
                                   {"P2", 1, 2 * Mod}},
                                  72 * Mod,
                                  9.288},
                    WorkedExample{"PreciseAssembly",
                                  "MODAPTS",
                                  {{"M4G1", 1, 5 * Mod}, {"M4P5", 1, 9 * Mod}, {"E2", 1, 2 * Mod}},
                                  16 * Mod,
                                  2.064},
                    WorkedExample{
                        "GetAndPut", "MODAPTS", {{"M4G1", 1, 5 * Mod}, {"M3P2", 1, 5 * Mod}}, 10 * Mod, 1.290}),
    Name);

// Metric card; the rows of single motions include reaches between and beyond the columns of the card.
INSTANTIATE_TEST_SUITE_P(
    Mtm1, WorkedExamplesTest,
    testing::Values(WorkedExample{"ReachAndGrasp", "MTM1", {{"R40B", 1, 15.6}, {"G1A", 1, 2.0}}, 17.6, 0.6336},
                    WorkedExample{
                        "FetchAndPlace",
                        "MTM1",
                        {{"R30C", 1, 14.1}, {"G4C", 1, 12.9}, {"M20B", 1, 10.5}, {"P1SE", 1, 5.6}, {"RL1", 1, 2.0}},
                        45.1,
                        1.6236},
                    WorkedExample{"SingleMotions",
                                  "MTM1",
                                  {{"R40B", 1, 15.6},
                                   {"R28C", 1, 13.6},
                                   {"R26D", 1, 13.0},
                                   {"R30B", 1, 12.8},
                                   {"R95B", 1, 31.1},
                                   {"G4B", 1, 9.1},
                                   {"G2", 1, 5.6},
                                   {"G5", 1, 0.0}},
                                  100.8,
                                  3.6288},
                    WorkedExample{"ThreeRevolutionsOfACrank", "MTM1", {{"3C10", 1, 39.1}}, 39.1, 1.4076}),
    Name);

struct LineSeconds {
  const char* name;
  const char* code;
  int frequency;
  double seconds;
};

class ModaptsLineTest : public support::ShippedCatalogueSession, public testing::WithParamInterface<LineSeconds> {};

TEST_P(ModaptsLineTest, SecondsAreThePublishedOnes) {
  VEXSTMTimeAnalysisDlgServices services;
  LoadSystem(services, "MODAPTS");
  const double time = GetParam().frequency * support::NumberOf(support::TimeOf(services, GetParam().code));
  EXPECT_DOUBLE_EQ(services.UnitConvertor(time, 0, 3), GetParam().seconds);
  EXPECT_DOUBLE_EQ(services.UnitConvertor(time, 14, 2) * 129, services.RoundOffTimeValue(GetParam().seconds * 1000, 0));
}

INSTANTIATE_TEST_SUITE_P(
    WalkBendAndPlace, ModaptsLineTest,
    testing::Values(LineSeconds{"FourPaces", "W5", 4, 2.580}, LineSeconds{"BendAndArise", "B17", 1, 2.193},
                    LineSeconds{"ComplexGrasp", "G3", 1, 0.387}, LineSeconds{"MoveOfTheShoulder", "M5", 1, 0.645},
                    LineSeconds{"FivePaces", "W5", 5, 3.225}, LineSeconds{"PutWithOneLook", "P2", 1, 0.258}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
