// Counted objects, their classes and their interfaces.
#include "platform/base/KORBaseUnknown.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

#include "platform/base/KORStatus.h"
#include "tests/platform/ExampleObject.h"

namespace {

using platformtest::CountReferences;
using platformtest::VEXIColour;
using platformtest::VEXIDistance;
using platformtest::VEXIWeight;
using platformtest::Workpiece;

TEST(KORBaseUnknownTest, CountsReferences) {
  const long before = KORBaseUnknown::CountLiveObjects();
  auto* object = new Workpiece;
  EXPECT_EQ(object->AddRef(), 2u);
  EXPECT_EQ(object->Release(), 1u);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  EXPECT_EQ(object->Release(), 0u);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORBaseUnknownTest, CountsReferencesAcrossThreads) {
  Workpiece object;
  std::vector<std::thread> threads;
  for (int index = 0; index < 8; ++index) {
    threads.emplace_back([&object] {
      for (int round = 0; round < 10000; ++round) object.AddRef();
      for (int round = 0; round < 10000; ++round) object.Release();
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(CountReferences(object), 1u);
}

TEST(KORBaseUnknownTest, LastReleaseOfAnyThreadDestroys) {
  const long before = KORBaseUnknown::CountLiveObjects();
  for (int round = 0; round < 100; ++round) {
    auto* object = new Workpiece;
    object->AddRef();
    std::thread other([object] { object->Release(); });
    object->Release();
    other.join();
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORBaseUnknownTest, ReferenceIsTakenWhileThereIsOne) {
  // Asks for a reference to itself while it is being destroyed, as another one who knows it might.
  class AsksAtItsEnd : public KORBaseUnknown {
   public:
    explicit AsksAtItsEnd(bool& taken) : _Taken(taken) {}
    ~AsksAtItsEnd() override { _Taken = TryAddRef(); }

   private:
    bool& _Taken;
  };
  bool taken_at_the_end = true;
  auto* object = new AsksAtItsEnd(taken_at_the_end);
  EXPECT_TRUE(object->TryAddRef());
  EXPECT_EQ(object->Release(), 1u);
  EXPECT_EQ(object->Release(), 0u);
  EXPECT_FALSE(taken_at_the_end);
}

TEST(KORBaseUnknownTest, ReferencesOfTheLastMomentDoNotBringTheObjectBack) {
  class CountsAtItsEnd : public KORBaseUnknown {
   public:
    ~CountsAtItsEnd() override {
      AddRef();
      Release();
    }
  };
  const long before = KORBaseUnknown::CountLiveObjects();
  EXPECT_EQ((new CountsAtItsEnd)->Release(), 0u);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORBaseUnknownTest, ChainOfAnyLengthEnds) {
  class Link : public KORBaseUnknown {
   public:
    explicit Link(KORBaseUnknown_var next) : _Next(std::move(next)) {}

   private:
    KORBaseUnknown_var _Next;
  };
  const long before = KORBaseUnknown::CountLiveObjects();
  KORBaseUnknown_var chain;
  for (int length = 0; length < 1000000; ++length) chain = KORBaseUnknown_var::Adopt(new Link(std::move(chain)));
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1000000);
  chain = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORBaseUnknownTest, CopyIsAnObjectOfItsOwn) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Workpiece object;
  object.AddRef();
  Workpiece copy = object;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
  EXPECT_EQ(CountReferences(copy), 1u);
  copy.AddRef();
  copy = object;
  EXPECT_EQ(CountReferences(copy), 2u) << "an assignment leaves the references alone";
  EXPECT_NE(copy.GetImpl(0), object.GetImpl(0));
}

TEST(KORBaseUnknownTest, KnowsItsClass) {
  const Workpiece object;
  EXPECT_STREQ(object.IsA(), "Workpiece");
  EXPECT_EQ(object.IsAKindOf("Workpiece"), 1);
  EXPECT_EQ(object.IsAKindOf("KORBaseUnknown"), 1);
  EXPECT_EQ(object.IsAKindOf("VEXIWeight"), 0) << "an interface is no kind of object";
  EXPECT_EQ(object.IsAKindOf(nullptr), 0);
  EXPECT_STREQ(KORBaseUnknown::ClassName(), "KORBaseUnknown");
  EXPECT_EQ(KORBaseUnknown::ClassId(), KORUuid::OfName("KORBaseUnknown"));
  EXPECT_STREQ(KORBaseUnknown().IsA(), "KORBaseUnknown");
  EXPECT_STREQ(KORBaseUnknown().GetComponentName(), "");
}

TEST(KORBaseUnknownTest, InterfacesAreDescribed) {
  EXPECT_STREQ(VEXIWeight::ClassName(), "VEXIWeight");
  EXPECT_EQ(VEXIWeight::ClassId(), KORUuid::OfName("VEXIWeight"));
  EXPECT_NE(VEXIWeight::ClassId(), VEXIDistance::ClassId());
  EXPECT_TRUE(VEXIWeight::MetaObject()->IsAKindOf("VEXIWeight"));
  EXPECT_TRUE(VEXIWeight::MetaObject()->IsAKindOf("KORBaseUnknown"));
  EXPECT_FALSE(VEXIWeight::MetaObject()->IsAKindOf("VEXIDistance"));
}

TEST(KORQueryInterfaceTest, GivesTheInterfaceWithAReference) {
  Workpiece object;
  void* out = nullptr;
  ASSERT_EQ(object.QueryInterface(VEXIDistance::ClassId(), &out), S_OK);
  EXPECT_EQ(CountReferences(object), 2u);
  auto* const distance = static_cast<VEXIDistance*>(out);
  EXPECT_EQ(distance->GetDistance(), 30);
  EXPECT_EQ(distance->Release(), 1u);
}

TEST(KORQueryInterfaceTest, GivesTheBaseOfEveryObject) {
  Workpiece object;
  void* out = nullptr;
  ASSERT_EQ(object.QueryInterface(KORBaseUnknown::ClassId(), &out), S_OK);
  EXPECT_EQ(static_cast<KORBaseUnknown*>(out), object.GetImpl(0));
  EXPECT_EQ(object.Release(), 1u);
}

TEST(KORQueryInterfaceTest, InterfaceNotOfferedGivesNull) {
  Workpiece object;
  void* out = &object;
  EXPECT_EQ(object.QueryInterface(KORUuid{}, &out), E_NOINTERFACE) << "an identifier that was never set";
  EXPECT_EQ(out, nullptr);
  out = &object;
  EXPECT_EQ(object.QueryInterface(VEXIColour::ClassId(), &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(CountReferences(object), 1u);
}

TEST(KORQueryInterfaceTest, NullOutIsAnInvalidArgument) {
  Workpiece object;
  EXPECT_EQ(object.QueryInterface(VEXIWeight::ClassId(), nullptr), E_INVALIDARG);
  EXPECT_EQ(object.QueryInterface(VEXIColour::ClassId(), nullptr), E_INVALIDARG);
  EXPECT_EQ(CountReferences(object), 1u);
}

TEST(KORQueryInterfaceTest, OneIdentityFromEveryInterface) {
  Workpiece object;
  VEXIWeight& weight = object;
  VEXIDistance& distance = object;
  EXPECT_EQ(weight.GetImpl(0), distance.GetImpl(0));
  void* out = nullptr;
  ASSERT_EQ(weight.QueryInterface(VEXIDistance::ClassId(), &out), S_OK);
  EXPECT_EQ(static_cast<VEXIDistance*>(out), &distance);
  distance.Release();
}

}  // namespace
