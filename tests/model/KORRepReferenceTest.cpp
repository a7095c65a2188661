// Representation references: what they hold beside their attributes.
#include "platform/model/KORRepReference.h"

#include <gtest/gtest.h>

#include "tests/model/ModelTest.h"

namespace {

using modeltest::NewAnalysis;

TEST(KORRepReferenceTest, NewOneIsTheLastMajorRevisionAndHoldsNothing) {
  const auto analysis = NewAnalysis("TA");
  const KORRepContent& content = analysis->GetContent();
  EXPECT_TRUE(content.IsLastMajorRevision);
  EXPECT_TRUE(content.Alias.IsEmpty());
  EXPECT_TRUE(content.LegacyStreamPath.IsEmpty());
  EXPECT_TRUE(content.Streams.IsEmpty());
  EXPECT_TRUE(content.Container.IsNull());
}

TEST(KORRepReferenceTest, ContainerLivesAsLongAsItsOwner) {
  const long before = KORBaseUnknown::CountLiveObjects();
  auto analysis = NewAnalysis("TA");
  analysis->GetContent().Container = KORBaseUnknown_var::Adopt(new KORBaseUnknown);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
  analysis = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

}  // namespace
