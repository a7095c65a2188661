// Changes carried up in sessions side by side: each thread has a session of its own, with analyses alike.
#include <gtest/gtest.h>

#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "tests/objects/ImpactTest.h"

namespace {

using objectstest::NewAnalysis;
using objectstest::NewTemplate;
using objectstest::Propagate;
using objectstest::ReusingLine;
using support::Line;
using support::TimeAnalysis_var;
using support::TimeFormula;

constexpr int ThreadCount = 8;
constexpr int Rounds = 20;

// What the analyses of a session hold once the change has come up. "Grip" has a formula, "Pick" and "Place" reuse it,
// and "Assemble" reuses both.
std::string CarryUp() {
  const KORFreshSession session;
  const auto grip = NewTemplate("Grip", 10.0, 2.5, {Line("F").Formula(TimeFormula("Grip", "1", "0.36"))});
  const auto pick = NewAnalysis("Pick", {ReusingLine("Grip", grip)});
  const auto place = NewAnalysis("Place", {ReusingLine("Grip", grip), ReusingLine("Grip", grip)});
  const auto assemble = NewAnalysis("Assemble", {ReusingLine("Pick", pick), ReusingLine("Place", place)});
  EXPECT_EQ(Propagate(grip), "S_OK");
  std::string content;
  for (const TimeAnalysis_var& analysis : {pick, place, assemble}) content += support::DescribeAnalysis(*analysis);
  return content;
}

TEST(ImpactThreadsTest, SessionsDoNotSeeEachOther) {
  const std::string expected = CarryUp();
  std::barrier start(ThreadCount);
  std::vector<std::thread> threads;
  for (int number = 0; number < ThreadCount; ++number) {
    threads.emplace_back([&expected, &start] {
      start.arrive_and_wait();
      for (int round = 0; round < Rounds; ++round) EXPECT_EQ(CarryUp(), expected);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
