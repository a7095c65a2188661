// The Work-Factor functions: every cell of every table, and combinations of the arguments, bit for bit.
#include "formula/WorkFactorFunctions.h"

#include <random>

#include "tests/formula/ConstantTable.h"
#include "tests/formula/FormulaTest.h"

namespace formulatest {
namespace {

struct RoundingCase {
  const char* name;
  double value;
  double rounded;
};

class RoundViaTextTest : public testing::TestWithParam<RoundingCase> {};

TEST_P(RoundViaTextTest, IsThatOfPrintedNumbers) {
  EXPECT_TRUE(SameNumber(GetParam().rounded, formula::RoundViaText(GetParam().value)));
}

INSTANTIATE_TEST_SUITE_P(TiesGoToTheEvenNeighbour, RoundViaTextTest,
                         testing::Values(RoundingCase{"Half", 0.5, 0.0}, RoundingCase{"OneAndAHalf", 1.5, 2.0},
                                         RoundingCase{"TwoAndAHalf", 2.5, 2.0}, RoundingCase{"ThreeAndAHalf", 3.5, 4.0},
                                         RoundingCase{"BelowATie", 2.4999999999999996, 2.0},
                                         RoundingCase{"AboveATie", 2.5000000000000004, 3.0},
                                         RoundingCase{"Whole", 7.0, 7.0}, RoundingCase{"Zero", 0.0, 0.0},
                                         RoundingCase{"Negative", -1.2, -1.0}, RoundingCase{"NegativeTie", -2.5, -2.0},
                                         RoundingCase{"NegativeBelowOne", -0.3, -0.0}),
                         RowName());

constexpr std::size_t TableSwitch = 0, Column = 1, RowFirst = 2, ColumnShift = 3, RowSecond = 4, FactorA = 5,
                      FactorB = 6, FactorC = 7, FactorD = 8, FactorE = 9, FactorTotal = 10, Surcharge = 11,
                      HalfShare = 12;

// The assembly time by the rules of the function, over the tables in data/. Rounding is the processor's to the even
// neighbour here.
class AssemblyModel {
 public:
  double Time(const std::vector<double>& given) const {
    const bool first = given[TableSwitch] < 1e-9;
    const int row = static_cast<int>(given[first ? RowFirst : RowSecond]);
    const int column = static_cast<int>(given[Column]) + (first ? static_cast<int>(given[ColumnShift]) : 0);
    const double base = Cell(first ? _FirstBase : _SecondBase, row * 6 + column);
    const double work = Cell(first ? _FirstWork : _SecondWork, row * 6 + column);

    double sum = 0.0;
    double carried = 0.0;
    if (IsSet(given[FactorA])) {
      carried = work * Factor("A", given[FactorA]);
      sum += std::nearbyint(carried);
    }
    if (IsSet(given[FactorB])) {
      if (IsSet(Factor("B", given[FactorB]))) carried = Factor("B", given[FactorB]) * work;
      if (IsSet(Factor("C", given[FactorB]))) carried = Factor("C", given[FactorB]) * base;
      carried += Factor("Addend", given[FactorB]);
      sum += std::nearbyint(carried);
    }
    if (IsSet(given[FactorC])) {
      if (IsSet(Factor("B", given[FactorC]))) {
        carried = Factor("B", given[FactorC]) * work;
      } else if (IsSet(Factor("C", given[FactorC]))) {
        carried = Factor("C", given[FactorC]) * base;
      }
      carried += Factor("Addend", given[FactorC]);
      sum += std::nearbyint(carried);
    }
    if (IsSet(given[FactorD])) sum += std::nearbyint(work * Factor("D", given[FactorD]));
    if (IsSet(given[FactorE])) sum += std::nearbyint(work * Factor("E", given[FactorE]));
    const double surcharge = !IsSet(given[Surcharge]) ? 0.0 : first ? 3.0 : 4.0;
    const double half = IsSet(given[HalfShare]) ? std::nearbyint((work + sum) * 0.5) : 0.0;
    sum = sum + base + surcharge;
    const double last = IsSet(given[FactorTotal]) ? std::nearbyint(sum * Factor("T", given[FactorTotal])) : 0.0;
    return last + half + sum;
  }

 private:
  static bool IsSet(double argument) { return 1e-9 < argument; }
  static double Cell(const ConstantTable& table, int index) { return table.At(index / 6, index % 6); }
  double Factor(const std::string& table, double index) const {
    return _Factors.At(table, static_cast<int>(index) - 1);
  }

  ConstantTable _FirstBase{"AssemblyPairFirstBase.csv"};
  ConstantTable _FirstWork{"AssemblyPairFirstWork.csv"};
  ConstantTable _SecondBase{"AssemblyPairSecondBase.csv"};
  ConstantTable _SecondWork{"AssemblyPairSecondWork.csv"};
  ConstantTable _Factors{"AssemblyFactors.csv"};
};

class WorkFactorAssemblyTest : public testing::Test {
 protected:
  static constexpr int CellCount = 36;

  // The arguments that select cell 0 to 35: 18 of the first pair, then 18 of the second.
  static std::vector<double> CellArguments(int cell) {
    std::vector<double> given(13, 0.0);
    given[TableSwitch] = cell < 18 ? 0.0 : 1.0;
    const int row = cell % 18 / 6;
    given[Column] = cell % 6;
    given[cell < 18 ? RowFirst : RowSecond] = row;
    return given;
  }

  void ExpectAssembly(const std::vector<double>& given) const { ExpectCall("WFASY", given, _Model.Time(given)); }

  AssemblyModel _Model;
};

TEST_F(WorkFactorAssemblyTest, EveryCellOfTheFourPairTables) {
  for (int cell = 0; cell < CellCount; ++cell) ExpectAssembly(CellArguments(cell));
}

TEST_F(WorkFactorAssemblyTest, TheColumnShiftCountsInTheFirstPairOnly) {
  for (int cell = 0; cell < CellCount; ++cell) {
    for (int shift = 0; shift <= 3; ++shift) {
      std::vector<double> given = CellArguments(cell);
      given[ColumnShift] = shift;
      if (cell < 18 && cell % 6 + shift > 5) continue;
      given[cell < 18 ? RowSecond : RowFirst] = 2.0;  // the row of the other pair plays no part
      ExpectAssembly(given);
    }
  }
}

TEST_F(WorkFactorAssemblyTest, EveryFactorAlone) {
  for (int cell = 0; cell < CellCount; ++cell) {
    for (std::size_t factor = FactorA; factor <= HalfShare; ++factor) {
      const int last = factor == FactorTotal ? 5 : 7;
      for (int index = 0; index <= last; ++index) {
        std::vector<double> given = CellArguments(cell);
        given[factor] = index;
        ExpectAssembly(given);
      }
    }
  }
}

// Where an index of B and C has no factor of its own, the time carried over from the factor before goes in again.
TEST_F(WorkFactorAssemblyTest, FactorsAToCTogether) {
  for (int cell = 0; cell < CellCount; ++cell) {
    for (int a = 0; a <= 7; ++a) {
      for (int b = 0; b <= 7; ++b) {
        for (int c = 0; c <= 7; ++c) {
          std::vector<double> given = CellArguments(cell);
          given[FactorA] = a;
          given[FactorB] = b;
          given[FactorC] = c;
          ExpectAssembly(given);
        }
      }
    }
  }
}

TEST_F(WorkFactorAssemblyTest, RandomCombinations) {
  std::mt19937 generator(20250731);
  const auto random = [&](int bound) { return static_cast<int>(generator() % static_cast<unsigned>(bound)); };
  for (int round = 0; round < 20000; ++round) {
    std::vector<double> given = CellArguments(random(CellCount));
    for (std::size_t factor = FactorA; factor <= FactorE; ++factor) given[factor] = random(8);
    given[FactorTotal] = random(6);
    given[Surcharge] = random(2);
    given[HalfShare] = random(2);
    ExpectAssembly(given);
  }
}

TEST_F(WorkFactorAssemblyTest, IndexesAreCutAndSwitchesNeedABitMoreThanZero) {
  std::vector<double> given = CellArguments(8);
  given[Column] = 2.999;
  given[RowFirst] = 1.5;
  given[FactorA] = 3.75;
  given[FactorD] = 6.5;
  ExpectAssembly(given);
  given[Surcharge] = 1e-9;  // not above 1e-9, so not set
  given[HalfShare] = -1.0;
  given[FactorE] = -3.0;
  ExpectAssembly(given);
  given[Surcharge] = 1.1e-9;
  given[HalfShare] = 1e-8;
  ExpectAssembly(given);
  given[TableSwitch] = -1.0;  // below 1e-9: the first pair
  ExpectAssembly(given);
  given[TableSwitch] = 1e-9;  // not below 1e-9: the second
  ExpectAssembly(given);
}

// ---------------------------------------------------------------------------------- Pre-position and transport

TEST(WorkFactorPrepositionTest, EveryCell) {
  const ConstantTable table("PrePosition.csv");
  ASSERT_EQ(table.RowCount(), 4);
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 5; ++column) {
      const double c = column;
      const double r = row;
      const double time = table.At(row, column);
      ExpectCall("WFPP", {c, r}, time);
      for (const double unset : {0.0, -1.0, 1e-9}) ExpectCall("WFPP", {c, r, unset}, time);
      for (const double set : {1.0, 0.5, 1e-8}) ExpectCall("WFPP", {c, r, set}, std::nearbyint(time * 0.5) + time);
      ExpectCall("WFPP", {c + 0.9, r + 0.9}, time);
    }
  }
}

TEST(WorkFactorTransportTest, EveryCell) {
  const ConstantTable table("Transport.csv");
  ASSERT_EQ(table.RowCount(), 5);
  for (int row = 0; row < 5; ++row) {
    for (int column = 0; column < 11; ++column) {
      ExpectCall("WFT", {static_cast<double>(row), static_cast<double>(column)}, table.At(row, column));
      ExpectCall("WFT", {row + 0.9, column + 0.9}, table.At(row, column));
    }
  }
}

class WorkFactorSingleTimeTest : public testing::TestWithParam<FormulaCase> {};

TEST_P(WorkFactorSingleTimeTest, IsThatOfTheTables) {
  ExpectFormula(GetParam());
}

// Worked out on paper from the Work-Factor tables.
INSTANTIATE_TEST_SUITE_P(
    Times, WorkFactorSingleTimeTest,
    testing::Values(FormulaCase{"Preposition", L"WFPP(2,3)", 6.0, 0},
                    FormulaCase{"PrepositionHalfShare", L"WFPP(2,3,1)", 9.0, 0},
                    FormulaCase{"PrepositionHalfOfTwo", L"WFPP(2,0,1)", 3.0, 0},
                    FormulaCase{"PrepositionTieDown", L"WFPP(0,0,1)", 1.0, 0},    // 0.5 goes to 0
                    FormulaCase{"PrepositionTieUp", L"WFPP(1,1,1)", 5.0, 0},      // 1.5 goes to 2
                    FormulaCase{"PrepositionTieToEven", L"WFPP(2,2,1)", 7.0, 0},  // 2.5 goes to 2
                    FormulaCase{"Transport", L"WFT(2,3)", 11.0, 0},
                    FormulaCase{"AssemblyNothingSet", L"WFASY(0,0,0,0,0,0,0,0,0,0,0,0,0)", 2.0, 0},
                    FormulaCase{"AssemblyNoArguments", L"WFASY()", 2.0, 0},
                    FormulaCase{"AssemblySecondPair", L"WFASY(1)", 3.0, 0},
                    FormulaCase{"AssemblySurcharge", L"WFASY(0,0,0,0,0,0,0,0,0,0,0,1)", 5.0, 0},
                    FormulaCase{"AssemblySurchargeSecondPair", L"WFASY(1,0,0,0,0,0,0,0,0,0,0,1)", 7.0, 0},
                    // Base 13, work 7: A 0.7 carries 4.9, and B without a factor adds it once more.
                    FormulaCase{"AssemblyCarriedTime", L"WFASY(0,5,2,0,0,7,1)", 23.0, 0},
                    // Base 13, work 7, index 6: C wins in the first use (13), B in the second (14).
                    FormulaCase{"AssemblyFirstUse", L"WFASY(0,5,2,0,0,0,6)", 26.0, 0},
                    FormulaCase{"AssemblySecondUse", L"WFASY(0,5,2,0,0,0,0,6)", 27.0, 0},
                    FormulaCase{"AssemblyAddend", L"WFASY(0,5,2,0,0,0,7)", 31.0, 0}),
    RowName());

}  // namespace
}  // namespace formulatest
