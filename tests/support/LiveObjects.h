// The check that a test leaves no counted object behind.
#pragma once

#include <gtest/gtest.h>

namespace testsupport {

/// Compares the number of live objects (KORBaseUnknown::CountLiveObjects) at the end of a test with that at its start,
/// and fails the test where they differ. One is at work in every test program that is linked with its source.
class LiveObjects : public testing::EmptyTestEventListener {
 public:
  void OnTestStart(const testing::TestInfo& test) override;
  void OnTestEnd(const testing::TestInfo& test) override;

 private:
  long _AtStart = 0;
};

}  // namespace testsupport
