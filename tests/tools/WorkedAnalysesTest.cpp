// The worked examples in examples/worked, computed by the tool, against their published totals; and the model in
// examples/model, computed by hand.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>

#include "tests/tools/ToolRun.h"

namespace {

const std::string examples = TEST_SOURCE_DIR "/../examples";

nlohmann::json Calc(const std::string& path) {
  const ToolOutcome outcome = RunInProcess({"calc", examples + "/" + path, "--json", "--catalogue", CATALOGUE_FOLDER});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  EXPECT_EQ(outcome.Errors, "");
  return nlohmann::json::parse(outcome.Output);
}

// The total that calc writes in a unit.
double TotalIn(const std::string& path, const std::string& unit) {
  const ToolOutcome outcome =
      RunInProcess({"calc", examples + "/" + path, "--csv", "--unit", unit, "--catalogue", CATALOGUE_FOLDER});
  std::istringstream lines(outcome.Output);
  std::string total;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t kind = line.find(",total,,,,,,,");
    if (kind != std::string::npos) total = line.substr(kind + 13);
  }
  return std::stod(total);
}

struct WorkedAnalysis {
  const char* name;
  const char* file;
  const char* unit;  // in which the total is published, beside seconds
  double total;
  double seconds;
};

class WorkedAnalysesTest : public testing::TestWithParam<WorkedAnalysis> {};

// Exact to the last bit: calc writes the number that reads as its decimals.
TEST_P(WorkedAnalysesTest, HaveThePublishedTotals) {
  const std::string file = "worked/" + std::string(GetParam().file) + ".csv";
  EXPECT_EQ(TotalIn(file, GetParam().unit), GetParam().total);
  EXPECT_EQ(TotalIn(file, "s"), GetParam().seconds);
  const nlohmann::json analysis = Calc(file);
  EXPECT_EQ(analysis["complete"], true);
  EXPECT_EQ(analysis["totals"]["total"]["seconds"].get<double>(), GetParam().seconds);
}

// BasicMOST: ten times the sum of the indexes; MiniMOST: once the sum. 1 MOD is 0.129 s, 1 TMU 0.036 s.
INSTANTIATE_TEST_SUITE_P(Published, WorkedAnalysesTest,
                         testing::Values(WorkedAnalysis{"GeneralMoveFar", "most-general-move-far", "tmu", 280, 10.08},
                                         WorkedAnalysis{"GeneralMoveNear", "most-general-move-near", "tmu", 200, 7.20},
                                         WorkedAnalysis{"GeneralMoveAdjust", "most-general-move-adjust", "tmu", 170,
                                                        6.12},
                                         WorkedAnalysis{"ControlledMove", "most-controlled-move", "tmu", 140, 5.04},
                                         WorkedAnalysis{"ToolUse", "most-tool-use", "tmu", 180, 6.48},
                                         WorkedAnalysis{"ThreeTimes", "most-three-times", "tmu", 180, 6.48},
                                         WorkedAnalysis{"ProcessTime", "most-process-time", "tmu", 190, 6.84},
                                         WorkedAnalysis{"MiniMost", "minimost-general-move", "tmu", 28, 1.008},
                                         WorkedAnalysis{"WalkBendPlace", "modapts-walk-bend-place", "mod", 72, 9.288},
                                         WorkedAnalysis{"PrecisePut", "modapts-precise-put", "mod", 16, 2.064},
                                         WorkedAnalysis{"GetAndPut", "modapts-get-and-put", "mod", 10, 1.290},
                                         WorkedAnalysis{"ReachAndGrasp", "mtm1-reach-and-grasp", "tmu", 17.6, 0.6336},
                                         WorkedAnalysis{"FetchAndPlace", "mtm1-fetch-and-place", "tmu", 45.1, 1.6236},
                                         WorkedAnalysis{"SingleMotions", "mtm1-single-motions", "tmu", 100.8, 3.6288},
                                         WorkedAnalysis{"Crank", "mtm1-crank", "tmu", 39.1, 1.4076},
                                         WorkedAnalysis{"EnteredTime", "entered-time", "tmu", 830, 29.88},
                                         WorkedAnalysis{"NormalTime", "normal-time", "tmu", 800, 28.8},
                                         WorkedAnalysis{"TimeWithAllowance", "time-with-allowance", "tmu", 920, 33.12}),
                         [](const auto& row) { return std::string(row.param.name); });

struct PublishedLines {
  const char* name;
  const char* file;
  const char* unit;  // "tmu" or "seconds"
  std::vector<double> totals;
};

class PublishedLinesTest : public testing::TestWithParam<PublishedLines> {};

TEST_P(PublishedLinesTest, StandLineByLine) {
  const nlohmann::json analysis = Calc("worked/" + std::string(GetParam().file) + ".csv");
  std::vector<double> totals;
  for (const nlohmann::json& line : analysis["lines"]) totals.push_back(line["total"][GetParam().unit].get<double>());
  EXPECT_EQ(totals, GetParam().totals);
}

INSTANTIATE_TEST_SUITE_P(
    Published, PublishedLinesTest,
    testing::Values(
        PublishedLines{"Modapts", "modapts-walk-bend-place", "seconds", {2.580, 2.193, 0.387, 0.645, 3.225, 0.258}},
        PublishedLines{"Mtm1", "mtm1-single-motions", "tmu", {15.6, 13.6, 13.0, 12.8, 31.1, 9.1, 5.6, 0.0}},
        PublishedLines{"ProcessTime", "most-process-time", "tmu", {30, 160}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(WorkedAnalyses, CountTheProcessTimeAsMachineTime) {
  const nlohmann::json totals = Calc("worked/most-process-time.csv")["totals"];
  EXPECT_EQ(totals["human"]["tmu"], 30.0);
  EXPECT_EQ(totals["machine"]["tmu"], 160.0);
}

struct ModelAnalysis {
  const char* name;
  const char* identifier;
  double seconds;
};

class ExampleModelTest : public testing::TestWithParam<ModelAnalysis> {};

TEST_P(ExampleModelTest, HasTheTotalsComputedByHand) {
  const ToolOutcome outcome = RunInProcess({"calc", examples + "/model", "--json", "--catalogue", CATALOGUE_FOLDER});
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  std::istringstream lines(outcome.Output);
  std::set<std::string> met;
  for (std::string line; std::getline(lines, line);) {
    const nlohmann::json analysis = nlohmann::json::parse(line);
    met.insert(analysis["identifier"].get<std::string>());
    if (analysis["identifier"] != GetParam().identifier) continue;
    EXPECT_NEAR(analysis["totals"]["total"]["seconds"].get<double>(), GetParam().seconds, 1e-6);
  }
  EXPECT_EQ(met.size(), 5u);
  EXPECT_EQ(met.count(GetParam().identifier), 1u);
}

constexpr double TakeScrew = (14.1 + 9.1 + 11.7 + 16.2 + 2.0) * 0.036;
constexpr double HandleDriver = (12.8 + 2.0 + 15.1 + 13.3 + 2.0) * 0.036;
constexpr double RunDriver = 0.016 / 0.0008 / 10.0;  // 20 turns at 10 turns a second
constexpr double RunDriverFor20 = 0.020 / 0.0008 / 10.0;
constexpr double Look = 7.3 * 0.036;
constexpr double FastenCover = TakeScrew + HandleDriver + RunDriver + Look;
constexpr double SecondScrew = FastenCover - RunDriver + RunDriverFor20;

INSTANTIATE_TEST_SUITE_P(Levels, ExampleModelTest,
                         testing::Values(ModelAnalysis{"TakeScrew", "parts/take-screw", TakeScrew},
                                         ModelAnalysis{"DriveScrewWithAFormula", "parts/drive-screw",
                                                       HandleDriver + RunDriver},
                                         ModelAnalysis{"FastenCoverReusesBoth", "op10/fasten-cover", FastenCover},
                                         ModelAnalysis{"AssembleHousingReusesThat", "op10/assemble-housing",
                                                       0.01 * 180 + (14 + 26) * 0.036 + FastenCover + SecondScrew},
                                         ModelAnalysis{"Pack", "op20/pack", (6 + 7 + 2 * 9 + 6 * 5) * 0.129 + 4.5}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
