// What holds of every calculation: totals are the sums over the lines, in their order, in every unit; and a calculation
// repeated changes nothing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/calculation/ModelTwin.h"
#include "tests/calculation/Totals.h"
#include "tests/formula/FormulaTest.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/RandomAnalysis.h"
#include "tests/support/RandomText.h"

namespace {

using calculationtest::Calculate;
using calculationtest::ModelTwin;
using calculationtest::Totals;
using calculationtest::TotalsOf;
using formulatest::SameNumber;
using support::Line;
using support::MakeAnalysis;
using support::RandomText;
using support::RealOf;

constexpr int Rounds = 200;

struct PlainLine {
  std::string type;
  double time;
  double frequency;
};

std::vector<PlainLine> DrawLines(RandomText& random) {
  static const std::vector<std::string> types{"TTB", "TTB", "TTU", "TW", "TRG", "T**"};
  std::vector<PlainLine> lines;
  for (int left = random.Below(60); left > 0; --left) {
    lines.push_back({random.AnyOf(types), random.Below(1'000'000) / 9973.0, (random.Below(100) + 1) / 7.0});
  }
  return lines;
}

support::TimeAnalysis_var AnalysisOf(const std::vector<PlainLine>& plain) {
  std::vector<Line> lines;
  for (const PlainLine& line : plain) lines.push_back(Line("M10B").Timed(line.type, line.time, line.frequency));
  return MakeAnalysis("A", lines);
}

// The sum of the lines of some types, the first of them first.
double SumInTmu(const std::vector<PlainLine>& lines, const std::vector<std::string>& types) {
  double sum = 0.0;
  for (const PlainLine& line : lines) {
    if (std::find(types.begin(), types.end(), line.type) != types.end()) sum += line.time / 0.036 * line.frequency;
  }
  return sum;
}

double TotalInTmu(const std::vector<PlainLine>& lines) {
  double sum = 0.0;
  for (const PlainLine& line : lines) sum += line.time * line.frequency / 0.036;
  return sum;
}

TEST(CalculationPropertiesTest, TotalsAreTheSumsFromTheFirstLineToTheLast) {
  RandomText random(401);
  for (int round = 0; round < Rounds; ++round) {
    const std::vector<PlainLine> lines = DrawLines(random);
    const auto analysis = AnalysisOf(lines);
    ASSERT_EQ(Calculate(analysis), S_OK);
    ASSERT_TRUE(SameNumber(SumInTmu(lines, {"TTB", "T**"}), *RealOf(*analysis, "TTBCalculated")));
    ASSERT_TRUE(SameNumber(SumInTmu(lines, {"TTU"}), *RealOf(*analysis, "TTUCalculated")));
    ASSERT_TRUE(SameNumber(SumInTmu(lines, {"TW"}), *RealOf(*analysis, "TWCalculated")));
    ASSERT_TRUE(SameNumber(SumInTmu(lines, {"TRG"}), *RealOf(*analysis, "TRGCalculated")));
    ASSERT_TRUE(SameNumber(TotalInTmu(lines), *RealOf(*analysis, "TotalCalculated")));
  }
}

TEST(CalculationPropertiesTest, TotalsAreTheSumsInEveryUnit) {
  constexpr double Decimals = 9;
  RandomText random(402);
  VEXSTMTimeAnalysisDlgServices services;
  services.SetMinToTMUConversionValue(0.0);
  for (int round = 0; round < Rounds; ++round) {
    const std::vector<PlainLine> lines = DrawLines(random);
    const auto analysis = AnalysisOf(lines);
    ASSERT_EQ(Calculate(analysis), S_OK);
    for (int unit = 0; unit <= 14; ++unit) {
      double sum = 0.0;
      for (const PlainLine& line : lines) {
        const double tmu = services.ConvertFromSecToTmu(line.time * line.frequency);
        sum += services.UnitConvertor(tmu, unit, static_cast<int>(Decimals));
      }
      const double total =
          services.UnitConvertor(*RealOf(*analysis, "TotalCalculated"), unit, static_cast<int>(Decimals));
      const double rounding = 1e-9 * static_cast<double>(lines.size() + 1) + 1e-13 * std::fabs(sum);
      ASSERT_NEAR(total, sum, rounding) << "unit " << unit;
    }
  }
}

TEST(CalculationPropertiesTest, SecondsAreTheTmuByTheConversion) {
  RandomText random(403);
  for (int round = 0; round < Rounds; ++round) {
    const auto analysis = AnalysisOf(DrawLines(random));
    ASSERT_EQ(Calculate(analysis), S_OK);
    for (const auto& [tmu, seconds] : {std::pair("TTBCalculated", "V_HumanTime"),
                                       {"TTUCalculated", "V_MachineTime"},
                                       {"TWCalculated", "V_WaitingTime"},
                                       {"TRGCalculated", "V_SetupTime"},
                                       {"TotalCalculated", "V_TotalTime"}}) {
      ASSERT_NEAR(*RealOf(*analysis, seconds), 0.036 * *RealOf(*analysis, tmu), 0.5000001e-6) << tmu;
    }
  }
}

TEST(CalculationPropertiesTest, TheOrderOfPlainLinesChangesTotalsOnlyWithinRounding) {
  RandomText random(404);
  for (int round = 0; round < Rounds; ++round) {
    std::vector<PlainLine> lines = DrawLines(random);
    const auto first = AnalysisOf(lines);
    std::shuffle(lines.begin(), lines.end(), random.Generator());
    const auto second = AnalysisOf(lines);
    ASSERT_EQ(Calculate(first), S_OK);
    ASSERT_EQ(Calculate(second), S_OK);
    const Totals totals = TotalsOf(*second);
    for (const auto& [key, value] : TotalsOf(*first)) {
      const bool rounded = std::string_view(key).substr(0, 2) == "V_";
      ASSERT_NEAR(totals.at(key), value, (rounded ? 1.0000001e-6 : 0.0) + 1e-12 * std::fabs(value)) << key;
    }
  }
}

TEST(CalculationPropertiesTest, TwoHalvesAddUpToTheWhole) {
  RandomText random(405);
  for (int round = 0; round < Rounds; ++round) {
    const std::vector<PlainLine> lines = DrawLines(random);
    const auto middle = lines.begin() + static_cast<std::ptrdiff_t>(lines.size() / 2);
    const auto whole = AnalysisOf(lines);
    const auto head = AnalysisOf({lines.begin(), middle});
    const auto tail = AnalysisOf({middle, lines.end()});
    for (const auto& analysis : {whole, head, tail}) ASSERT_EQ(Calculate(analysis), S_OK);
    for (const char* key : {"TTBCalculated", "TTUCalculated", "TWCalculated", "TRGCalculated", "TotalCalculated"}) {
      const double sum = *RealOf(*head, key) + *RealOf(*tail, key);
      ASSERT_NEAR(*RealOf(*whole, key), sum, 1e-12 * std::fabs(sum)) << key;
    }
  }
}

// Formulas, reuse and neglect included; where no way leads back to the analysis, it reads nothing that it writes.
TEST(CalculationPropertiesTest, CalculatingTwiceGivesTheSame) {
  support::RandomAnalysisOptions options;
  options.odd_numbers = true;
  support::RandomAnalysis models(406, options);
  for (int round = 0; round < Rounds; ++round) {
    support::RandomModel model = models.Draw();
    const ModelTwin twin(model);
    for (std::size_t index = 0; index < twin.Size(); ++index) {
      const KORBaseUnknown_var analysis = twin.Of(twin.Plain(index));
      ASSERT_EQ(Calculate(analysis, model.tmu_per_minute), S_OK);
      const std::string once = support::DescribeAnalysis(twin.Inside(index));
      ASSERT_EQ(Calculate(analysis, model.tmu_per_minute), S_OK);
      ASSERT_EQ(support::DescribeAnalysis(twin.Inside(index)), once) << "model " << round;
    }
  }
}

TEST(CalculationPropertiesTest, CalculatingOneAnalysisChangesNoOther) {
  support::RandomAnalysis models(407);
  for (int round = 0; round < Rounds; ++round) {
    support::RandomModel model = models.Draw();
    const ModelTwin twin(model);
    const std::size_t last = twin.Size() - 1;
    std::vector<std::string> before;
    for (std::size_t index = 0; index < last; ++index) before.push_back(support::DescribeAnalysis(twin.Inside(index)));
    ASSERT_EQ(Calculate(twin.Of(twin.Plain(last))), S_OK);
    for (std::size_t index = 0; index < last; ++index) {
      ASSERT_EQ(support::DescribeAnalysis(twin.Inside(index)), before[index]) << "model " << round;
    }
  }
}

}  // namespace
