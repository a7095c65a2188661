// The function table and the seven standard functions.
#include "formula/FormulaEvaluator.h"
#include "tests/formula/FormulaTest.h"

namespace formulatest {
namespace {

TEST(FormulaFunctionsTest, NamesStandInSlotOrder) {
  const std::vector<std::wstring> names = {L"sin",
                                           L"cos",
                                           L"tan",
                                           L"exp",
                                           L"pow",
                                           L"sqrt",
                                           L"abs",
                                           L"MTM1REACH",
                                           L"MTM1MOVE",
                                           L"MTM1DYNAMICFACTOR",
                                           L"MTM1STATICCONSTANT",
                                           L"MTM1POSITION",
                                           L"MTM1TURN",
                                           L"MTM1EYETRAVEL",
                                           L"MTM1SIDESTEP",
                                           L"MTM1LEGMOTION",
                                           L"WFASY",
                                           L"WFPP",
                                           L"WFT",
                                           L"MOST"};
  InitFormulaFunctions();
  const FormulaFunctionTable& table = FormulaFunctions();
  ASSERT_EQ(names.size(), 20u);
  ASSERT_EQ(table.size(), 100u);
  for (std::size_t slot = 0; slot < table.size(); ++slot) {
    if (slot < names.size()) {
      ASSERT_NE(table[slot].Name, nullptr) << slot;
      EXPECT_EQ(table[slot].Name, names[slot]) << slot;
      EXPECT_NE(table[slot].Function, nullptr) << slot;
    } else {
      EXPECT_EQ(table[slot].Function, nullptr) << slot;
    }
  }
}

TEST(FormulaFunctionsTest, MakingReadyAgainChangesNothing) {
  const FormulaFunctionTable before = FormulaFunctions();
  InitFormulaFunctions();
  InitFormulaFunctions();
  for (std::size_t slot = 0; slot < before.size(); ++slot) {
    EXPECT_EQ(before[slot].Name, FormulaFunctions()[slot].Name) << slot;
    EXPECT_EQ(before[slot].Function, FormulaFunctions()[slot].Function) << slot;
  }
}

TEST(FormulaFunctionsTest, EveryNameIsKnownWithAndWithoutArguments) {
  for (int slot = 0; slot < 20; ++slot) {
    const std::wstring name = FormulaFunctions()[static_cast<std::size_t>(slot)].Name;
    for (int count = 0; count <= 22; ++count) {
      std::wstring text = name + L"(";
      for (int n = 0; n < count; ++n) text += n == 0 ? L"1" : L",1";
      text += L")";
      const Evaluation result = Evaluate(text);
      EXPECT_EQ(result.Status, 0) << Printable(text);

      FormulaArguments arguments{};
      for (std::size_t n = 0; n < arguments.size() && static_cast<int>(n) < count; ++n) arguments[n] = 1.0;
      EXPECT_TRUE(SameNumber(FormulaFunctions()[static_cast<std::size_t>(slot)].Function(arguments), result.Value))
          << Printable(text);
    }
  }
}

struct StandardFunction {
  const char* name;
  double (*function)(double);
};

class StandardFunctionTest : public testing::TestWithParam<StandardFunction> {};

// The functions of the C library are their own measure: the same numbers, trigonometry in radians.
TEST_P(StandardFunctionTest, IsThatOfTheLibrary) {
  for (int step = -400; step <= 400; ++step) {
    const double argument = step * 0.07;
    ExpectCall(GetParam().name, {argument}, GetParam().function(argument));
    ExpectCall(GetParam().name, {argument, 2.0, 3.0}, GetParam().function(argument));
  }
  ExpectCall(GetParam().name, {}, GetParam().function(0.0));
}

INSTANTIATE_TEST_SUITE_P(Slots0To6, StandardFunctionTest,
                         testing::Values(StandardFunction{"sin", [](double x) { return std::sin(x); }},
                                         StandardFunction{"cos", [](double x) { return std::cos(x); }},
                                         StandardFunction{"tan", [](double x) { return std::tan(x); }},
                                         StandardFunction{"exp", [](double x) { return std::exp(x); }},
                                         StandardFunction{"sqrt", [](double x) { return std::sqrt(x); }},
                                         StandardFunction{"abs", [](double x) { return std::fabs(x); }}),
                         RowName());

TEST(FormulaFunctionsTest, PowerTakesTwoArguments) {
  for (int base = -20; base <= 20; ++base) {
    for (int exponent = -12; exponent <= 12; ++exponent) {
      const double b = base * 0.5;
      const double e = exponent * 0.25;
      ExpectCall("pow", {b, e}, std::pow(b, e));
    }
    ExpectCall("pow", {base * 0.5}, 1.0);
  }
}

}  // namespace
}  // namespace formulatest
