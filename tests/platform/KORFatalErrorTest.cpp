// The end of the process on a broken invariant.
#include "platform/base/KORFatalError.h"

#include <gtest/gtest.h>

#include <csignal>

namespace {

TEST(KORFatalErrorDeathTest, PrintsOneLineAndAborts) {
  EXPECT_EXIT(KORFatalError("AssertionFailed:pIdentifier", nullptr, nullptr, nullptr, "Source.cpp", 42),
              testing::KilledBySignal(SIGABRT), "^AssertionFailed:pIdentifier Source.cpp 42\n");
}

}  // namespace
