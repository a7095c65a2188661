// Evaluations on several threads at once do not disturb each other.
#include <barrier>
#include <thread>

#include "formula/FormulaEvaluator.h"
#include "tests/formula/FormulaTest.h"
#include "tests/formula/ScopedLocale.h"

namespace formulatest {
namespace {

constexpr int ThreadCount = 8;

const std::vector<FormulaCase>& Formulas() {
  static const std::vector<FormulaCase> formulas{
      {"Sum", L"1+2*3", 7.0, 0},
      {"Calls", L"sqrt(pow(3,2)+pow(4,2))", 5.0, 0},
      {"Reach", L"MTM1REACH(0,4,0,0)", 3.4, 0},
      {"Most", L"MOST(300000,100000)", 40.0, 0},
      {"Deep", L"abs(abs(abs(abs(abs(abs(-2))))))", 2.0, 0},
      {"Syntax", L"2*-3", 0.0, 3},
      {"Division", L"5/(1-1)", 0.0, -1},
      {"Unknown", L"1+foo(1)", 0.0, -2},
      {"ReadAhead", L"1 abs((1)$", 0.0, 2},
      {"Empty", L"", 0.0, 1},
      {"Assembly", L"WFASY(0,5,2,0,0,7,1)", 23.0, 0},
  };
  return formulas;
}

// Runs `work` with the number of the thread on all threads, released together.
template <class Work>
void RunTogether(const Work& work) {
  std::barrier start(ThreadCount);
  std::vector<std::thread> threads;
  for (int number = 0; number < ThreadCount; ++number) {
    threads.emplace_back([&, number] {
      start.arrive_and_wait();
      work(number);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

long CountWrong(const FormulaCase& row) {
  const Evaluation result = Evaluate(row.text);
  return result.Status == row.status && IsSame(row.value, result.Value) ? 0 : 1;
}

// Run by itself, this is the first evaluation of the process, on all threads at once.
TEST(FormulaThreadsTest, FirstEvaluationOnAllThreadsAtOnce) {
  std::vector<long> wrong(ThreadCount, 0);
  RunTogether([&](int number) {
    const auto slot = static_cast<std::size_t>(number);
    wrong[slot] = CountWrong(Formulas()[slot + 1 < Formulas().size() ? slot + 1 : 0]);
  });
  for (const long count : wrong) EXPECT_EQ(count, 0);
}

TEST(FormulaThreadsTest, ManyEvaluationsOnAllThreads) {
  std::vector<long> wrong(ThreadCount, 0);
  RunTogether([&](int number) {
    const auto slot = static_cast<std::size_t>(number);
    for (std::size_t round = 0; round < 20000; ++round) {
      InitFormulaFunctions();
      wrong[slot] += CountWrong(Formulas()[(round + slot) % Formulas().size()]);
    }
  });
  for (const long count : wrong) EXPECT_EQ(count, 0);
}

TEST(FormulaThreadsTest, EachThreadHasItsOwnDecimalCharacter) {
  // Both are loaded before the threads start.
  ASSERT_TRUE(ScopedLocale("C").IsInForce("."));
  ASSERT_TRUE(ScopedLocale(COMMA_LOCALE).IsInForce())
      << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  std::vector<long> wrong(ThreadCount, 0);
  RunTogether([&](int number) {
    const auto slot = static_cast<std::size_t>(number);
    const bool comma = number % 2 == 1;
    const ScopedLocale locale(comma ? COMMA_LOCALE : "C");
    if (!locale.IsInForce(comma ? "," : ".")) wrong[slot] = 1;
    for (int round = 0; round < 5000; ++round) {
      wrong[slot] += CountWrong({"Fraction", comma ? L"1,5+abs(2,25)" : L"1.5+abs(2.25)", 3.75, 0});
      wrong[slot] += CountWrong({"OtherCharacter", comma ? L"1.5" : L"1,5", 0.0, comma ? -2 : 2});
    }
  });
  for (const long count : wrong) EXPECT_EQ(count, 0);
}

}  // namespace
}  // namespace formulatest
