// The program itself, stopped by a signal while it changes files.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace {

constexpr int file_count = 1500;
const std::string old_content = "reuse,recorded\nt,1.8\n";
const std::string new_content = "reuse,recorded\nt,3.6\n";

std::string NameOf(int index) {
  return "f" + std::to_string(10000 + index) + ".csv";
}

struct Ended {
  int Status = -1;
  std::string Messages;
};

// Runs the program, and sends it the signal as soon as the first file is new.
Ended RunAndStop(const support::TemporaryFolder& folder, const std::string& model, int signal) {
  const std::string messages = folder.Path("messages");
  const pid_t child = fork();
  if (child == 0) {
    const bool redirected = freopen(messages.c_str(), "w", stderr) != nullptr &&
                            freopen(folder.Path("answers").c_str(), "w", stdout) != nullptr;
    if (redirected) {
      execl(TIMEANALYSIS_PROGRAM, TIMEANALYSIS_PROGRAM, "impact", model.c_str(), "--template", "t", "--apply",
            static_cast<char*>(nullptr));
    }
    _exit(127);
  }
  int status = 0;
  while (waitpid(child, &status, WNOHANG) == 0) {
    if (folder.Read("model/" + NameOf(0)) != new_content) continue;
    kill(child, signal);
    waitpid(child, &status, 0);
    break;
  }
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.Read("messages").value_or("")};
}

class StoppedProgramTest : public testing::TestWithParam<int> {};

TEST_P(StoppedProgramTest, LeavesEachFileOldOrNewAndSaysWhich) {
  const support::TemporaryFolder folder;
  folder.Write("model/t.csv", "time\n100\n");
  const std::string model = folder.Path("model");
  // The program may be through ahead of the signal where the machine is busy; it is started anew then.
  Ended ended;
  for (int attempt = 0; attempt < 20 && ended.Status != 3; ++attempt) {
    for (int index = 0; index < file_count; ++index) folder.Write("model/" + NameOf(index), old_content);
    ended = RunAndStop(folder, model, GetParam());
    ASSERT_TRUE(ended.Status == 0 || ended.Status == 3) << ended.Status << ' ' << ended.Messages;
  }
  ASSERT_EQ(ended.Status, 3);
  int written = 0;
  for (int index = 0; index < file_count; ++index) {
    const std::optional<std::string> content = folder.Read("model/" + NameOf(index));
    const bool is_new = content == new_content;
    ASSERT_TRUE(is_new || content == old_content) << NameOf(index) << ": " << content.value_or("(gone)");
    const std::string word = is_new ? "\n  new  " : "\n  old  ";
    EXPECT_NE(ended.Messages.find(word + model + "/" + NameOf(index)), std::string::npos) << NameOf(index);
    written += is_new ? 1 : 0;
  }
  EXPECT_GT(written, 0);
  EXPECT_LT(written, file_count);
  std::ostringstream counts;
  counts << "timeanalysis: interrupted\n" << written << " of " << file_count << " files written";
  EXPECT_TRUE(ended.Messages.starts_with(counts.str())) << ended.Messages.substr(0, 200);
  using Entry = std::filesystem::directory_iterator;
  EXPECT_EQ(std::distance(Entry(model), Entry()), file_count + 1) << "nothing temporary is left";
}

INSTANTIATE_TEST_SUITE_P(Signals, StoppedProgramTest, testing::Values(SIGINT, SIGTERM),
                         [](const auto& row) { return std::string(row.param == SIGINT ? "Interrupt" : "Terminate"); });

}  // namespace
