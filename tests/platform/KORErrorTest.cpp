// Raised errors and the errors that wait behind a status.
#include "platform/base/KORError.h"

#include <gtest/gtest.h>

#include <thread>

#include "platform/base/KORStatus.h"

namespace {

TEST(KORErrorTest, WaitsForItsStatus) {
  KORError::SetLastError(KORError(E_FAIL, "no such card"));
  ASSERT_TRUE(KORError::KORGetLastError(E_FAIL, nullptr).has_value());
  EXPECT_EQ(KORError::KORGetLastError(E_FAIL, nullptr)->GetMessage(), "no such card");
  EXPECT_EQ(KORError::KORGetLastError(E_FAIL, nullptr)->GetStatus(), E_FAIL);
  EXPECT_FALSE(KORError::KORGetLastError(E_INVALIDARG, nullptr).has_value());
  KORError::SetLastError(KORError(E_INVALIDARG, "other"));
  EXPECT_FALSE(KORError::KORGetLastError(E_FAIL, nullptr).has_value());
  KORError::ClearLastError();
  EXPECT_FALSE(KORError::KORGetLastError(E_INVALIDARG, nullptr).has_value());
}

TEST(KORErrorTest, BelongsToItsThread) {
  KORError::SetLastError(KORError(E_FAIL, "here"));
  std::thread([] { EXPECT_FALSE(KORError::KORGetLastError(E_FAIL, nullptr).has_value()); }).join();
  EXPECT_TRUE(KORError::KORGetLastError(E_FAIL, nullptr).has_value());
  KORError::ClearLastError();
}

TEST(KORErrorTest, NullHandleErrorHasStatusFail) {
  try {
    ThrowErrorNullVar();
    FAIL() << "no error was raised";
  } catch (const KORError& error) {
    EXPECT_EQ(error.GetStatus(), E_FAIL);
  }
}

TEST(KORErrorTest, TellsItsKind) {
  EXPECT_STREQ(KORError::ClassName(), "KORError");
}

TEST(KORErrorTest, IsRaisedAgain) {
  KORError::SetLastError(KORError(E_INVALIDARG, "no such card"));
  try {
    KORError::KORGetLastError(E_INVALIDARG, nullptr)->Throw();
    FAIL() << "no error was raised";
  } catch (const KORError& error) {
    EXPECT_EQ(error.GetStatus(), E_INVALIDARG);
    EXPECT_EQ(error.GetMessage(), "no such card");
  }
  KORError::ClearLastError();
}

// The codes are those of the platform, with the sign of a 32-bit number.
TEST(KORStatusTest, NegativeMeansFailure) {
  for (const long status : {E_FAIL, E_NOINTERFACE, E_INVALIDARG}) {
    EXPECT_TRUE(Failed(status));
    EXPECT_FALSE(Succeeded(status));
  }
  for (const long status : {S_OK, S_FALSE}) {
    EXPECT_FALSE(Failed(status));
    EXPECT_TRUE(Succeeded(status));
  }
  EXPECT_EQ(E_FAIL, -2147467259L);
}

}  // namespace
