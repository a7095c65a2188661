// The function "MOST": twelve indexes to the time of a sequence, bit for bit.
#include "formula/MostFunction.h"

#include <random>

#include "tests/formula/FormulaTest.h"

namespace formulatest {
namespace {

// Each argument is split into a remainder below 100000 and the rest, and the two are summed apart.
double ModelTime(const std::vector<double>& arguments) {
  double quotients = 0.0;
  double remainders = 0.0;
  for (std::size_t n = 0; n < 12 && n < arguments.size(); ++n) {
    const double remainder = std::fmod(arguments[n], 100000.0);
    double quotient = arguments[n] / 100000.0;
    if (quotient != 0.0) quotient = quotient - remainder;
    quotients += quotient;
    remainders += remainder;
  }
  return (quotients + remainders) * 10.0;
}

TEST(MostFunctionTest, IndexesOfTheCard) {
  // Index values of the MOST data card, each alone at each place.
  for (const int index :
       {0, 1, 3, 6, 10, 16, 24, 32, 42, 54, 67, 81, 96, 113, 131, 152, 173, 196, 220, 245, 270, 300}) {
    for (std::size_t place = 0; place < 12; ++place) {
      std::vector<double> arguments(12, 0.0);
      arguments[place] = index * 100000.0;
      ExpectCall("MOST", arguments, index * 10.0);
    }
  }
}

TEST(MostFunctionTest, RandomArguments) {
  std::mt19937 generator(77);
  const auto random = [&](int bound) { return static_cast<int>(generator() % static_cast<unsigned>(bound)); };
  for (int round = 0; round < 20000; ++round) {
    std::vector<double> arguments(static_cast<std::size_t>(random(15)));
    for (double& argument : arguments) {
      switch (random(5)) {
        case 0:
          argument = random(400) * 100000.0;
          break;
        case 1:
          argument = random(100000);
          break;
        case 2:
          argument = random(40000000) * 0.37;
          break;
        case 3:
          argument = -1.0 * random(3000000);
          break;
        default:
          argument = 0.0;
      }
    }
    ExpectCall("MOST", arguments, ModelTime(arguments));
  }
}

TEST(MostFunctionTest, ArgumentsBehindTheTwelfthDoNotCount) {
  std::vector<double> arguments(20, 0.0);
  for (std::size_t n = 12; n < arguments.size(); ++n) arguments[n] = 500000.0;
  ExpectCall("MOST", arguments, 0.0);
}

class MostSingleTimeTest : public testing::TestWithParam<FormulaCase> {};

TEST_P(MostSingleTimeTest, IsTenTimesTheSumOfTheIndexes) {
  ExpectFormula(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Sequences, MostSingleTimeTest,
                         testing::Values(FormulaCase{"TwoIndexes", L"MOST(300000,100000)", 40.0, 0},
                                         FormulaCase{"OneIndex", L"MOST(300000)", 30.0, 0},
                                         FormulaCase{"NoArguments", L"MOST()", 0.0, 0}),
                         RowName());

TEST(MostFunctionTest, ValueBelow100000LeavesASmallFraction) {
  const Evaluation result = Evaluate(L"MOST(3)");
  EXPECT_EQ(result.Status, 0);
  EXPECT_NEAR(result.Value, 0.0003, 1e-12);
  EXPECT_TRUE(SameNumber(ModelTime({3.0}), result.Value));
}

}  // namespace
}  // namespace formulatest
