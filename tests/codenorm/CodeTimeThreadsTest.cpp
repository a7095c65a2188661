// Copies of one service object look codes up on several threads at once: they share the table and its index.
#include <gtest/gtest.h>

#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/CardTable.h"
#include "tests/support/ServiceTest.h"
#include "tests/support/ShippedCatalogue.h"

namespace {

using support::Patterned;
using support::Plain;
using support::Ranged;
using support::TableOf;
using support::Text;
using support::TimeOf;
using support::Unicode;

constexpr std::size_t ThreadCount = 8;

struct Answer {
  const char* code;
  const char* time;
  const char* id;
  long option;
};

// What the table below says.
constexpr Answer Answers[] = {
    {"GA", "3", "1", 0},  {"X5", "10", "2", 0}, {"X10", "0", "", 0},   {"GR7", "15", "3", 2},  {"gr 8 h", "27", "4", 6},
    {"m5a", "4", "5", 0}, {"NONE", "0", "", 0}, {"CALL", "8", "6", 0}, {"GR12", "25", "3", 2}, {"X2.5", "5", "2", 0}};

std::string Table() {
  return TableOf({Plain("1", "GA", "3"), Ranged("2", "X", "2*$1$", "1", "10"),
                  Patterned("3", "\"GR\"%(|\"H\"|\"\")", "1+2*$1$", "0", "", "2"),
                  Patterned("4", "\"GR\"%(|\"H\"|\"\")", "1+2*$1$", "4", "+10", "4"), Plain("5", "M5A1", "4"),
                  Plain("6", "CALL", "pow(2,3)")});
}

class CodeTimeThreadsTest : public support::ServiceTest {
 protected:
  static long CountWrong(VEXSTMTimeAnalysisDlgServices& services, const Answer& answer) {
    long option = 0;
    const bool right = TimeOf(services, answer.code) == answer.time && Text(services.GetTACodeID()) == answer.id;
    services.GetOptionID(Unicode(answer.code), option);
    return right && option == answer.option ? 0 : 1;
  }

  // Looks codes up on all threads, released together, each with a copy of `original`. Returns the wrong answers.
  static long CountWrongOnAllThreads(const VEXSTMTimeAnalysisDlgServices& original, std::size_t rounds) {
    std::vector<VEXSTMTimeAnalysisDlgServices> copies(ThreadCount, original);
    std::vector<long> wrong(ThreadCount, 0);
    std::barrier start(static_cast<std::ptrdiff_t>(ThreadCount));
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < ThreadCount; ++number) {
      threads.emplace_back([&, number] {
        start.arrive_and_wait();
        for (std::size_t round = 0; round < rounds; ++round) {
          wrong[number] += CountWrong(copies[number], Answers[(round + number) % std::size(Answers)]);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    long all = 0;
    for (const long count : wrong) all += count;
    return all;
  }
};

TEST_F(CodeTimeThreadsTest, OneThreadGivesTheAnswers) {
  VEXSTMTimeAnalysisDlgServices services;
  Load(services, "STD", Table());
  for (const Answer& answer : Answers) EXPECT_EQ(CountWrong(services, answer), 0) << answer.code;
}

// Nothing has been looked up before, so that the threads meet at the making of the index.
TEST_F(CodeTimeThreadsTest, FirstLookupsOnAllThreadsAtOnce) {
  for (int table = 0; table < 50; ++table) {
    VEXSTMTimeAnalysisDlgServices services;
    Load(services, "STD", Table());
    EXPECT_EQ(CountWrongOnAllThreads(services, std::size(Answers)), 0) << "table " << table;
  }
}

TEST_F(CodeTimeThreadsTest, ManyLookupsOnAllThreads) {
  VEXSTMTimeAnalysisDlgServices services;
  Load(services, "STD", Table());
  EXPECT_EQ(CountWrongOnAllThreads(services, 2000), 0);
  EXPECT_EQ(services.GetCodeIndex(), -1) << "the copies keep their own state";
}

}  // namespace
