// The one-pass evaluator against the plain machine that reads each token twice: equal value and status for every text.
#include <map>
#include <vector>

#include "formula/FormulaEvaluator.h"
#include "tests/formula/FormulaGenerator.h"
#include "tests/formula/FormulaTest.h"
#include "tests/formula/ScopedLocale.h"
#include "tests/oracle/FormulaOracle.h"

namespace formulatest {
namespace {

// Compares formula by formula, prints the first differences, and counts what came out.
class Comparison {
 public:
  Comparison() {
    for (const FormulaFunction& function : FormulaFunctions()) _Table.push_back({function.Name, function.Function});
  }

  void Compare(const std::wstring& text) {
    const oracle::Result expected = oracle::EvaluateFormula(text, _Table, StepLimit);
    if (expected.OutOfSteps) {
      ++_OutOfSteps;
      return;
    }
    int status = 4711;
    const double value = EvaluateFormula(text.c_str(), status);
    ++_Compared;
    ++_OfStatus[std::min(expected.Status, 1)];
    if (status == expected.Status && IsSame(expected.Value, value)) return;
    if (++_Different <= 20) {
      ADD_FAILURE() << "formula:  " << Printable(text) << "\nexpected: " << Digits(expected.Value) << ", status "
                    << expected.Status << "\ngot:      " << Digits(value) << ", status " << status;
    }
  }

  long Compared() const { return _Compared; }
  long Different() const { return _Different; }
  long OutOfSteps() const { return _OutOfSteps; }
  /// How often the expected status was 0, -1, -2, or above 0 (as 1).
  long OfStatus(int status) { return _OfStatus[status]; }

 private:
  static constexpr long StepLimit = 6000;

  std::vector<oracle::Function> _Table;
  long _Compared = 0;
  long _Different = 0;
  long _OutOfSteps = 0;
  std::map<int, long> _OfStatus;
};

// Draws until so many formulas are compared; the plain machine gives up on the costliest.
void CompareDrawn(std::uint32_t seed, long wanted) {
  FormulaGenerator generator(seed);
  Comparison comparison;
  long drawn = 0;
  for (; comparison.Compared() < wanted && drawn < 2 * wanted; ++drawn) comparison.Compare(generator.Draw());
  EXPECT_EQ(comparison.Different(), 0);
  EXPECT_EQ(comparison.Compared(), wanted) << drawn << " drawn, " << comparison.OutOfSteps() << " given up";
  // A draw that never succeeds, or never fails, compares nothing worth comparing.
  EXPECT_GT(comparison.OfStatus(0), wanted / 10);
  EXPECT_GT(comparison.OfStatus(-1), wanted / 200);
  EXPECT_GT(comparison.OfStatus(-2), wanted / 10);
  EXPECT_GT(comparison.OfStatus(1), wanted / 20);
}

class FormulaDifferentialTest : public testing::TestWithParam<int> {};

TEST_P(FormulaDifferentialTest, DrawnAndMutatedFormulas) {
  CompareDrawn(20250801u + static_cast<std::uint32_t>(GetParam()), 60000);
}

INSTANTIATE_TEST_SUITE_P(Seed, FormulaDifferentialTest, testing::Range(0, 4));

TEST(FormulaDifferentialTest, DecimalComma) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  CompareDrawn(4u, 30000);
}

// There a letter is one byte, so that the classes of characters reach beyond ASCII.
TEST(FormulaDifferentialTest, DecimalCommaInOneByte) {
  const ScopedLocale locale(LATIN1_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << LATIN1_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  CompareDrawn(5u, 30000);
}

// ------------------------------------------------------------------------------------------- All short texts

// Every text of up to `longest` tokens that begins with the token `first`, or with none.
void CompareAll(const std::vector<std::wstring>& tokens, int first, int longest) {
  Comparison comparison;
  std::wstring text;
  const auto extend = [&](const auto& self, int left) -> void {
    comparison.Compare(text);
    if (left == 0) return;
    const std::size_t length = text.size();
    for (const std::wstring& token : tokens) {
      text += token;
      self(self, left - 1);
      text.resize(length);
    }
  };
  text = tokens[static_cast<std::size_t>(first)];
  extend(extend, longest - 1);
  EXPECT_EQ(comparison.Different(), 0);
  EXPECT_EQ(comparison.OutOfSteps(), 0);
  long expected = 0;
  for (long length = 0, count = 1; length < longest; ++length, count *= static_cast<long>(tokens.size())) {
    expected += count;
  }
  EXPECT_EQ(comparison.Compared(), expected);
}

const std::vector<std::wstring>& AllTokens() {
  static const std::vector<std::wstring> tokens{L"1", L"(", L")",   L"+", L"*", L"/",
                                                L",", L"$", L"abs", L"x", L"0", L" "};
  return tokens;
}

// What makes calls and errors in calls, and nothing else, but longer.
const std::vector<std::wstring>& CallTokens() {
  static const std::vector<std::wstring> tokens{L"1", L"(", L")", L"abs(", L"_", L"$"};
  return tokens;
}

class ShortFormulaTest : public testing::TestWithParam<int> {};

TEST_P(ShortFormulaTest, UpToSixTokens) {
  CompareAll(AllTokens(), GetParam(), 6);
}

INSTANTIATE_TEST_SUITE_P(FirstToken, ShortFormulaTest, testing::Range(0, 12));

class ShortCallTest : public testing::TestWithParam<int> {};

TEST_P(ShortCallTest, UpToEightTokens) {
  CompareAll(CallTokens(), GetParam(), 8);
}

INSTANTIATE_TEST_SUITE_P(FirstToken, ShortCallTest, testing::Range(0, 6));

}  // namespace
}  // namespace formulatest
