// Raised errors, caught in a scope and raised again.
#include "platform/base/KORXHContext.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"

namespace {

TEST(KORXHContextTest, ScopeWithoutErrorRunsToItsEnd) {
  KORXHContext context;
  int steps = 0;
  EXPECT_TRUE(context.Run([&] { ++steps; }));
  EXPECT_EQ(steps, 1);
  EXPECT_FALSE(context.GetError().has_value());
  EXPECT_EQ(context.GetCaught(), nullptr);
}

TEST(KORXHContextTest, CatchesTheNullHandleError) {
  const KORBaseUnknown_var nothing;
  KORXHContext context;
  int steps = 0;
  EXPECT_FALSE(context.Run([&] {
    ++steps;
    nothing->AddRef();
    ++steps;
  }));
  EXPECT_EQ(steps, 1);
  ASSERT_TRUE(context.GetError().has_value());
  EXPECT_EQ(context.GetError()->GetStatus(), E_FAIL);
}

TEST(KORXHContextTest, ReleasesWhatTheScopeHeld) {
  const auto object = KORBaseUnknown_var::Adopt(new KORBaseUnknown);
  KORXHContext context;
  EXPECT_FALSE(context.Run([&] {
    const KORBaseUnknown_var held = object;
    ThrowErrorNullVar();
  }));
  EXPECT_EQ(object->AddRef(), 2u);
  object->Release();
}

TEST(KORXHContextTest, OtherErrorsAreRaisedAgain) {
  KORXHContext context;
  EXPECT_FALSE(context.Run([] { throw std::out_of_range("no such member"); }));
  EXPECT_FALSE(context.GetError().has_value());
  ASSERT_NE(context.GetCaught(), nullptr);
  EXPECT_THROW(KORError::Throw(context.GetCaught()), std::out_of_range);
}

TEST(KORXHContextTest, IsUsedAgain) {
  KORXHContext context;
  EXPECT_FALSE(context.Run([] { ThrowErrorNullVar(); }));
  EXPECT_TRUE(context.Run([] {}));
  EXPECT_FALSE(context.GetError().has_value());
}

TEST(KORXHContextTest, ScopesLieInsideEachOther) {
  KORXHContext outer;
  EXPECT_FALSE(outer.Run([] {
    KORXHContext inner;
    EXPECT_FALSE(inner.Run([] { KORError(E_INVALIDARG, "no such member").Throw(); }));
    KORError::Throw(inner.GetCaught());
  }));
  ASSERT_TRUE(outer.GetError().has_value());
  EXPECT_EQ(outer.GetError()->GetStatus(), E_INVALIDARG);
  EXPECT_EQ(outer.GetError()->GetMessage(), "no such member");
}

}  // namespace
