// How far a long run has come: shown at a terminal, and nowhere else.
#include "tools/impact/ProgressBar.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class ProgressBarTest : public testing::Test {
 protected:
  tool::Surroundings Terminal() {
    tool::Surroundings surroundings{_In, _Out, _Err, _Session, ""};
    surroundings.ErrIsTerminal = true;
    surroundings.Now = [this] { return _Now; };
    return surroundings;
  }
  void Wait(std::chrono::milliseconds time) { _Now += time; }
  std::string Written() const { return _Err.str(); }

 private:
  KORSession _Session;
  std::istringstream _In;
  std::ostringstream _Out;
  std::ostringstream _Err;
  Clock::time_point _Now{};
};

const std::string quarter = "\rwork  [##########------------------------------]  25 %";

TEST_F(ProgressBarTest, ShowsNothingInTheFirstSecond) {
  const tool::Surroundings surroundings = Terminal();
  tool::ProgressBar bar(surroundings, true);
  bar.Show("work", 1, 4);
  Wait(999ms);
  bar.Show("work", 2, 4);
  EXPECT_EQ(Written(), "");
}

TEST_F(ProgressBarTest, ShowsFromThenOn) {
  const tool::Surroundings surroundings = Terminal();
  tool::ProgressBar bar(surroundings, true);
  Wait(1s);
  bar.Show("work", 1, 4);
  EXPECT_EQ(Written(), quarter);
}

TEST_F(ProgressBarTest, ShowsAtMostTenTimesASecond) {
  const tool::Surroundings surroundings = Terminal();
  tool::ProgressBar bar(surroundings, true);
  Wait(1s);
  bar.Show("work", 1, 4);
  Wait(99ms);
  bar.Show("work", 4, 4);
  EXPECT_EQ(Written(), quarter);
  Wait(1ms);
  bar.Show("work", 4, 4);
  EXPECT_EQ(Written(), quarter + "\rwork  [########################################]  100 %");
}

TEST_F(ProgressBarTest, CoversALongerLine) {
  const tool::Surroundings surroundings = Terminal();
  tool::ProgressBar bar(surroundings, true);
  Wait(1s);
  bar.Show("long work", 1, 4);
  Wait(1s);
  bar.Show("work", 1, 4);
  EXPECT_TRUE(Written().ends_with(quarter + "     ")) << Written();
}

TEST_F(ProgressBarTest, LeavesNothingBehind) {
  const tool::Surroundings surroundings = Terminal();
  {
    tool::ProgressBar bar(surroundings, true);
    Wait(1s);
    bar.Show("work", 1, 4);
  }
  EXPECT_EQ(Written(), quarter + "\r" + std::string(quarter.size() - 1, ' ') + "\r");
}

TEST_F(ProgressBarTest, ShowsNothingOfAnEmptyWork) {
  const tool::Surroundings surroundings = Terminal();
  tool::ProgressBar bar(surroundings, true);
  Wait(1s);
  bar.Show("work", 0, 0);
  EXPECT_EQ(Written(), "");
}

// A run in which every look at the clock finds a third of a second gone.
struct RunRow {
  const char* name;
  bool is_terminal;
  std::vector<std::string> options;
  bool shows;
};

class ProgressOfRunTest : public testing::TestWithParam<RunRow> {};

TEST_P(ProgressOfRunTest, IsForPeopleAlone) {
  const support::TemporaryFolder folder;
  folder.Write("t.csv", "time\n10\n");
  for (int index = 0; index < 20; ++index) folder.Write("u" + std::to_string(index) + ".csv", "reuse\nt\n");
  ToolInput input;
  input.ErrIsTerminal = GetParam().is_terminal;
  Clock::time_point now;
  input.Now = [&now] { return now += 333ms; };
  std::vector<std::string> arguments{"impact", folder.Path(), "--template", "t"};
  arguments.insert(arguments.end(), GetParam().options.begin(), GetParam().options.end());
  const ToolOutcome outcome = RunInProcess(arguments, input);
  EXPECT_EQ(outcome.ExitStatus, 0) << outcome.Errors;
  EXPECT_EQ(outcome.Output.find('\r'), std::string::npos);
  if (!GetParam().shows) {
    EXPECT_EQ(outcome.Errors, "");
    return;
  }
  EXPECT_NE(outcome.Errors.find("\rcomputing analyses  ["), std::string::npos) << outcome.Errors;
  EXPECT_NE(outcome.Errors.find("\rchecking files  ["), std::string::npos) << outcome.Errors;
  EXPECT_TRUE(outcome.Errors.ends_with(" \r")) << "the line is gone at the end";
}

INSTANTIATE_TEST_SUITE_P(Rows, ProgressOfRunTest,
                         testing::Values(RunRow{"Terminal", true, {}, true}, RunRow{"Pipe", false, {}, false},
                                         RunRow{"Json", true, {"--json"}, false},
                                         RunRow{"Csv", true, {"--csv"}, false}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ProgressOfRun, MakesRoomForMessages) {
  const support::TemporaryFolder folder;
  folder.Write("t.csv", "time\n10\n");
  for (int index = 0; index < 20; ++index) folder.Write("u" + std::to_string(index) + ".csv", "reuse\nnope\n");
  ToolInput input;
  input.ErrIsTerminal = true;
  Clock::time_point now;
  input.Now = [&now] { return now += 333ms; };
  const ToolOutcome outcome = RunInProcess({"impact", folder.Path(), "--template", "t"}, input);
  EXPECT_EQ(outcome.ExitStatus, 1);
  EXPECT_EQ(outcome.Errors.find("%timeanalysis"), std::string::npos) << outcome.Errors;
  EXPECT_NE(outcome.Errors.find(" \rtimeanalysis: "), std::string::npos) << outcome.Errors;
}

}  // namespace
