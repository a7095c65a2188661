// The check that a test leaves no counted object behind.
#include "tests/support/LiveObjects.h"

#include "platform/base/KORBaseUnknown.h"

namespace testsupport {

void LiveObjects::OnTestStart(const testing::TestInfo& /*test*/) {
  _AtStart = KORBaseUnknown::CountLiveObjects();
}

void LiveObjects::OnTestEnd(const testing::TestInfo& /*test*/) {
  const long left = KORBaseUnknown::CountLiveObjects() - _AtStart;
  if (left != 0) ADD_FAILURE() << "The test changed the number of live objects by " << left;
}

namespace {

// The listeners of the test program own it; they are there before its main function runs.
[[maybe_unused]] const bool InEveryTest = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new LiveObjects);
  return true;
}();

}  // namespace
}  // namespace testsupport
