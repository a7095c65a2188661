// The check of live objects sees what a test leaves behind, and what it takes away.
#include "tests/support/LiveObjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/base/KORHandle.h"

namespace {

const testing::TestInfo& ThisTest() {
  return *testing::UnitTest::GetInstance()->current_test_info();
}

// Gives the exit status.
int RunCommand(const std::string& command, std::string& output) {
  FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return -1;
  std::array<char, 256> part{};
  while (std::fgets(part.data(), static_cast<int>(part.size()), pipe) != nullptr) output += part.data();
  return pclose(pipe);
}

TEST(LiveObjectsTest, WhatIsReleasedIsNoFault) {
  testsupport::LiveObjects check;
  check.OnTestStart(ThisTest());
  { const auto object = KORBaseUnknown_var::Adopt(new KORBaseUnknown); }
  check.OnTestEnd(ThisTest());
}

TEST(LiveObjectsTest, SeesALeak) {
  testsupport::LiveObjects check;
  check.OnTestStart(ThisTest());
  const auto left = KORBaseUnknown_var::Adopt(new KORBaseUnknown);
  EXPECT_NONFATAL_FAILURE(check.OnTestEnd(ThisTest()), "the number of live objects by 1");
}

TEST(LiveObjectsTest, SeesOneReleaseTooMany) {
  testsupport::LiveObjects check;
  auto from_outside = KORBaseUnknown_var::Adopt(new KORBaseUnknown);
  check.OnTestStart(ThisTest());
  from_outside = nullptr;
  EXPECT_NONFATAL_FAILURE(check.OnTestEnd(ThisTest()), "the number of live objects by -1");
}

// The program runs this test once more, which then leaves an object behind.
TEST(LiveObjectsTest, IsAtWorkInThisProgram) {
  if (std::getenv("LEAVE_AN_OBJECT") != nullptr) {
    static const KORBaseUnknown left;
    return;
  }
  const std::string program = std::filesystem::read_symlink("/proc/self/exe");
  const std::string command = "LEAVE_AN_OBJECT=1 '" + program + "' --gtest_filter=" + ThisTest().test_suite_name() +
                              "." + ThisTest().name() + " 2>&1";
  std::string output;
  const int status = RunCommand(command, output);
  EXPECT_NE(status, 0);
  EXPECT_THAT(output, testing::HasSubstr("The test changed the number of live objects by 1"));
}

}  // namespace
