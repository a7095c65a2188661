// Paths through the tree.
#include "platform/services/KORPathElement.h"

#include <gtest/gtest.h>

#include <exception>
#include <new>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/services/TreeTest.h"

namespace servicestest {
namespace {

using Path_var = KORHandle<KORPathElement>;

Path_var NewPath(KORBaseUnknown* object) {
  return Path_var::Adopt(new (std::nothrow) KORPathElement(object));
}

TEST(KORPathElementTest, StartsAtItsObject) {
  const Node_var object = NewNode();
  const Path_var path = NewPath(object.Get());
  ASSERT_FALSE(path.IsNull());
  EXPECT_EQ(path->GetStart().Get(), object->GetImpl(0));
  EXPECT_EQ(CountReferences(*path), 1u) << "that of its maker";
}

TEST(KORPathElementTest, MayStartNowhere) {
  const Path_var path = NewPath(nullptr);
  ASSERT_FALSE(path.IsNull());
  EXPECT_TRUE(path->GetStart().IsNull());
}

TEST(KORPathElementTest, KeepsItsObjectAlive) {
  const long before = KORBaseUnknown::CountLiveObjects();
  KORBaseUnknown_var object = NewObject("Start");
  Path_var path = NewPath(object.Get());
  object = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
  EXPECT_STREQ(path->GetStart()->GetComponentName(), "Start");
  path = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORPathElementTest, IsNotMadeWithoutMemory) {
  KORFreshSession session;
  const KORBaseUnknown_var object = NewObject();
  for (const KORFault& fault : {KORFault{}, KORFault{.What = KORFault::Kind::NullAlone},
                                KORFault{.What = KORFault::Kind::Raised, .Error = std::make_exception_ptr(1)}}) {
    session.InjectFault("KORPathElement", fault);
    EXPECT_TRUE(NewPath(object.Get()).IsNull());
    EXPECT_EQ(CountReferences(*object), 1u);
  }
  session.ClearFaults();
  EXPECT_FALSE(NewPath(object.Get()).IsNull());
}

}  // namespace
}  // namespace servicestest
