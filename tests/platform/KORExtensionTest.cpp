// Extensions: further interfaces on the objects of a component.
#include "platform/base/KORExtension.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <set>
#include <thread>
#include <utility>
#include <vector>

#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORStatus.h"
#include "tests/platform/ExampleObject.h"

namespace {

using platformtest::CountReferences;
using platformtest::MakeWorkpiece;
using platformtest::VEXIColour;
using platformtest::VEXIColour_var;
using platformtest::VEXIDistance;
using platformtest::VEXIDistance_var;
using platformtest::VEXIWeight_var;
using platformtest::Workpiece;

class VEXICounter : public KORInterface<VEXICounter> {
 public:
  static constexpr const char* InterfaceName = "VEXICounter";
  virtual int Increase() = 0;
  /// The extended object.
  virtual KORBaseUnknown* GetCounted() = 0;
};
using VEXICounter_var = KORHandle<VEXICounter>;

class VEXIReadCounter : public KORInterface<VEXIReadCounter> {
 public:
  static constexpr const char* InterfaceName = "VEXIReadCounter";
  virtual int Read() const = 0;
};
using VEXIReadCounter_var = KORHandle<VEXIReadCounter>;

class VEXIUnregistered : public KORInterface<VEXIUnregistered> {
 public:
  static constexpr const char* InterfaceName = "VEXIUnregistered";
};
using VEXIUnregistered_var = KORHandle<VEXIUnregistered>;

/// With state: counts what happens to one workpiece.
class VEXECounter : public KORExtension, public KORImplements<VEXICounter, VEXIReadCounter> {
 public:
  VEXECounter() { ++Living; }
  ~VEXECounter() override { --Living; }
  int Increase() override { return ++_Count; }
  int Read() const override { return _Count; }
  KORBaseUnknown* GetCounted() override { return GetExtended(); }

  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"VEXECounter", KORUuid::OfName("VEXECounter"), KORBaseUnknown::MetaObject(),
                                          ENUMTypeOfClass::DataExtension};
    return &description;
  }
  static inline std::atomic<int> Living{0};

 private:
  std::atomic<int> _Count{0};
};

/// Without state: works the colour out of the weight of the extended object.
class VEXEColour : public KORExtension, public KORImplements<VEXIColour> {
 public:
  VEXEColour() { ++Living; }
  ~VEXEColour() override { --Living; }
  int GetColour() const override { return VEXIWeight_var(GetExtended())->GetWeight() * 100; }

  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"VEXEColour", KORUuid::OfName("VEXEColour"), KORBaseUnknown::MetaObject(),
                                          ENUMTypeOfClass::CodeExtension};
    return &description;
  }
  static inline std::atomic<int> Living{0};
};

/// Offers an interface that the class of the object offers, too.
class VEXEFarDistance : public KORExtension, public KORImplements<VEXIDistance> {
 public:
  int GetDistance() const override { return 1000; }
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description{"VEXEFarDistance", KORUuid::OfName("VEXEFarDistance"),
                                          KORBaseUnknown::MetaObject(), ENUMTypeOfClass::CodeExtension};
    return &description;
  }
};

constexpr KORCreationFunction Counter = &KORFillDictionary::ToCreateBOA<VEXICounter, VEXECounter>;
constexpr KORCreationFunction ReadCounter = &KORFillDictionary::ToCreateBOA<VEXIReadCounter, VEXECounter>;
constexpr KORCreationFunction Colour = &KORFillDictionary::ToCreateBOA<VEXIColour, VEXEColour>;
constexpr KORCreationFunction FarDistance = &KORFillDictionary::ToCreateBOA<VEXIDistance, VEXEFarDistance>;

// Registered before main, in no known order to the registry's own source.
const KORExtensionRegistration LoadedCounter("LoadedWorkpiece", VEXICounter::ClassId(), Counter);
const KORExtensionRegistration LoadedReadCounter("LoadedWorkpiece", VEXIReadCounter::ClassId(), ReadCounter);
const KORExtensionRegistration LoadedColour("LoadedWorkpiece", VEXIColour::ClassId(), Colour);

TEST(KORExtensionTest, RegistrationByStaticObjectsIsThereFromTheStart) {
  EXPECT_TRUE(LoadedCounter.IsRegistered());
  EXPECT_FALSE(VEXICounter_var(MakeWorkpiece("LoadedWorkpiece")).IsNull());
}

TEST(KORExtensionTest, IsOfferedToTheComponentAlone) {
  EXPECT_TRUE(VEXICounter_var(MakeWorkpiece("OtherWorkpiece")).IsNull());
  EXPECT_TRUE(VEXICounter_var(MakeWorkpiece("loadedworkpiece")).IsNull());
  EXPECT_TRUE(VEXICounter_var(MakeWorkpiece("")).IsNull());
}

TEST(KORExtensionTest, InterfaceNotRegisteredGivesNull) {
  EXPECT_TRUE(VEXIUnregistered_var(MakeWorkpiece("LoadedWorkpiece")).IsNull());
}

TEST(KORExtensionTest, OneIdentityFromEveryInterface) {
  const KORBaseUnknown_var object = MakeWorkpiece("LoadedWorkpiece");
  const VEXICounter_var counter = object;
  const VEXIReadCounter_var read_counter = object;
  const VEXIColour_var colour = object;
  const VEXIDistance_var distance = object;
  for (KORBaseUnknown* const implementation : {counter->GetImpl(0), read_counter->GetImpl(0), colour->GetImpl(0),
                                               distance->GetImpl(0), KORBaseUnknown_var(colour).Get()}) {
    EXPECT_EQ(implementation, object.Get());
  }
  EXPECT_TRUE(counter == colour);
  EXPECT_TRUE(colour == distance);
  EXPECT_TRUE(colour != VEXIColour_var(MakeWorkpiece("LoadedWorkpiece")));
  EXPECT_EQ(counter->GetCounted(), object.Get());
}

TEST(KORExtensionTest, CastsLeadFromAnyInterfaceToAnyOther) {
  const VEXICounter_var counter = MakeWorkpiece("LoadedWorkpiece");
  const VEXIColour_var colour = counter;
  const VEXIWeight_var weight = colour;
  const VEXIReadCounter_var read_counter = colour;
  EXPECT_EQ(colour->GetColour(), 700);
  EXPECT_EQ(weight->GetWeight(), 7);
  EXPECT_EQ(counter->Increase(), 1);
  EXPECT_EQ(read_counter->Read(), 1);
}

TEST(KORExtensionTest, ClassIsAskedBeforeTheRegistry) {
  const KORExtensionRegistration registration("NearWorkpiece", VEXIDistance::ClassId(), FarDistance);
  ASSERT_TRUE(registration.IsRegistered());
  EXPECT_EQ(VEXIDistance_var(MakeWorkpiece("NearWorkpiece"))->GetDistance(), 30);
}

TEST(KORExtensionTest, QueryGivesAReferenceOnTheObject) {
  Workpiece object("LoadedWorkpiece");
  void* out = nullptr;
  ASSERT_EQ(object.QueryInterface(VEXICounter::ClassId(), &out), S_OK);
  EXPECT_EQ(CountReferences(object), 2u);
  EXPECT_EQ(static_cast<VEXICounter*>(out)->Release(), 1u);
  ASSERT_EQ(object.QueryInterface(VEXIColour::ClassId(), &out), S_OK);
  EXPECT_EQ(CountReferences(object), 2u);
  EXPECT_EQ(static_cast<VEXIColour*>(out)->Release(), 0u) << "the last reference on the extension itself";
  EXPECT_EQ(CountReferences(object), 1u);
}

TEST(KORExtensionTest, ExtensionThatLacksTheInterfaceGivesNull) {
  const std::pair<KORUuid, KORCreationFunction> lacking[] = {
      {VEXIColour::ClassId(), &KORFillDictionary::ToCreateBOA<VEXIColour, VEXECounter>},
      {VEXICounter::ClassId(), &KORFillDictionary::ToCreateBOA<VEXICounter, VEXEColour>}};
  for (const auto& [interface_id, create] : lacking) {
    const KORExtensionRegistration registration("WrongWorkpiece", interface_id, create);
    Workpiece object("WrongWorkpiece");
    void* out = &object;
    EXPECT_EQ(object.QueryInterface(interface_id, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(CountReferences(object), 1u);
  }
  EXPECT_EQ(VEXEColour::Living, 0);
  EXPECT_EQ(VEXECounter::Living, 0);
}

TEST(KORDataExtensionTest, IsOnePerObjectAndKeepsItsState) {
  const KORBaseUnknown_var object = MakeWorkpiece("LoadedWorkpiece");
  const KORBaseUnknown_var other = MakeWorkpiece("LoadedWorkpiece");
  EXPECT_EQ(VEXICounter_var(object)->Increase(), 1);
  EXPECT_EQ(VEXICounter_var(object)->Increase(), 2);
  EXPECT_EQ(VEXICounter_var(other)->Increase(), 1);
  EXPECT_EQ(VEXIReadCounter_var(object)->Read(), 2) << "two interfaces of one extension share its state";
  EXPECT_EQ(VEXICounter_var(object).Get(), VEXICounter_var(object).Get());
  EXPECT_EQ(VEXECounter::Living, 2);
}

TEST(KORDataExtensionTest, IsMadeByTheFirstCastAndGoneWithTheObject) {
  KORBaseUnknown_var object = MakeWorkpiece("LoadedWorkpiece");
  EXPECT_EQ(VEXECounter::Living, 0);
  VEXICounter_var counter = object;
  EXPECT_EQ(VEXECounter::Living, 1);
  object = nullptr;
  EXPECT_EQ(VEXECounter::Living, 1) << "a handle of the extension keeps the object alive";
  EXPECT_EQ(VEXIWeight_var(counter)->GetWeight(), 7);
  counter = nullptr;
  EXPECT_EQ(VEXECounter::Living, 0);
}

TEST(KORDataExtensionTest, GoesBeforeItsObject) {
  class WatchingWorkpiece : public Workpiece {
   public:
    explicit WatchingWorkpiece(int& extensions_left) : Workpiece("LoadedWorkpiece"), _ExtensionsLeft(extensions_left) {}
    ~WatchingWorkpiece() override { _ExtensionsLeft = VEXECounter::Living; }

   private:
    int& _ExtensionsLeft;
  };
  int extensions_left = -1;
  VEXICounter_var counter(KORBaseUnknown_var::Adopt(new WatchingWorkpiece(extensions_left)));
  EXPECT_EQ(extensions_left, -1);
  counter = nullptr;
  EXPECT_EQ(extensions_left, 0);
}

TEST(KORDataExtensionTest, IsGoneWithALocalObject) {
  {
    Workpiece object("LoadedWorkpiece");
    EXPECT_EQ(VEXICounter_var(&object)->Increase(), 1);
  }
  EXPECT_EQ(VEXECounter::Living, 0);
}

TEST(KORDataExtensionTest, StaysBehindWhenTheObjectIsCopied) {
  Workpiece object("LoadedWorkpiece");
  EXPECT_EQ(VEXICounter_var(&object)->Increase(), 1);
  Workpiece copy = object;
  EXPECT_EQ(VEXIReadCounter_var(&copy)->Read(), 0);
}

TEST(KORDataExtensionTest, StaysWhenItsRegistrationGoes) {
  std::optional<KORExtensionRegistration> registration;
  registration.emplace("PassingWorkpiece", VEXICounter::ClassId(), Counter);
  const KORBaseUnknown_var object = MakeWorkpiece("PassingWorkpiece");
  const VEXICounter_var counter = object;
  EXPECT_EQ(counter->Increase(), 1);
  registration.reset();
  EXPECT_TRUE(VEXICounter_var(object).IsNull());
  EXPECT_EQ(counter->Increase(), 2);
  registration.emplace("PassingWorkpiece", VEXICounter::ClassId(), Counter);
  EXPECT_EQ(VEXICounter_var(object)->Increase(), 3);
}

TEST(KORCodeExtensionTest, IsMadeForEachCast) {
  const KORBaseUnknown_var object = MakeWorkpiece("LoadedWorkpiece");
  {
    const VEXIColour_var first = object;
    const VEXIColour_var second = object;
    EXPECT_NE(first.Get(), second.Get());
    EXPECT_EQ(VEXEColour::Living, 2);
    const VEXIColour_var copy = first;
    EXPECT_EQ(VEXEColour::Living, 2) << "a copy of a handle is no cast";
  }
  EXPECT_EQ(VEXEColour::Living, 0);
}

TEST(KORCodeExtensionTest, KeepsTheObjectAlive) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    KORBaseUnknown_var object = MakeWorkpiece("LoadedWorkpiece");
    const VEXIColour_var colour = object;
    object = nullptr;
    EXPECT_EQ(colour->GetColour(), 700);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORExtensionRegistryTest, EntryLivesAsLongAsItsRegistration) {
  {
    const KORExtensionRegistration registration("PassingWorkpiece", VEXIColour::ClassId(), Colour);
    EXPECT_TRUE(registration.IsRegistered());
    EXPECT_FALSE(VEXIColour_var(MakeWorkpiece("PassingWorkpiece")).IsNull());
  }
  EXPECT_TRUE(VEXIColour_var(MakeWorkpiece("PassingWorkpiece")).IsNull());
}

TEST(KORExtensionRegistryTest, SecondRegistrationIsRefused) {
  {
    const KORExtensionRegistration second("LoadedWorkpiece", VEXIColour::ClassId(), FarDistance);
    EXPECT_FALSE(second.IsRegistered());
    EXPECT_EQ(VEXIColour_var(MakeWorkpiece("LoadedWorkpiece"))->GetColour(), 700);
  }
  EXPECT_FALSE(VEXIColour_var(MakeWorkpiece("LoadedWorkpiece")).IsNull()) << "the refused one takes nothing away";
}

TEST(KORExtensionRegistryTest, OneExtensionServesSeveralComponents) {
  const KORExtensionRegistration registration("PassingWorkpiece", VEXIColour::ClassId(), Colour);
  EXPECT_EQ(VEXIColour_var(MakeWorkpiece("PassingWorkpiece"))->GetColour(), 700);
  EXPECT_EQ(VEXIColour_var(MakeWorkpiece("LoadedWorkpiece"))->GetColour(), 700);
}

TEST(KORExtensionThreadsTest, CastsOfManyThreadsFindOneExtension) {
  constexpr int ThreadCount = 8;
  for (int round = 0; round < 50; ++round) {
    const KORBaseUnknown_var object = MakeWorkpiece("LoadedWorkpiece");
    std::atomic<int> ready{0};
    std::vector<VEXICounter*> found(ThreadCount);
    std::vector<std::thread> threads;
    for (VEXICounter*& seen : found) {
      threads.emplace_back([&object, &ready, &seen] {
        for (++ready; ready < ThreadCount;) std::this_thread::yield();
        const VEXICounter_var counter = object;
        counter->Increase();
        seen = counter.Get();
      });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(std::set<VEXICounter*>(found.begin(), found.end()).size(), 1u);
    EXPECT_EQ(VEXIReadCounter_var(object)->Read(), ThreadCount);
    EXPECT_EQ(VEXECounter::Living, 1);
  }
}

TEST(KORExtensionThreadsTest, ObjectsAreCastWhileOthersRegister) {
  std::vector<std::thread> threads;
  for (const char* const component : {"FirstPassing", "SecondPassing", "ThirdPassing", "FourthPassing"}) {
    threads.emplace_back([component] {
      for (int round = 0; round < 200; ++round) {
        const KORExtensionRegistration registration(component, VEXIColour::ClassId(), Colour);
        EXPECT_EQ(VEXIColour_var(MakeWorkpiece(component))->GetColour(), 700);
        EXPECT_EQ(VEXICounter_var(MakeWorkpiece("LoadedWorkpiece"))->Increase(), 1);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(VEXEColour::Living, 0);
}

}  // namespace
