// Tests of the yardstick for the totals of whole analyses, on lines written down and on random models.
#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "CalculationOracle.h"
#include "OracleAnalysis.h"
#include "tests/support/AnalysisDescription.h"
#include "tests/support/RandomAnalysis.h"
#include "tests/support/ToyEngine.h"

namespace oracle {
namespace {

using support::ToyEngine;

// ---- The whole analysis ----

class AnalyzedTimeTest : public testing::Test {
 protected:
  ToyEngine _Engine;
};

TEST_F(AnalyzedTimeTest, AnEmptyAnalysisHasTenZeros) {
  Analysis analysis = AnalysisOf("A", {});
  EXPECT_EQ(AnalyzedTime(&analysis, 0.0, _Engine), 0);
  for (const char* key : {"TTBCalculated", "TTUCalculated", "TWCalculated", "TRGCalculated", "TotalCalculated",
                          "V_HumanTime", "V_MachineTime", "V_WaitingTime", "V_SetupTime", "V_TotalTime"}) {
    EXPECT_EQ(RealAttribute(analysis, key), 0.0) << key;
  }
  EXPECT_EQ(analysis.attributes.size(), 10U);
}

TEST_F(AnalyzedTimeTest, MissingInterfacesFailWithNothingChanged) {
  EXPECT_EQ(AnalyzedTime(nullptr, 0.0, _Engine), -2147467259L);
  Analysis analysis = AnalysisOf("A", {LineOf({})});
  analysis.offers_rep_reference = false;
  EXPECT_EQ(AnalyzedTime(&analysis, 0.0, _Engine), CalculationFailed);
  analysis.offers_rep_reference = true;
  analysis.offers_lines = false;
  EXPECT_EQ(AnalyzedTime(&analysis, 0.0, _Engine), CalculationFailed);
  EXPECT_TRUE(analysis.attributes.empty());
}

TEST_F(AnalyzedTimeTest, APlainLineInTmuAndSeconds) {
  Analysis analysis =
      AnalysisOf("A", {LineOf({{"TimeType", Text("TTB")}, {"TTBTime", 0.36}, {"TotalTime", 0.72}, {"Factor", 2.0}})});
  const std::string before = support::Describe(analysis.lines[0]);
  EXPECT_EQ(AnalyzedTime(&analysis, 0.0, _Engine), 0);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "TTBCalculated"), 20.0);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "TotalCalculated"), 20.0);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "V_HumanTime"), 0.72);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "V_TotalTime"), 0.72);
  EXPECT_EQ(RealAttribute(analysis, "V_MachineTime"), 0.0);
  EXPECT_EQ(support::Describe(analysis.lines[0]), before);
}

struct SumCase {
  const char* name;
  const char* time_type;
  const char* key;
  const char* tmu_attribute;
  const char* seconds_attribute;
};
void PrintTo(const SumCase& row, std::ostream* out) {
  *out << row.name;
}
class SumTest : public testing::TestWithParam<SumCase> {};
TEST_P(SumTest, TakesTheKeyOfItsType) {
  Analysis analysis =
      AnalysisOf("A", {LineOf({{"TimeType", Text(GetParam().time_type)}, {GetParam().key, 0.3}, {"Factor", 2.0}})});
  ToyEngine engine;
  AnalyzedTime(&analysis, 2000.0, engine);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, GetParam().tmu_attribute), 20.0);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, GetParam().seconds_attribute), 0.6);
  EXPECT_EQ(RealAttribute(analysis, "TotalCalculated"), 0.0);
}
INSTANTIATE_TEST_SUITE_P(Types, SumTest,
                         testing::Values(SumCase{"Ttb", "TTB", "TTBTime", "TTBCalculated", "V_HumanTime"},
                                         SumCase{"Stars", "T**", "TTBTime", "TTBCalculated", "V_HumanTime"},
                                         SumCase{"Ttu", "TTU", "TTUTime", "TTUCalculated", "V_MachineTime"},
                                         SumCase{"Tw", "TW", "TWTime", "TWCalculated", "V_WaitingTime"},
                                         SumCase{"Trg", "TRG", "TRGTime", "TRGCalculated", "V_SetupTime"}),
                         NameOf<testing::TestParamInfo<SumCase>>);

TEST_F(AnalyzedTimeTest, AnUnknownTypeCountsInTheTotalOnly) {
  Analysis analysis =
      AnalysisOf("A", {LineOf({{"TimeType", Text("TX")}, {"TTBTime", 0.36}, {"TotalTime", 0.72}, {"Factor", 2.0}})});
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(RealAttribute(analysis, "TTBCalculated"), 0.0);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "TotalCalculated"), 20.0);
}

TEST_F(AnalyzedTimeTest, TheMarkerOfAMissingTotalAddsNothing) {
  Analysis analysis = AnalysisOf(
      "A", {LineOf({{"TimeType", Text("TTB")}, {"TTBTime", -0.036}, {"TotalTime", -0.036}, {"Factor", 1.0}})});
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(RealAttribute(analysis, "TotalCalculated"), 0.0);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "TTBCalculated"), -1.0);
}

TEST_F(AnalyzedTimeTest, AMissingFrequencyIsThatOfTheCountedLineBefore) {
  const std::map<std::string, KeyValue> bare = {{"TimeType", Text("TTB")}, {"TTBTime", 0.036}};
  auto with = [&bare](double factor, const char* code) {
    std::map<std::string, KeyValue> values = bare;
    values["Factor"] = factor;
    values["Code"] = Text(code);
    return LineOf(values);
  };
  Analysis analysis = AnalysisOf("A", {LineOf(bare), with(3.0, "A1"), with(9.0, "*"), with(9.0, ""), LineOf(bare),
                                       with(-7.0, "A1"), LineOf(bare)});
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "TTBCalculated"), 0.0 + 3.0 + 3.0 + 1.0 + 1.0);
}

Line FormulaLine(const char* body, std::map<std::string, KeyValue> values) {
  Line line = LineOf(std::move(values));
  line.parameters.emplace_back(ParameterOf("A", "1", "Time", body));
  return line;
}

TEST_F(AnalyzedTimeTest, AStarLineIsNeitherStoredNorCounted) {
  Analysis analysis = AnalysisOf("A", {FormulaLine("Time = 0.36", {{"Code", Text("*")}, {"TTBTime", 0.5}})});
  const std::string before = support::Describe(analysis.lines[0]);
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(support::Describe(analysis.lines[0]), before);
  EXPECT_EQ(RealAttribute(analysis, "TotalCalculated"), 0.0);
  EXPECT_EQ(_Engine.Runs(), 0);
}

TEST_F(AnalyzedTimeTest, AFormulaLineWithoutCodeIsEvaluatedButNotStored) {
  Analysis analysis = AnalysisOf("A", {FormulaLine("Time = 0.36", {{"Code", Text("")}, {"TTBTime", 0.5}})});
  const std::string before = support::Describe(analysis.lines[0]);
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(support::Describe(analysis.lines[0]), before);
  EXPECT_EQ(RealAttribute(analysis, "TotalCalculated"), 0.0);
  EXPECT_EQ(_Engine.Runs(), 1);
}

TEST_F(AnalyzedTimeTest, TheMarkerOfAMissingFrequencyIsWrittenBackAsOne) {
  Analysis analysis = AnalysisOf("A", {FormulaLine("Time = 0.36", {{"Factor", -1.0}})});
  AnalyzedTime(&analysis, 0.0, _Engine);
  const Line& line = analysis.lines[0];
  EXPECT_EQ(RealKey(line, "Factor"), 1.0);
  EXPECT_EQ(TextKey(line, "FrequencyString"), "1");
  EXPECT_EQ(TextKey(line, "TimeType"), "TTB");
  EXPECT_EQ(RealKey(line, "TTBTime"), 0.36);
  EXPECT_EQ(RealKey(line, "TotalTime"), 0.36);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "TTBCalculated"), 10.0);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "TotalCalculated"), 10.0);
  EXPECT_EQ(line.parameters.size(), 1U);
}

TEST_F(AnalyzedTimeTest, TheMarkerOnAPlainLineCountsAsOneAndStays) {
  Analysis analysis = AnalysisOf("A", {LineOf({{"TimeType", Text("TTB")}, {"TTBTime", 0.36}, {"Factor", -1.0}})});
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(RealKey(analysis.lines[0], "Factor"), -1.0);
  EXPECT_DOUBLE_EQ(RealAttribute(analysis, "TTBCalculated"), 10.0);
}

struct FormulaTypeCase {
  const char* name;
  const char* time_type;
  const char* key;  // the key that takes the time; null: none does
};
void PrintTo(const FormulaTypeCase& row, std::ostream* out) {
  *out << row.name;
}
class FormulaTypeTest : public testing::TestWithParam<FormulaTypeCase> {};
TEST_P(FormulaTypeTest, TheTimeStandsUnderTheKeyOfItsType) {
  Analysis analysis =
      AnalysisOf("A", {FormulaLine("Time = 0.36", {{"TimeType", Text(GetParam().time_type)}, {"Factor", 2.0}})});
  ToyEngine engine;
  AnalyzedTime(&analysis, 0.0, engine);
  for (const char* key : {"TTBTime", "TTUTime", "TWTime", "TRGTime"}) {
    const bool written = GetParam().key != nullptr && Text(key) == GetParam().key;
    EXPECT_EQ(RealKey(analysis.lines[0], key), written ? 0.36 : -777.0) << key;
  }
  EXPECT_EQ(RealKey(analysis.lines[0], "TotalTime"), GetParam().key != nullptr ? 0.72 : -777.0);
}
INSTANTIATE_TEST_SUITE_P(
    Types, FormulaTypeTest,
    testing::Values(FormulaTypeCase{"Empty", "", "TTBTime"}, FormulaTypeCase{"Ttb", "TTB", "TTBTime"},
                    FormulaTypeCase{"Stars", "T**", "TTBTime"}, FormulaTypeCase{"Ttu", "TTU", "TTUTime"},
                    FormulaTypeCase{"Tw", "TW", "TWTime"}, FormulaTypeCase{"Trg", "TRG", "TRGTime"},
                    FormulaTypeCase{"Unknown", "TX", nullptr}),
    NameOf<testing::TestParamInfo<FormulaTypeCase>>);

TEST_F(AnalyzedTimeTest, AFormulaThatYieldsNothingLeavesTheStoredTtbTime) {
  Analysis analysis = AnalysisOf(
      "A", {FormulaLine("Time = 0", {{"TimeType", Text("TW")}, {"TTBTime", 0.72}, {"TWTime", 9.0}, {"Factor", 2.0}})});
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(RealKey(analysis.lines[0], "TWTime"), 0.72);
  EXPECT_EQ(RealKey(analysis.lines[0], "TotalTime"), 1.44);
}

TEST_F(AnalyzedTimeTest, AFormulaThatYieldsNothingBesideAReusedAnalysisGivesZero) {
  Analysis below = AnalysisOf("B", {});
  Line line = FormulaLine("Time = 0", {{"TimeType", Text("TTB")}, {"TTBTime", 0.72}, {"Factor", 2.0}});
  line.reused = &below;
  Analysis analysis = AnalysisOf("A", {line});
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(RealKey(analysis.lines[0], "TTBTime"), 0.0);
  EXPECT_EQ(RealKey(analysis.lines[0], "TotalTime"), 0.0);
}

TEST_F(AnalyzedTimeTest, FrequencyAndDescriptionComeFromTheOwnFormula) {
  Line line = LineOf({{"TimeType", Text("TTB")}, {"Factor", 5.0}, {"Description", Text("old")}});
  for (const char* name : {"Time", "Frequency", "Description"}) {
    FormulaParameter parameter = ParameterOf("A", "1", name, "Time = 4; Frequency = 3; Description = \"new\"");
    parameter.signature = "out Time : Time, out Frequency : Real, out Description : String";
    parameter.value_type = name == Text("Description") ? "String" : "Real";
    parameter.value_text = "";
    line.parameters.emplace_back(parameter);
  }
  Analysis analysis = AnalysisOf("A", {line});
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(_Engine.Runs(), 1);
  EXPECT_EQ(RealKey(analysis.lines[0], "TTBTime"), 4.0);
  EXPECT_EQ(RealKey(analysis.lines[0], "TotalTime"), 12.0);
  EXPECT_EQ(RealKey(analysis.lines[0], "Factor"), 3.0);
  EXPECT_EQ(TextKey(analysis.lines[0], "FrequencyString"), "3");
  EXPECT_EQ(TextKey(analysis.lines[0], "Description"), "new");
}

TEST_F(AnalyzedTimeTest, WithoutPropertiesEveryFormulaIsOfAnotherAnalysis) {
  Line line = LineOf({{"TimeType", Text("TTB")}, {"Factor", 5.0}});
  line.parameters.emplace_back(ParameterOf("A", "1", "Frequency", "Frequency = 3"));
  Analysis analysis = AnalysisOf("A", {line});
  analysis.offers_properties = false;
  AnalyzedTime(&analysis, 0.0, _Engine);
  EXPECT_EQ(RealKey(analysis.lines[0], "Factor"), 5.0);
}

// ---- Random models ----

// Tame: earlier analyses are reused and numbers are numbers. Wild: cycles, no numbers and infinities, and bars in
// identifiers as well.
class RandomModelTest : public testing::TestWithParam<bool> {
 protected:
  static support::RandomAnalysisOptions Options() {
    support::RandomAnalysisOptions options;
    options.cycles = GetParam();
    options.odd_numbers = GetParam();
    options.unknown_magnitudes = GetParam();
    options.barred_identifiers = GetParam();
    return options;
  }
};

// The sum in TMU over one time type, or over all if there is none, of the lines as they are stored.
double SumOfStoredLines(const Analysis& analysis, const std::string& type, const char* key, double seconds_per_tmu) {
  double sum = 0.0;
  double factor = 0.0;
  for (const Line& line : analysis.lines) {
    std::string code;
    std::string time_type;
    double seconds = 0.0;
    ReadKey(line.values, "Code", code);
    ReadKey(line.values, "TimeType", time_type);
    ReadKey(line.values, key, seconds);
    if (code.empty() || code == "*") continue;
    ReadKey(line.values, "Factor", factor);
    if (factor < 0.0) factor = 1.0;
    if (type.empty()) {
      sum += (seconds < 0.0 ? 0.0 : seconds) / seconds_per_tmu;
    } else if (time_type == type || (type == "TTB" && time_type == "T**")) {
      sum += seconds / seconds_per_tmu * factor;
    }
  }
  return sum;
}

TEST_P(RandomModelTest, TotalsAreTheSumsOverTheStoredLines) {
  ToyEngine engine;
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE(seed);
    support::RandomAnalysis random(seed, Options());
    const support::RandomModel model = random.Draw();
    Analysis& top = *model.analyses.back();
    ASSERT_EQ(AnalyzedTime(&top, model.tmu_per_minute, engine), 0);
    const double tmu = SecondsPerTmu(model.tmu_per_minute);
    const auto expect_sum = [&top, tmu](const char* type, const char* key, const char* in_tmu, const char* in_seconds) {
      const double sum = SumOfStoredLines(top, type, key, tmu);
      EXPECT_EQ(support::Digits(RealAttribute(top, in_tmu)), support::Digits(sum)) << in_tmu;
      EXPECT_EQ(support::Digits(RealAttribute(top, in_seconds)), support::Digits(RoundOff(tmu * sum, 6.0)))
          << in_seconds;
    };
    expect_sum("TTB", "TTBTime", "TTBCalculated", "V_HumanTime");
    expect_sum("TTU", "TTUTime", "TTUCalculated", "V_MachineTime");
    expect_sum("TW", "TWTime", "TWCalculated", "V_WaitingTime");
    expect_sum("TRG", "TRGTime", "TRGCalculated", "V_SetupTime");
    expect_sum("", "TotalTime", "TotalCalculated", "V_TotalTime");
  }
  EXPECT_GT(engine.Runs(), 400);
}

TEST_P(RandomModelTest, ASeedGivesOneModel) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    support::RandomAnalysis first(seed, Options());
    support::RandomAnalysis second(seed, Options());
    const support::RandomModel one = first.Draw();
    const support::RandomModel other = second.Draw();
    ASSERT_EQ(one.analyses.size(), other.analyses.size());
    for (std::size_t index = 0; index < one.analyses.size(); ++index) {
      EXPECT_EQ(support::Describe(*one.analyses[index]), support::Describe(*other.analyses[index]));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(TameAndWild, RandomModelTest, testing::Bool());

TEST(RandomModelTest, MissingInterfacesEndRefuseOrRaise) {
  support::RandomAnalysisOptions options;
  options.missing_interfaces = true;
  ToyEngine engine;
  int ended = 0;
  int refused = 0;
  int raised = 0;
  for (unsigned seed = 1; seed <= 400; ++seed) {
    support::RandomAnalysis random(seed, options);
    const support::RandomModel model = random.Draw();
    try {
      const long status = AnalyzedTime(model.analyses.back().get(), model.tmu_per_minute, engine);
      ++(status == 0 ? ended : refused);
    } catch (const NullHandle&) {
      ++raised;
    }
  }
  EXPECT_GT(ended, 0);
  EXPECT_GT(refused, 0);
  EXPECT_GT(raised, 0);
}

}  // namespace
}  // namespace oracle
