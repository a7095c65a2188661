// The helper object and the environment of a session.
#include "platform/services/PLMPSISessionHelpers.h"

#include <gtest/gtest.h>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"

namespace {

PLMPSISessionHelpers_var Helpers() {
  PLMPSISessionHelpers* helpers = nullptr;
  EXPECT_EQ(PLMPSISessionHelpers::GetSessionHelpers(helpers), S_OK);
  return PLMPSISessionHelpers_var::Adopt(helpers);
}

KORIAdpEnvironment_var Environment() {
  KORIAdpEnvironment* environment = nullptr;
  EXPECT_EQ(Helpers()->GetCurrentEnvironment(environment), S_OK);
  return KORIAdpEnvironment_var::Adopt(environment);
}

TEST(PLMPSISessionHelpersTest, ASessionHasOneHelperAndOneEnvironment) {
  const KORFreshSession session;
  EXPECT_FALSE(Helpers().IsNull());
  EXPECT_TRUE(Helpers() == Helpers());
  EXPECT_FALSE(Environment().IsNull());
  EXPECT_TRUE(Environment() == Environment());
}

TEST(PLMPSISessionHelpersTest, SessionsHaveTheirOwn) {
  const KORFreshSession session;
  const PLMPSISessionHelpers_var helpers = Helpers();
  const KORIAdpEnvironment_var environment = Environment();
  const KORFreshSession other;
  EXPECT_FALSE(Helpers() == helpers);
  EXPECT_FALSE(Environment() == environment);
}

TEST(PLMPSISessionHelpersTest, EnvironmentOutlivesItsSessionWhereItIsHeld) {
  KORIAdpEnvironment_var environment;
  {
    const KORFreshSession session;
    environment = Environment();
  }
  environment->AddRef();
  EXPECT_EQ(environment->Release(), 1u);
}

}  // namespace
