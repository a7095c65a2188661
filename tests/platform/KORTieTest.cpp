// Forwarders: several interfaces of an object that lead to one extension.
#include "platform/base/KORTie.h"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <set>
#include <thread>
#include <vector>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORStatus.h"
#include "tests/platform/ExampleObject.h"

namespace {

using platformtest::CountReferences;
using platformtest::MakeWorkpiece;
using platformtest::VEXIDistance_var;
using platformtest::VEXIWeight_var;
using platformtest::Workpiece;

class VEXIWinder : public KORInterface<VEXIWinder> {
 public:
  static constexpr const char* InterfaceName = "KORTieTest.VEXIWinder";
  virtual int Wind(int turns) = 0;
};
using VEXIWinder_var = KORHandle<VEXIWinder>;

class VEXIDial : public KORInterface<VEXIDial> {
 public:
  static constexpr const char* InterfaceName = "KORTieTest.VEXIDial";
  virtual int GetTurns() = 0;
  /// The extension that does the work.
  virtual const void* GetWorker() = 0;
};
using VEXIDial_var = KORHandle<VEXIDial>;

class VEXIAlarm : public KORInterface<VEXIAlarm> {
 public:
  static constexpr const char* InterfaceName = "KORTieTest.VEXIAlarm";
  virtual int CountTurnsToAlarm() = 0;
};
using VEXIAlarm_var = KORHandle<VEXIAlarm>;

/// With state; implements neither of the interfaces that forwarders lead to it from, and one by itself.
class VEXEClock final : public KORExtension, public KORImplements<VEXIAlarm> {
 public:
  VEXEClock() { ++Living; }
  VEXEClock(const VEXEClock&) = delete;
  VEXEClock& operator=(const VEXEClock&) = delete;
  ~VEXEClock() override { --Living; }

  int Wind(int turns) { return _Turns += turns; }
  int GetTurns() const { return _Turns; }
  int CountTurnsToAlarm() override { return 100 - _Turns; }
  KORBaseUnknown* GetWound() const { return GetExtended(); }

  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{.Name = "KORTieTest.VEXEClock",
                                          .Identifier = KORUuid::OfName("KORTieTest.VEXEClock"),
                                          .Base = KORBaseUnknown::MetaObject(),
                                          .Kind = ENUMTypeOfClass::DataExtension,
                                          .FWname = "KORTieTest",
                                          .Extends = {"KORTieTestClock"}};
    return &description;
  }
  static inline std::atomic<int> Living{0};

 private:
  std::atomic<int> _Turns{0};
};

class TIEVEXIWinder final : public KORTie<VEXIWinder, VEXEClock> {
 public:
  int Wind(int turns) override { return Linked().Wind(turns); }
};

class TIEVEXIDial final : public KORTie<VEXIDial, VEXEClock> {
 public:
  int GetTurns() override { return Linked().GetTurns(); }
  const void* GetWorker() override { return &Linked(); }
};

/// A second class behind one of the interfaces.
class VEXEStopWatch final : public KORExtension {
 public:
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"KORTieTest.VEXEStopWatch", KORUuid::OfName("KORTieTest.VEXEStopWatch"),
                                          KORBaseUnknown::MetaObject(), ENUMTypeOfClass::DataExtension};
    return &description;
  }
};

const KORExtensionRegistration Winder("KORTieTestClock", VEXIWinder::ClassId(), &Tie_Construct<TIEVEXIWinder>);
const KORExtensionRegistration Dial("KORTieTestClock", VEXIDial::ClassId(), &Tie_Construct<TIEVEXIDial>);
const KORExtensionRegistration Alarm("KORTieTestClock", VEXIAlarm::ClassId(),
                                     &KORFillDictionary::ToCreateBOA<VEXIAlarm, VEXEClock>);

KORBaseUnknown_var MakeClock() {
  return MakeWorkpiece("KORTieTestClock");
}

TEST(KORTieTest, InterfacesOfOneObjectLeadToOneExtension) {
  const KORBaseUnknown_var clock = MakeClock();
  EXPECT_EQ(VEXEClock::Living, 0);
  EXPECT_EQ(VEXIWinder_var(clock)->Wind(5), 5);
  EXPECT_EQ(VEXEClock::Living, 1) << "made by the first cast";
  EXPECT_EQ(VEXIDial_var(clock)->GetTurns(), 5);
  EXPECT_EQ(VEXIWinder_var(clock)->Wind(2), 7);
  EXPECT_EQ(VEXIDial_var(clock)->GetWorker(), VEXIDial_var(clock)->GetWorker());
  EXPECT_EQ(VEXEClock::Living, 1);
}

TEST(KORTieTest, ExtensionThatAnswersAnInterfaceItselfIsTheSame) {
  const KORBaseUnknown_var clock = MakeClock();
  EXPECT_EQ(VEXIAlarm_var(clock)->CountTurnsToAlarm(), 100);
  EXPECT_EQ(VEXIWinder_var(clock)->Wind(5), 5);
  EXPECT_EQ(VEXIAlarm_var(clock)->CountTurnsToAlarm(), 95);
  EXPECT_EQ(VEXEClock::Living, 1);
}

TEST(KORTieTest, EachObjectHasItsOwnExtension) {
  const KORBaseUnknown_var first = MakeClock();
  const KORBaseUnknown_var second = MakeClock();
  EXPECT_EQ(VEXIWinder_var(first)->Wind(5), 5);
  EXPECT_EQ(VEXIDial_var(second)->GetTurns(), 0);
  EXPECT_EQ(VEXEClock::Living, 2);
}

TEST(KORTieTest, IsOfferedToTheComponentAlone) {
  EXPECT_TRUE(VEXIWinder_var(MakeWorkpiece("KORTieTestOther")).IsNull());
  EXPECT_TRUE(VEXIWinder_var(MakeWorkpiece()).IsNull());
}

TEST(KORTieTest, HasTheIdentityOfTheObject) {
  const KORBaseUnknown_var clock = MakeClock();
  const VEXIWinder_var winder = clock;
  const VEXIDial_var dial = clock;
  EXPECT_EQ(winder->GetImpl(0), clock.Get());
  EXPECT_EQ(dial->GetImpl(0), clock.Get());
  EXPECT_EQ(KORBaseUnknown_var(dial).Get(), clock.Get());
  EXPECT_TRUE(winder == dial);
  EXPECT_TRUE(winder == VEXIWeight_var(clock));
  EXPECT_FALSE(winder == VEXIWinder_var(MakeClock()));
  EXPECT_EQ(static_cast<const VEXEClock*>(dial->GetWorker())->GetWound(), clock.Get());
}

TEST(KORTieTest, CastsLeadBackToEveryOtherInterface) {
  const VEXIWinder_var winder = MakeClock();
  EXPECT_EQ(winder->Wind(5), 5);
  EXPECT_EQ(VEXIDial_var(winder)->GetTurns(), 5);
  EXPECT_EQ(VEXIAlarm_var(winder)->CountTurnsToAlarm(), 95);
  EXPECT_EQ(VEXIWeight_var(winder)->GetWeight(), 7);
  EXPECT_EQ(VEXIDistance_var(winder)->GetDistance(), 30);
  EXPECT_EQ(VEXIWinder_var(VEXIDial_var(winder))->Wind(1), 6);
}

// Life

TEST(KORTieTest, IsMadeForEachCast) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    const KORBaseUnknown_var clock = MakeClock();
    const VEXIWinder_var first = clock;
    const VEXIWinder_var second = clock;
    EXPECT_NE(first.Get(), second.Get());
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 4) << "the object, its extension and two forwarders";
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORTieTest, IsCountedByItself) {
  Workpiece clock("KORTieTestClock");
  void* out = nullptr;
  ASSERT_EQ(clock.QueryInterface(VEXIDial::ClassId(), &out), S_OK);
  auto* const dial = static_cast<VEXIDial*>(out);
  EXPECT_EQ(CountReferences(clock), 2u) << "that of the forwarder";
  EXPECT_EQ(dial->AddRef(), 2u);
  EXPECT_EQ(CountReferences(clock), 2u);
  EXPECT_EQ(dial->Release(), 1u);
  EXPECT_EQ(dial->GetTurns(), 0);
  EXPECT_EQ(dial->Release(), 0u);
  EXPECT_EQ(CountReferences(clock), 1u);
}

TEST(KORTieTest, KeepsTheObjectAlive) {
  const long before = KORBaseUnknown::CountLiveObjects();
  KORBaseUnknown_var clock = MakeClock();
  VEXIWinder_var winder = clock;
  clock = nullptr;
  EXPECT_EQ(winder->Wind(5), 5);
  EXPECT_EQ(VEXIWeight_var(winder)->GetWeight(), 7);
  EXPECT_EQ(VEXEClock::Living, 1);
  winder = nullptr;
  EXPECT_EQ(VEXEClock::Living, 0);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORTieTest, ExtensionStaysBehindItsForwardersAndGoesWithTheObject) {
  KORBaseUnknown_var clock = MakeClock();
  EXPECT_EQ(VEXIWinder_var(clock)->Wind(5), 5);
  EXPECT_EQ(VEXEClock::Living, 1) << "with no forwarder left";
  EXPECT_EQ(VEXIDial_var(clock)->GetTurns(), 5);
  clock = nullptr;
  EXPECT_EQ(VEXEClock::Living, 0);
}

TEST(KORTieTest, CreationFunctionGivesOneReferenceToTheInterface) {
  Workpiece object;
  auto* const winder = static_cast<VEXIWinder*>(Tie_Construct<TIEVEXIWinder>(object));
  ASSERT_NE(winder, nullptr);
  EXPECT_EQ(winder->Wind(3), 3);
  EXPECT_EQ(CountReferences(*winder), 1u);
  EXPECT_EQ(winder->Release(), 0u);
  EXPECT_EQ(CountReferences(object), 1u);
}

// Description

TEST(KORTieTest, IsDescribedUnderTheNameOfItsInterface) {
  const KORMetaClass& description = *TIEVEXIDial::MetaObject();
  EXPECT_STREQ(description.Name, "KORTieTest.VEXIDial");
  EXPECT_EQ(description.Identifier, VEXIDial::ClassId());
  EXPECT_EQ(description.Base, VEXIDial::MetaObject());
  EXPECT_NE(&description, VEXIDial::MetaObject()) << "it is one of its own";
  EXPECT_STREQ(TIEVEXIDial::ClassName(), "KORTieTest.VEXIDial");
  EXPECT_EQ(TIEVEXIDial::ClassId(), VEXIDial::ClassId());
}

TEST(KORTieTest, DescriptionPointsToThatOfTheClass) {
  const KORMetaClass& description = *TIEVEXIDial::MetaObject();
  EXPECT_EQ(description.Implementation, VEXEClock::MetaObject());
  EXPECT_EQ(TIEVEXIWinder::MetaObject()->Implementation, VEXEClock::MetaObject());
  EXPECT_STREQ(description.FWname, "KORTieTest");
  EXPECT_FALSE(description.IsAKindOf("KORTieTest.VEXEClock")) << "it forwards to the class and is none of its kind";
}

TEST(KORTieTest, DescriptionBelongsToInterfaceAndClass) {
  using OtherDial = KORTie<VEXIDial, VEXEStopWatch>;
  EXPECT_EQ((KORTie<VEXIDial, VEXEClock>::MetaObject()), TIEVEXIDial::MetaObject());
  EXPECT_NE(OtherDial::MetaObject(), TIEVEXIDial::MetaObject());
  EXPECT_EQ(OtherDial::MetaObject()->Base, VEXIDial::MetaObject());
  EXPECT_EQ(OtherDial::MetaObject()->Implementation, VEXEStopWatch::MetaObject());
}

TEST(KORTieTest, ObjectTellsOfItsDescription) {
  const VEXIDial_var dial = MakeClock();
  EXPECT_EQ(dial->GetMetaObject(), TIEVEXIDial::MetaObject());
  EXPECT_STREQ(dial->IsA(), "KORTieTest.VEXIDial");
  EXPECT_EQ(dial->IsAKindOf("KORTieTest.VEXIDial"), 1);
  EXPECT_EQ(dial->IsAKindOf("KORBaseUnknown"), 1);
  EXPECT_EQ(dial->IsAKindOf("KORTieTest.VEXIWinder"), 0);
}

// Threads

TEST(KORTieThreadsTest, CastsOfManyThreadsShareOneExtension) {
  constexpr int ThreadCount = 8;
  for (int round = 0; round < 50; ++round) {
    const KORBaseUnknown_var clock = MakeClock();
    std::barrier start(ThreadCount);
    std::vector<const void*> workers(ThreadCount);
    std::vector<std::thread> threads;
    for (const void*& worker : workers) {
      threads.emplace_back([&clock, &start, &worker] {
        start.arrive_and_wait();
        const VEXIWinder_var winder = clock;
        winder->Wind(1);
        worker = VEXIDial_var(winder)->GetWorker();
      });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(std::set<const void*>(workers.begin(), workers.end()).size(), 1u);
    EXPECT_EQ(VEXIDial_var(clock)->GetTurns(), ThreadCount);
    EXPECT_EQ(VEXEClock::Living, 1);
  }
}

TEST(KORTieThreadsTest, TheLastForwarderEndsTheObjectOnWhicheverThread) {
  constexpr int ThreadCount = 4;
  for (int round = 0; round < 50; ++round) {
    KORBaseUnknown_var clock = MakeClock();
    std::barrier start(ThreadCount);
    std::vector<std::thread> threads;
    for (int number = 0; number < ThreadCount; ++number) {
      threads.emplace_back([winder = VEXIWinder_var(clock), &start]() mutable {
        start.arrive_and_wait();
        winder->Wind(1);
        winder = nullptr;
      });
    }
    clock = nullptr;
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(VEXEClock::Living, 0);
  }
}

}  // namespace
