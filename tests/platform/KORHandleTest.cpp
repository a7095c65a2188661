// Counted handles and their casts.
#include "platform/base/KORHandle.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>
#include <utility>
#include <vector>

#include "platform/base/KORObjectLists.h"
#include "tests/platform/ExampleObject.h"

namespace {

using platformtest::CountReferences;
using platformtest::MakeWorkpiece;
using platformtest::VEXIColour_var;
using platformtest::VEXIDistance_var;
using platformtest::VEXIWeight;
using platformtest::VEXIWeight_var;
using platformtest::Workpiece;

TEST(KORHandleTest, KeepsItsObjectAlive) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    VEXIWeight_var first(MakeWorkpiece());
    VEXIWeight_var second = first;
    first = nullptr;
    EXPECT_TRUE(first.IsNull());
    EXPECT_EQ(second->GetWeight(), 7);
    const VEXIWeight_var third = std::move(second);
    EXPECT_EQ(third->GetWeight(), 7);
    EXPECT_EQ(CountReferences(*third), 1u) << "a move takes the reference over";
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORHandleTest, TakesAReferenceOfItsOwn) {
  Workpiece object;
  {
    VEXIWeight_var handle(&object);
    EXPECT_EQ(CountReferences(object), 2u);
    const VEXIWeight_var& same = handle;
    handle = same;
    EXPECT_EQ(handle.Get(), &object);
    EXPECT_EQ(CountReferences(object), 2u);
  }
  EXPECT_EQ(CountReferences(object), 1u);
}

TEST(KORHandleTest, AdoptTakesTheCallersReference) {
  Workpiece object;
  object.AddRef();
  { const VEXIWeight_var handle = VEXIWeight_var::Adopt(&object); }
  EXPECT_EQ(CountReferences(object), 1u);
  EXPECT_TRUE(VEXIWeight_var::Adopt(nullptr).IsNull());
}

TEST(KORHandleTest, CastsToInterfacesOfTheObject) {
  const KORBaseUnknown_var object = MakeWorkpiece();
  const VEXIWeight_var weight = object;
  const VEXIDistance_var distance = weight;
  ASSERT_FALSE(distance.IsNull());
  EXPECT_EQ(distance->GetDistance(), 30);
  EXPECT_EQ(CountReferences(*object), 3u);
  const KORBaseUnknown_var back = distance;
  EXPECT_EQ(back.Get(), object.Get());
  EXPECT_EQ(weight.Get()->GetImpl(0), object.Get());
}

TEST(KORHandleTest, CastToAnInterfaceNotOfferedGivesNull) {
  const KORBaseUnknown_var object = MakeWorkpiece();
  const VEXIColour_var colour = object;
  EXPECT_TRUE(colour.IsNull());
  EXPECT_EQ(CountReferences(*object), 1u);
}

TEST(KORHandleTest, CastOfNullGivesNull) {
  const KORBaseUnknown_var nothing;
  EXPECT_TRUE(VEXIWeight_var(nothing).IsNull());
  EXPECT_TRUE(KORBaseUnknown_var(VEXIWeight_var()).IsNull());
  EXPECT_TRUE(VEXIWeight_var(static_cast<KORBaseUnknown*>(nullptr)).IsNull());
  EXPECT_TRUE(VEXIWeight_var(NULL_var).IsNull());
}

void RaisesTheNullHandleError(const std::function<void()>& call) {
  try {
    call();
    ADD_FAILURE() << "no error was raised";
  } catch (const KORError& error) {
    EXPECT_EQ(error.GetStatus(), E_FAIL);
    EXPECT_FALSE(error.GetMessage().IsEmpty());
  }
}

TEST(KORHandleTest, CallThroughNullRaises) {
  const VEXIWeight_var nothing;
  RaisesTheNullHandleError([&] { static_cast<void>(nothing->GetWeight()); });
  RaisesTheNullHandleError([&] { static_cast<void>((*nothing).GetWeight()); });
}

TEST(KORHandleTest, EqualityComparesObjects) {
  const KORBaseUnknown_var object = MakeWorkpiece();
  const KORBaseUnknown_var other = MakeWorkpiece();
  const VEXIWeight_var weight = object;
  const VEXIDistance_var distance = object;
  EXPECT_TRUE(weight == distance);
  EXPECT_TRUE(object == distance);
  EXPECT_TRUE(weight != VEXIDistance_var(other));
  EXPECT_TRUE(object != other);
}

TEST(KORHandleTest, NullEqualsNullAlone) {
  const KORBaseUnknown_var object = MakeWorkpiece();
  const VEXIWeight_var nothing;
  EXPECT_TRUE(nothing == NULL_var);
  EXPECT_TRUE(NULL_var == nothing);
  EXPECT_TRUE(nothing == VEXIDistance_var());
  EXPECT_TRUE(nothing != object);
  EXPECT_TRUE(object != nothing);
  EXPECT_TRUE(NULL_var != object);
}

TEST(KORHandleTest, CountsAcrossThreads) {
  const KORBaseUnknown_var object = MakeWorkpiece();
  std::vector<std::thread> threads;
  for (int index = 0; index < 8; ++index) {
    threads.emplace_back([object] {
      for (int round = 0; round < 5000; ++round) {
        const VEXIDistance_var cast = object;
        EXPECT_EQ(cast->GetDistance(), 30);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  threads.clear();
  EXPECT_EQ(CountReferences(*object), 1u);
}

TEST(KORObjectListTest, KeepsItsObjectsAndLocatesThem) {
  const KORBaseUnknown_var object = MakeWorkpiece();
  KORListValKORBaseUnknown_var list;
  list.Append(MakeWorkpiece());
  list.Append(object);
  list.Append(nullptr);
  EXPECT_EQ(CountReferences(*object), 2u);
  EXPECT_EQ(list.Locate(VEXIDistance_var(object)), 2);
  EXPECT_EQ(list.Locate(nullptr), 3);
  EXPECT_EQ(list.Locate(MakeWorkpiece()), 0);
  EXPECT_EQ(VEXIWeight_var(list[1])->GetWeight(), 7);
  list.RemoveAll();
  EXPECT_EQ(CountReferences(*object), 1u);
}

TEST(KORObjectListTest, ListsOfPointersTakeNoReferences) {
  Workpiece first;
  Workpiece second;
  KORListPtrKORBaseUnknown list;
  list.Append(first.GetImpl(0));
  KORListPtrIUnknown more;
  more.Append(second.GetImpl(0));
  list.Append(more);
  EXPECT_EQ(list.Size(), 2);
  EXPECT_EQ(list.Locate(second.GetImpl(0)), 2);
  EXPECT_EQ(CountReferences(first), 1u);
}

}  // namespace
