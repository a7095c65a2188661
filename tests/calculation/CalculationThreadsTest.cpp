// Calculations on eight threads at once, each with a session, service objects and analyses of its own.
#include <gtest/gtest.h>

#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/system/KORSession.h"
#include "tests/calculation/ModelTwin.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/RandomAnalysis.h"

namespace {

using calculationtest::ModelTwin;

constexpr std::size_t ThreadCount = 8;
constexpr int ModelCount = 25;

// Draws models with formulas and reuse, calculates all of their analyses, and describes what has become of them.
std::vector<std::string> CalculateModels(unsigned seed) {
  KORFreshSession session;
  // A site's conversion comes from the settings of the session.
  session.AddRepository("VEXTimeAnalysisCommonOptions")
      .WriteSetting("mintotmuconversion", KORUnicodeString(std::to_string(1000 + seed)));
  support::RandomAnalysisOptions options;
  options.unknown_magnitudes = true;
  support::RandomAnalysis models(seed, options);
  VEXSTMTimeAnalysisDlgServices services;
  std::vector<std::string> results;
  for (int number = 0; number < ModelCount; ++number) {
    support::RandomModel model = models.Draw();
    const ModelTwin twin(model);
    for (std::size_t index = 0; index < twin.Size(); ++index) {
      (void)services.CalculateAnalyzedTimeBG(twin.Of(twin.Plain(index)));
      results.push_back(support::DescribeAnalysis(twin.Inside(index)));
    }
  }
  return results;
}

// The results of all threads, released together; thread n draws from seed first + step * n.
std::vector<std::vector<std::string>> CalculateOnAllThreads(unsigned first, unsigned step) {
  std::vector<std::vector<std::string>> results(ThreadCount);
  std::barrier start(static_cast<std::ptrdiff_t>(ThreadCount));
  std::vector<std::thread> threads;
  for (std::size_t number = 0; number < ThreadCount; ++number) {
    threads.emplace_back([&, number] {
      start.arrive_and_wait();
      results[number] = CalculateModels(first + step * static_cast<unsigned>(number));
    });
  }
  for (std::thread& thread : threads) thread.join();
  return results;
}

TEST(CalculationThreadsTest, DistinctModelsGiveWhatOneThreadGives) {
  const auto results = CalculateOnAllThreads(501, 1);
  for (std::size_t number = 0; number < ThreadCount; ++number) {
    EXPECT_EQ(results[number], CalculateModels(501 + static_cast<unsigned>(number))) << "thread " << number;
  }
}

// The same formulas everywhere: the threads meet at whatever the engine shares.
TEST(CalculationThreadsTest, TheSameModelsGiveTheSameOnAllThreads) {
  const auto results = CalculateOnAllThreads(601, 0);
  const std::vector<std::string> expected = CalculateModels(601);
  for (std::size_t number = 0; number < ThreadCount; ++number) {
    EXPECT_EQ(results[number], expected) << "thread " << number;
  }
}

}  // namespace
