// The sequence of objects whose positions count from 0.
#include "platform/base/KORSequence.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/base/KORBaseUnknown.h"

namespace {

TEST(KORSequenceTest, CountsFromZero) {
  KORBaseUnknown first;
  KORBaseUnknown second;
  _SEQUENCE_KORBaseUnknown_ptr members;
  EXPECT_EQ(members.Size(), 0);
  members.Append(&first);
  members.Append(nullptr);
  ASSERT_EQ(members.Size(), 2);
  EXPECT_EQ(members[0], &first);
  members[1] = &second;
  const _SEQUENCE_KORBaseUnknown_ptr copy = members;
  members[0] = nullptr;
  EXPECT_EQ(copy[0], &first);
  EXPECT_EQ(copy[1], &second);
}

TEST(KORSequenceTest, OwnsItsArrayAlone) {
  auto* const object = new KORBaseUnknown;
  {
    _SEQUENCE_KORBaseUnknown_ptr members;
    members.Append(object);
  }
  EXPECT_EQ(object->Release(), 0u) << "no reference was added, and none taken";
}

TEST(KORSequenceDeathTest, PositionOutsideEndsTheProcess) {
  KORBaseUnknown object;
  _SEQUENCE_KORBaseUnknown_ptr members;
  members.Append(&object);
  for (const int position : {-1, 1}) {
    EXPECT_DEATH(members[position] = nullptr, "AssertionFailed:0 <= position && position < Size\\(\\) .*KORSequence.h");
    EXPECT_DEATH(static_cast<void>(std::as_const(members)[position]), "AssertionFailed:0 <= position");
  }
}

}  // namespace
