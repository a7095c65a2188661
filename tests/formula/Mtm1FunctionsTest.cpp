// The MTM-1 functions: every cell of every table, what lies between the rows and beyond the last one, bit for bit.
#include "formula/Mtm1Functions.h"

#include <algorithm>
#include <limits>

#include "tests/formula/ConstantTable.h"
#include "tests/formula/FormulaTest.h"

namespace formulatest {
namespace {

constexpr int StepRow = 25;
constexpr std::array CaseNames{"A", "B", "C", "E"};

// Reach and move by the rules of the metric card, over the tables in data/.
class MotionModel {
 public:
  MotionModel(const std::string& motion, int variant)
      : _IsReach(motion == "Reach"), _Variant(variant), _Table(motion + "Variant" + std::to_string(variant) + ".csv") {}

  int CaseCount() const { return _IsReach ? 4 : 3; }

  double Time(int distance, int motion_case, int ends_in_motion) const {
    if (distance == 0) return 0.0;
    if (distance > 80) return TimeBeyondTheTable(distance, motion_case, ends_in_motion);
    int row = 0;
    while (DistanceOf(row) < distance) ++row;
    if (DistanceOf(row) == distance || row == 0) return RowTime(row, motion_case, ends_in_motion);
    if (motion_case < 0) return 0.0;
    const double low = RowTime(row - 1, motion_case, ends_in_motion);
    const double high = RowTime(row, motion_case, ends_in_motion);
    return (high - low) * (distance - DistanceOf(row - 1)) / (DistanceOf(row) - DistanceOf(row - 1)) + low;
  }

 private:
  int DistanceOf(int row) const { return std::stoi(_Table.RowName(row)); }
  double Unit(double entry) const { return _Variant == 1 ? entry / 6.0 : entry; }
  double Base(int row, int motion_case) const { return Unit(_Table.At(row, motion_case)); }

  double Less(int row, int motion_case) const {
    return Unit(_Table.At(row, _IsReach ? std::string("less ") + CaseNames.at(static_cast<std::size_t>(motion_case))
                                        : std::string("less")));
  }

  double RowTime(int row, int motion_case, int ends_in_motion) const {
    if (ends_in_motion == 0) return Base(row, motion_case);
    if (_Variant == 0) {
      const std::string column = CaseNames.at(static_cast<std::size_t>(motion_case));
      return _Table.At(row, column + (ends_in_motion == 1 ? " one" : " both"));
    }
    return Base(row, motion_case) - ends_in_motion * Less(row, motion_case);
  }

  double Reduction(int row, int motion_case) const {
    if (_Variant == 1) return Less(row, motion_case);
    return _Table.At(row, CaseNames.at(static_cast<std::size_t>(motion_case)) + std::string(" one"));
  }

  double TimeBeyondTheTable(int distance, int motion_case, int ends_in_motion) const {
    int steps = 1;
    while (80 + 5 * steps < distance) ++steps;
    const double last = Base(StepRow - 1, motion_case);
    const double step = Base(StepRow, motion_case);
    double low = last + (steps - 1) * step;
    double high = last + steps * step;
    if (_IsReach && ends_in_motion > 0) {
      const double step_reduction = Reduction(StepRow, motion_case);
      high -= ends_in_motion * step_reduction;
      low -= ends_in_motion * (steps == 1 ? Reduction(StepRow - 1, motion_case) : step_reduction);
    }
    return (distance - (75 + 5 * steps)) * (high - low) / 5.0 + low;
  }

  bool _IsReach;
  int _Variant;
  ConstantTable _Table;
};

struct MotionCase {
  const char* name;
  const char* motion;
  const char* function;
  int variant;
};

class MotionTest : public testing::TestWithParam<MotionCase> {
 protected:
  void ExpectMotion(double start, double distance, double motion_case, double end, double variant, double expected) {
    ExpectCall(GetParam().function, {start, distance, motion_case, end, variant}, expected);
  }

  MotionModel _Model{GetParam().motion, GetParam().variant};
};

TEST_P(MotionTest, EveryDistanceCaseAndMotionState) {
  for (int distance = -30; distance <= 240; ++distance) {
    for (int motion_case = 0; motion_case < _Model.CaseCount(); ++motion_case) {
      for (int start = 0; start <= 1; ++start) {
        for (int end = 0; end <= 1; ++end) {
          ExpectMotion(start, distance, motion_case, end, GetParam().variant,
                       _Model.Time(distance, motion_case, start + end));
        }
      }
    }
  }
}

TEST_P(MotionTest, FarBeyondTheTable) {
  for (const int distance : {999, 1000, 1001, 123456, 2000000}) {
    ExpectMotion(0, distance, 1, 0, GetParam().variant, _Model.Time(distance, 1, 0));
    ExpectMotion(1, distance, 1, 1, GetParam().variant, _Model.Time(distance, 1, 2));
  }
}

TEST_P(MotionTest, ArgumentsAreCutTowardZero) {
  const int variant = GetParam().variant;
  ExpectMotion(0, 2.999, 0, 0, variant, _Model.Time(2, 0, 0));
  ExpectMotion(0, 3.999, 0, 0, variant, _Model.Time(3, 0, 0));
  ExpectMotion(0, 0.999, 0, 0, variant, 0.0);
  ExpectMotion(0, -0.999, 0, 0, variant, 0.0);
  ExpectMotion(0, -1.999, 0, 0, variant, _Model.Time(2, 0, 0));
  ExpectMotion(0, 80.999, 1, 0, variant, _Model.Time(80, 1, 0));
  ExpectMotion(0, 30, 1.999, 0, variant, _Model.Time(30, 1, 0));
  ExpectMotion(0, 30, -0.999, 0, variant, _Model.Time(30, 0, 0));
  ExpectMotion(1.999, 30, 1, 1.001, variant, _Model.Time(30, 1, 2));
  ExpectMotion(0.999, 30, 1, 1, variant, _Model.Time(30, 1, 1));
}

TEST_P(MotionTest, OnlyTheValueOneIsInMotion) {
  for (const double other : {-1.0, 0.0, 2.0, 3.0, 17.0, 1e9}) {
    ExpectMotion(other, 30, 1, other, GetParam().variant, _Model.Time(30, 1, 0));
    ExpectMotion(other, 30, 1, 1, GetParam().variant, _Model.Time(30, 1, 1));
    ExpectMotion(1, 90, 1, other, GetParam().variant, _Model.Time(90, 1, 1));
  }
}

TEST_P(MotionTest, NegativeCaseBetweenRowsIsZero) {
  for (const int distance : {3, 5, 29, 31, 79}) {
    for (const int motion_case : {-1, -2, -1000}) {
      ExpectMotion(0, distance, motion_case, 0, GetParam().variant, 0.0);
      ExpectMotion(1, distance, motion_case, 1, GetParam().variant, 0.0);
    }
  }
}

TEST_P(MotionTest, DistanceZeroIsZeroInEveryCase) {
  for (const int motion_case : {-1, 0, 3, 4, 99}) {
    ExpectMotion(1, 0, motion_case, 1, GetParam().variant, 0.0);
  }
}

// The low four bits of the variant, cut to 64 bits, choose the constants: 1 or anything else.
TEST_P(MotionTest, LowFourBitsChooseTheVariant) {
  for (const double variant : {0.0, 1.0, 1.999, 2.0, 3.0, 8.0, 9.0, 15.0, 16.0, 17.0, 33.0, 4294967296.0, 4294967297.0,
                               -1.0, -15.0, -16.0, 4503599627370497.0}) {
    const bool is_one = (static_cast<long long>(variant) & 15) == 1;
    const MotionModel model(GetParam().motion, is_one ? 1 : 0);
    ExpectMotion(0, 37, 2, 1, variant, model.Time(37, 2, 1));
  }
}

INSTANTIATE_TEST_SUITE_P(Motions, MotionTest,
                         testing::Values(MotionCase{"ReachVariant0", "Reach", "MTM1REACH", 0},
                                         MotionCase{"ReachVariant1", "Reach", "MTM1REACH", 1},
                                         MotionCase{"MoveVariant0", "Move", "MTM1MOVE", 0},
                                         MotionCase{"MoveVariant1", "Move", "MTM1MOVE", 1}),
                         RowName());

// ------------------------------------------------------------------------------------------------ Weight classes

TEST(Mtm1WeightTest, EveryClassAndItsLimits) {
  for (int variant = 0; variant <= 1; ++variant) {
    const ConstantTable table("WeightVariant" + std::to_string(variant) + ".csv");
    std::vector<double> weights = {-5.0, 0.0, 0.5, 30.0, 1e6};
    for (int row = 0; row < table.RowCount(); ++row) {
      const double limit = std::stod(table.RowName(row));
      for (const double offset : {-0.02, -0.01, -0.001, 0.0, 0.001, 0.005, 0.0099, 0.00999999, 0.01, 0.010001, 0.02}) {
        weights.push_back(limit + offset);
      }
    }
    for (const double weight : weights) {
      double factor = 0.0;
      double constant = 0.0;
      for (int row = 0; row < table.RowCount(); ++row) {
        if (0.01 > weight - std::stod(table.RowName(row))) {
          factor = table.At(row, "Dynamic");
          constant = variant == 1 ? table.At(row, "Static") / 6.0 : table.At(row, "Static");
          break;
        }
      }
      const double given = variant;
      ExpectCall("MTM1DYNAMICFACTOR", {weight, given}, factor);
      ExpectCall("MTM1STATICCONSTANT", {weight, given}, constant);
      if (variant == 0) {
        ExpectCall("MTM1DYNAMICFACTOR", {weight}, factor);
        ExpectCall("MTM1STATICCONSTANT", {weight, 16.0}, constant);
      } else {
        ExpectCall("MTM1DYNAMICFACTOR", {weight, 17.0}, factor);
        ExpectCall("MTM1STATICCONSTANT", {weight, 1.5}, constant);
      }
    }
  }
}

// --------------------------------------------------------------------------------------------- Position and turn

TEST(Mtm1PositionTest, RowsAddUp) {
  for (int variant = 0; variant <= 1; ++variant) {
    const ConstantTable table("PositionVariant" + std::to_string(variant) + ".csv");
    ASSERT_EQ(table.RowCount(), 6);
    for (int fit = -3; fit <= 6; ++fit) {
      for (int handling = -3; handling <= 6; ++handling) {
        if (fit + handling < 0 || fit + handling > 5) continue;
        for (int symmetry = 0; symmetry < 3; ++symmetry) {
          const double entry = table.At(fit + handling, symmetry);
          ExpectCall("MTM1POSITION",
                     {static_cast<double>(fit), static_cast<double>(symmetry), static_cast<double>(handling),
                      static_cast<double>(variant)},
                     variant == 1 ? entry / 6.0 : entry);
        }
      }
    }
  }
  ExpectCall("MTM1POSITION", {1.9, 2.9, 3.9}, 26.6);
}

TEST(Mtm1TurnTest, EveryDegree) {
  for (int variant = 0; variant <= 1; ++variant) {
    const ConstantTable table("TurnVariant" + std::to_string(variant) + ".csv");
    ASSERT_EQ(table.ColumnCount(), 11);
    for (int weight_class = 0; weight_class < 3; ++weight_class) {
      for (int angle = -20; angle <= 400; ++angle) {
        int column = 0;
        while (column < 11 && angle > std::stoi(table.ColumnName(column))) ++column;
        double expected = 0.0;
        if (column < 11) {
          expected = table.At(weight_class, column);
        } else if (weight_class < 2) {
          expected = table.At(weight_class + 1, 0);
        } else {
          expected = variant == 0 ? 0.5 : 0.0;
        }
        if (variant == 1) expected /= 6.0;
        ExpectCall("MTM1TURN",
                   {static_cast<double>(angle), static_cast<double>(weight_class), static_cast<double>(variant)},
                   expected);
      }
    }
  }
  ExpectCall("MTM1TURN", {30.9, 0.9}, 2.8);
}

// ------------------------------------------------------------------------------------ Eye travel, side step, leg

TEST(Mtm1EyeTravelTest, QuotientUpToItsLimit) {
  for (int travel = -40; travel <= 400; travel += 3) {
    for (int distance = -30; distance <= 90; distance += 7) {
      const double t = travel * 0.25;
      const double d = distance * 0.5;
      ExpectCall("MTM1EYETRAVEL", {t, d}, std::min(20.0, t * 15.2 / d));
      ExpectCall("MTM1EYETRAVEL", {t, d, 0.0}, std::min(20.0, t * 15.2 / d));
      ExpectCall("MTM1EYETRAVEL", {t, d, 1.0}, std::min(100.0 / 6.0, t / d * 76.0 / 6.0));
    }
  }
}

TEST(Mtm1EyeTravelTest, DistanceZeroIsNotChecked) {
  const double infinity = std::numeric_limits<double>::infinity();
  ExpectCall("MTM1EYETRAVEL", {1.0, 0.0, 0.0}, 20.0);
  ExpectCall("MTM1EYETRAVEL", {1.0, 0.0, 1.0}, 100.0 / 6.0);
  ExpectCall("MTM1EYETRAVEL", {0.0, 0.0, 0.0}, 20.0);
  ExpectCall("MTM1EYETRAVEL", {0.0, 0.0, 1.0}, 100.0 / 6.0);
  ExpectCall("MTM1EYETRAVEL", {-1.0, 0.0, 0.0}, -infinity);
  ExpectCall("MTM1EYETRAVEL", {-1.0, 0.0, 1.0}, -infinity);
}

TEST(Mtm1SideStepTest, EveryDistance) {
  for (int distance = -10; distance <= 200; ++distance) {
    for (int step_case = -1; step_case <= 4; ++step_case) {
      const bool is_first = step_case == 1;
      const int beyond = distance - 30;
      double time0 = is_first ? 17.0 : 34.1;
      double time1 = is_first ? 85.0 / 6.0 : 28.5;
      if (distance > 30) {
        time0 += is_first ? beyond * 0.2 : beyond * 0.4;
        time1 += is_first ? beyond / 6.0 : 2 * beyond / 6.0;
      }
      const double d = distance;
      const double c = step_case;
      ExpectCall("MTM1SIDESTEP", {d, c}, distance == 0 ? 0.0 : time0);
      ExpectCall("MTM1SIDESTEP", {d, c, 2.0}, distance == 0 ? 0.0 : time0);
      ExpectCall("MTM1SIDESTEP", {d, c, 1.0}, distance == 0 ? 0.0 : time1);
    }
  }
  ExpectCall("MTM1SIDESTEP", {0.999, 1.0}, 0.0);
  ExpectCall("MTM1SIDESTEP", {30.999, 1.999}, 17.0);
}

TEST(Mtm1LegMotionTest, EveryDistance) {
  for (int distance = -10; distance <= 120; ++distance) {
    const int beyond = distance - 15;
    double time0 = 7.1;
    double time1 = 6.0;
    if (distance > 15) {
      time0 += beyond * 0.5;
      time1 += beyond * 2.6 / 6.0;
    }
    const double d = distance;
    ExpectCall("MTM1LEGMOTION", {d}, distance == 0 ? 0.0 : time0);
    ExpectCall("MTM1LEGMOTION", {d, 0.0}, distance == 0 ? 0.0 : time0);
    ExpectCall("MTM1LEGMOTION", {d, 1.0}, distance == 0 ? 0.0 : time1);
  }
  ExpectCall("MTM1LEGMOTION", {15.999}, 7.1);
}

// ---------------------------------------------------------------------------------------------------- Single values

struct SingleTime {
  const char* name;
  const wchar_t* text;
  double tmu;
};

class Mtm1SingleTimeTest : public testing::TestWithParam<SingleTime> {};

// Times read off the metric card by hand; what lies between the rows and beyond them is worked out on paper.
TEST_P(Mtm1SingleTimeTest, IsThatOfTheCard) {
  const Evaluation result = Evaluate(GetParam().text);
  EXPECT_EQ(result.Status, 0);
  EXPECT_NEAR(result.Value, GetParam().tmu, 1e-12) << Printable(GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(MetricCard, Mtm1SingleTimeTest,
                         testing::Values(SingleTime{"ReachFirstRow", L"MTM1REACH(0,2,0,0)", 2.0},
                                         SingleTime{"ReachHalfwayBetweenRows", L"MTM1REACH(0,3,0,0)", 2.7},
                                         SingleTime{"ReachBelowTheFirstRow", L"MTM1REACH(0,1,0,0)", 2.0},
                                         SingleTime{"ReachNegative", L"MTM1REACH(0,-7,0,0)", 2.0},
                                         SingleTime{"ReachBothInMotion", L"MTM1REACH(1,4,0,1)", 2.6},
                                         SingleTime{"ReachCaseCBothInMotion", L"MTM1REACH(1,4,2,1)", 0.0},
                                         SingleTime{"ReachLastRow", L"MTM1REACH(0,80,0,0)", 18.2},
                                         SingleTime{"ReachOneStepBeyond", L"MTM1REACH(0,85,0,0)", 19.1},
                                         SingleTime{"ReachOneEndInMotionBeyond", L"MTM1REACH(1,85,0,0)", 18.3},
                                         SingleTime{"ReachJumpsBehind80", L"MTM1REACH(1,81,0,0)", 5.5},
                                         SingleTime{"ReachLastRowOneInMotion", L"MTM1REACH(1,80,0,0)", 15.9},
                                         SingleTime{"ReachCaseE", L"MTM1REACH(0,30,3,0)", 11.7},
                                         SingleTime{"ReachVariant1", L"MTM1REACH(0,4,0,0,1)", 17.0 / 6.0},
                                         SingleTime{"ReachVariant1BothInMotion", L"MTM1REACH(1,4,2,1,1)", 18.0 / 6.0},
                                         SingleTime{"ReachVariant1JustBeyond", L"MTM1REACH(0,81,0,0,1)", 92.0 / 6.0},
                                         SingleTime{"MoveTwoStepsBeyond", L"MTM1MOVE(0,90,0,0)", 31.5},
                                         SingleTime{"MoveBeyondKnowsNoMotion", L"MTM1MOVE(1,90,0,1)", 31.5},
                                         SingleTime{"MoveInterpolated", L"MTM1MOVE(0,32,1,0)", 13.78},
                                         SingleTime{"MoveVariant1OneInMotion", L"MTM1MOVE(1,30,2,0,1)", 59.0 / 6.0},
                                         SingleTime{"FactorWithinTheClass", L"MTM1DYNAMICFACTOR(1.005,0)", 1.0},
                                         SingleTime{"FactorOfTheNextClass", L"MTM1DYNAMICFACTOR(1.02,0)", 1.04},
                                         SingleTime{"FactorAboveTheLastClass", L"MTM1DYNAMICFACTOR(30,0)", 0.0},
                                         SingleTime{"ConstantVariant1", L"MTM1STATICCONSTANT(5,1)", 17.0 / 6.0},
                                         SingleTime{"TurnAbove180", L"MTM1TURN(200,0,0)", 4.4},
                                         SingleTime{"TurnAbove180BehindTheLastRow", L"MTM1TURN(200,2,0)", 0.5},
                                         SingleTime{"TurnAbove180Variant1", L"MTM1TURN(200,2,1)", 0.0},
                                         SingleTime{"EyeTravelLimit", L"MTM1EYETRAVEL(100,10,0)", 20.0},
                                         SingleTime{"EyeTravel", L"MTM1EYETRAVEL(10,40,0)", 3.8},
                                         SingleTime{"LegMotion", L"MTM1LEGMOTION(20,0)", 9.6},
                                         SingleTime{"SideStep", L"MTM1SIDESTEP(40,1,0)", 19.0},
                                         SingleTime{"SideStepOtherCase", L"MTM1SIDESTEP(40,2,0)", 38.1}),
                         RowName());

}  // namespace
}  // namespace formulatest
