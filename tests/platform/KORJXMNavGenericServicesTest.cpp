// Who works in the current session.
#include "platform/system/KORJXMNavGenericServices.h"

#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"

namespace {

TEST(KORJXMNavGenericServicesTest, GivesTheUserOfTheCurrentSession) {
  KORFreshSession outer;
  outer.SetCurrentUserId("planner");
  KORUnicodeString user;
  EXPECT_EQ(KORJXMNavGenericServices::GetCurrentUserId(user), S_OK);
  EXPECT_EQ(user, "planner");
  const KORFreshSession inner;
  EXPECT_EQ(KORJXMNavGenericServices::GetCurrentUserId(user), E_FAIL);
  EXPECT_EQ(user, "planner");
}

TEST(KORJXMNavGenericServicesTest, FailsWhenToldTo) {
  KORFreshSession session;
  session.SetCurrentUserId("planner");
  session.InjectFault("GetCurrentUserId", E_INVALIDARG);
  KORUnicodeString user("default");
  EXPECT_EQ(KORJXMNavGenericServices::GetCurrentUserId(user), E_INVALIDARG);
  EXPECT_EQ(user, "default");
}

}  // namespace
