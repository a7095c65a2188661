// Very long and very deep formulas: each ends in time linear in its length, without the stack running out.
#include <limits>

#include "formula/FormulaEvaluator.h"
#include "tests/formula/FormulaTest.h"
#include "tests/oracle/FormulaOracle.h"

namespace formulatest {
namespace {

constexpr int Million = 1000000;

std::wstring Repeated(const std::wstring& piece, int count) {
  std::wstring text;
  text.reserve(piece.size() * static_cast<std::size_t>(count));
  for (int n = 0; n < count; ++n) text += piece;
  return text;
}

void Expect(const std::wstring& text, double value, int status) {
  const Evaluation result = Evaluate(text);
  EXPECT_EQ(result.Status, status);
  EXPECT_TRUE(SameNumber(value, result.Value));
}

struct NestingCase {
  const char* name;
  std::wstring open;
  std::wstring inside;
  std::wstring close;
  double value;
  int status;
};

class NestingTest : public testing::TestWithParam<NestingCase> {};

TEST_P(NestingTest, OneMillionLevels) {
  const NestingCase& row = GetParam();
  Expect(Repeated(row.open, Million) + row.inside + Repeated(row.close, Million), row.value, row.status);
}

INSTANTIATE_TEST_SUITE_P(Million, NestingTest,
                         testing::Values(NestingCase{"Parentheses", L"(", L"1", L")", 1.0, 0},
                                         NestingCase{"SignedParentheses", L"-(", L"1", L")", 1.0, 0},
                                         NestingCase{"Sums", L"1+(", L"1", L")", Million + 1.0, 0},
                                         NestingCase{"SumsBehind", L"(", L"1", L"+1)", Million + 1.0, 0},
                                         NestingCase{"Products", L"1*(", L"3", L")", 3.0, 0},
                                         NestingCase{"Calls", L"abs(", L"7", L")", 7.0, 0},
                                         NestingCase{"SignedCalls", L"abs(-", L"7", L")", 7.0, 0},
                                         NestingCase{"CallsInParentheses", L"(abs(", L"7", L"))", 7.0, 0},
                                         NestingCase{"CallsInSecondArguments", L"pow(1,", L"7", L")", 1.0, 0},
                                         NestingCase{"CallsInFirstArguments", L"pow(", L"7", L",1)", 7.0, 0},
                                         NestingCase{"CallsOfSums", L"abs(1+", L"0", L")", Million, 0},
                                         NestingCase{"EmptyCall", L"abs(", L"sin()", L")", 0.0, 0},
                                         NestingCase{"ParenthesesNotClosed", L"(", L"", L"", 0.0, Million + 1},
                                         NestingCase{"ParenthesesNotClosedBehindANumber", L"(", L"1", L"", 0.0,
                                                     Million + 2},
                                         NestingCase{"ParenthesesNotOpened", L"", L"", L")", 0.0, 1},
                                         NestingCase{"ParenthesesNotOpenedBehindANumber", L"", L"1", L")", 1.0, 0},
                                         NestingCase{"CallsNotClosed", L"abs(", L"1", L"", 0.0, -2},
                                         NestingCase{"CallsWithoutArgument", L"abs(", L"", L"", 0.0, -2},
                                         NestingCase{"StrayCharacterInParentheses", L"(", L"$", L")", 0.0, -2},
                                         NestingCase{"StrayCharacterInCalls", L"abs(", L"$", L")", 0.0, -2},
                                         NestingCase{"UnknownNameInCalls", L"abs(", L"foo(1)", L")", 0.0, -2},
                                         NestingCase{"DivisionByZeroInParentheses", L"(", L"1/0", L")", 0.0, -1},
                                         NestingCase{"DivisionByZeroInCalls", L"abs(", L"1/0", L")", 0.0, -2},
                                         NestingCase{"UnknownCalls", L"foo(", L"1", L")", 0.0, -2}),
                         RowName());

TEST(FormulaLengthTest, OneMillionOperations) {
  Expect(L"1" + Repeated(L"+1", Million), Million + 1.0, 0);
  Expect(L"1" + Repeated(L"-1", Million), 1.0 - Million, 0);
  Expect(L"3" + Repeated(L"*1", Million), 3.0, 0);
  Expect(L"3" + Repeated(L"/1", Million), 3.0, 0);
  Expect(L"0" + Repeated(L"+abs(1)", Million), Million, 0);
  Expect(Repeated(L" ", Million), 0.0, 1);
  Expect(Repeated(L" ", Million) + L"1" + Repeated(L" ", Million), 1.0, 0);
  Expect(L"1" + Repeated(L"+", Million), 0.0, 3);
}

TEST(FormulaLengthTest, OneMillionArguments) {
  Expect(L"pow(2,3" + Repeated(L",1", Million) + L")", 8.0, 0);
  Expect(L"pow(2_3" + Repeated(L"_abs(1)", Million) + L")", 8.0, 0);
  Expect(L"pow(2,3" + Repeated(L",1", Million) + L",)", 0.0, -2);
  Expect(L"pow(2,3" + Repeated(L",", Million) + L")", 0.0, -2);
}

TEST(FormulaLengthTest, LongNamesAndNumbers) {
  Expect(std::wstring(100000, L'a') + L"(1)", 0.0, -2);
  Expect(L"abs(" + std::wstring(100000, L'a') + L"(1))", 0.0, -2);
  Expect(L"1+abs" + std::wstring(100000, L's') + L"(1)", 0.0, -2);
  for (const std::size_t length : {2063u, 2064u, 2065u, 5000u}) {
    Expect(std::wstring(length, L'a') + L"(1)", 0.0, -2);
  }
  Expect(std::wstring(100000, L'9'), std::numeric_limits<double>::infinity(), 0);
  Expect(std::wstring(100000, L'0') + L"7", 7.0, 0);
  Expect(L"0." + std::wstring(100000, L'0') + L"1", 0.0, 0);
  Expect(L"1/0." + std::wstring(100000, L'0') + L"1", 0.0, -1);
  Expect(L"abs(" + std::wstring(100000, L'1') + L")", std::numeric_limits<double>::infinity(), 0);
  Expect(L"1." + std::wstring(100000, L'0'), 1.0, 0);
}

TEST(FormulaLengthTest, AnyLengthAround2000Characters) {
  for (int additions = 490; additions <= 1010; ++additions) {
    Expect(L"1" + Repeated(L"+1", additions), additions + 1.0, 0);
    Expect(L"1" + Repeated(L"+1", additions) + L"+", 0.0, 2 * additions + 3);
    Expect(L"1" + Repeated(L"+1", additions) + L"$", 0.0, -2);
  }
}

// What a data card's formula of at most 255 characters can nest.
TEST(FormulaLengthTest, NestedCallsIn255Characters) {
  const std::wstring text = Repeated(L"abs(", 50) + L"-12.5" + Repeated(L")", 50);
  ASSERT_EQ(text.size(), 255u);
  Expect(text, 12.5, 0);
  Expect(Repeated(L"abs(", 63) + L"abs", 0.0, -2);
  Expect(Repeated(L"abs(", 63) + L"1)", 0.0, -2);
  Expect(Repeated(L"pow(1,", 36) + L"2" + Repeated(L")", 36), 1.0, 0);
  Expect(Repeated(L"abs(", 50) + L"1/0" + Repeated(L")", 50), 0.0, -2);
}

// Pieces that break off in the middle, again and again: the plain machine tells what a few of them give, and that is
// what 200,000 of them give.
TEST(FormulaLengthTest, BrokenPiecesRepeated) {
  std::vector<oracle::Function> table;
  for (const FormulaFunction& function : FormulaFunctions()) table.push_back({function.Name, function.Function});
  int compared = 0;
  for (const std::wstring prefix : {L"", L"1 ", L"(1)", L"1+", L"abs("}) {
    for (const std::wstring piece :
         {L"abs((1)$",       L"abs((1)",     L"abs((1)1",  L"abs(1",       L"(abs(", L"abs()", L"abs() ",  L"pow(1,",
          L"1 abs(",         L"1$",          L"abs(1/0",   L"x(",          L"1_",    L"1e",    L"(1)",     L"abs(1)",
          L"abs(1) abs((1)", L"abs(abs((1)", L"((1)abs($", L"abs(-abs(1)", L"1,",    L"abs((", L"abs(1)*", L"abs((1)_",
          L"pow((1),"}) {
      const oracle::Result three = oracle::EvaluateFormula(prefix + Repeated(piece, 3), table, 5000000);
      const oracle::Result four = oracle::EvaluateFormula(prefix + Repeated(piece, 4), table, 5000000);
      if (three.OutOfSteps || four.OutOfSteps) continue;
      const Evaluation many = Evaluate(prefix + Repeated(piece, 200000));
      if (three.Status != four.Status || !IsSame(three.Value, four.Value)) continue;
      EXPECT_EQ(many.Status, four.Status) << Printable(prefix + piece);
      EXPECT_TRUE(SameNumber(four.Value, many.Value)) << Printable(prefix + piece);
      ++compared;
    }
  }
  EXPECT_GT(compared, 90);
}

}  // namespace
}  // namespace formulatest
