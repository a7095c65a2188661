// Formulas on several threads at once do not disturb each other.
#include <barrier>
#include <thread>

#include "platform/knowledge/KORCkeLimits.h"
#include "tests/formula/ScopedLocale.h"
#include "tests/knowledge/KnowledgeTest.h"

namespace knowledgetest {
namespace {

constexpr int ThreadCount = 8;

// Runs `work` with the number of the thread on all threads, released together; the sum of what it gives.
template <class Work>
int RunTogether(const Work& work) {
  std::barrier start(ThreadCount);
  std::vector<int> results(ThreadCount, 0);
  std::vector<std::thread> threads;
  for (int number = 0; number < ThreadCount; ++number) {
    threads.emplace_back([&, number] {
      start.arrive_and_wait();
      results[static_cast<std::size_t>(number)] = work(number);
    });
  }
  for (std::thread& thread : threads) thread.join();
  int sum = 0;
  for (const int result : results) sum += result;
  return sum;
}

int CountWrong(int thread, int round) {
  Formula formula("n : Integer, k : Integer, out Time : Time, out Description : String",
                  "sum = 0 for i = 1, n do sum = sum + k end Time = sum * 0.5 Description = 'k' .. k --" +
                      std::to_string(round % 7),
                  {I(round % 10), I(thread), D("Time", -1), T("")});
  if (formula.Run() != S_OK) return 1;
  const bool right = formula.Real(2) == round % 10 * thread * 0.5 && formula.String(3) == 'k' + std::to_string(thread);
  return right ? 0 : 1;
}

// Run by itself, this is the first use of the engine in the process, on all threads at once.
TEST(KnowledgeThreadsTest, FirstUseOnAllThreadsAtOnce) {
  EXPECT_EQ(RunTogether([](int thread) { return CountWrong(thread, 3); }), 0);
}

TEST(KnowledgeThreadsTest, ManyRunsOnAllThreads) {
  EXPECT_EQ(RunTogether([](int thread) {
              int wrong = 0;
              for (int round = 0; round < 3000; ++round) wrong += CountWrong(thread, round);
              return wrong;
            }),
            0);
}

TEST(KnowledgeThreadsTest, OneThreadRunsAwayBesideOthers) {
  EXPECT_EQ(RunTogether([](int thread) {
              int wrong = 0;
              for (int round = 0; round < 5; ++round) {
                const std::string outcome = thread % 2 == 0 ? ValueOf("(function() while true do end end)()")
                                                            : ValueOf(
                                                                  "(function() local s = 'x' while true do s = s "
                                                                  ".. s end end)()");
                if (!outcome.starts_with("fails: ")) ++wrong;
                wrong += CountWrong(thread, round);
              }
              return wrong;
            }),
            0);
}

TEST(KnowledgeThreadsTest, ExpressionGoesFromThreadToThread) {
  Formula formula("out a : Real, out b : Real", "a = a + 1", {R(0), R(0)});
  for (int number = 1; number <= 3; ++number) {
    std::thread([&] { EXPECT_EQ(formula.Run(), S_OK) << formula.Problem(); }).join();
    EXPECT_EQ(formula.Real(0), 2 * number - 1);
    EXPECT_EQ(formula.Run(), S_OK) << formula.Problem();
    EXPECT_EQ(formula.Real(0), 2 * number);
  }
}

TEST(KnowledgeThreadsTest, ExpressionOutlivesTheThreadThatMadeIt) {
  KORICkeExpression_var expression;
  std::thread([&] { expression = Expression("x : Real, out Time : Time", "x * 2"); }).join();
  ASSERT_EQ(expression->IsValid(), KORCke::True);
  EXPECT_EQ(Text(expression->GetSignature()->GetArgument(2)->GetName()), "Time");
  const KORICkeEvaluator_var evaluator = expression;
  const KORICkeParm_var time = Parameter("Time", R(0));
  evaluator->AddValue(Parameter("x", R(4)));
  evaluator->AddValue(time);
  EXPECT_EQ(evaluator->Run(nullptr), S_OK);
  EXPECT_EQ(time->Value()->AsReal(), 8.0);
}

TEST(KnowledgeThreadsTest, LocaleOfEachThreadPlaysNoPart) {
  // Both are loaded before the threads start.
  ASSERT_TRUE(formulatest::ScopedLocale("C").IsInForce("."));
  ASSERT_TRUE(formulatest::ScopedLocale(COMMA_LOCALE).IsInForce())
      << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  EXPECT_EQ(RunTogether([](int thread) {
              const formulatest::ScopedLocale locale(thread % 2 == 1 ? COMMA_LOCALE : "C");
              int wrong = 0;
              for (int round = 0; round < 500; ++round) {
                wrong += TextOf("1.5 .. '' --" + std::to_string(round % 5)) == "1.5" ? 0 : 1;
              }
              return wrong;
            }),
            0);
}

}  // namespace
}  // namespace knowledgetest
