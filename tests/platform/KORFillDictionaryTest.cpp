// What modules tell of their classes: components made by their name, entries by their identifier, and the creation
// functions of classes that answer for interfaces themselves.
#include "platform/base/KORFillDictionary.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORInstantiateComponent.h"
#include "platform/system/KORSession.h"
#include "tests/platform/ExampleObject.h"

namespace {

using platformtest::CountReferences;
using platformtest::Workpiece;

class IEngine : public KORInterface<IEngine> {
 public:
  static constexpr const char* InterfaceName = "KORFillDictionaryTest.IEngine";
};

class IOther : public KORInterface<IOther> {
 public:
  static constexpr const char* InterfaceName = "KORFillDictionaryTest.IOther";
};

class Engine final : public KORImplements<IEngine> {};

KORBaseUnknown* MakeEngine() {
  return new Engine;
}

KORBaseUnknown* MakeNothing() {
  return nullptr;
}

// At the load of the program, as the modules do it.
const bool was_new = KORFillDictionary::RegisterFunctionCreation("KORFillDictionaryTestEngine", MakeEngine);

// The new object by that interface, or null; checks what comes with it.
template <class Interface>
KORHandle<Interface> Make(const char* component, long status) {
  int anything = 0;
  void* out = &anything;
  EXPECT_EQ(KORInstantiateComponent(component, Interface::ClassId(), &out), status);
  EXPECT_EQ(out == nullptr, Failed(status));
  return KORHandle<Interface>::Adopt(static_cast<Interface*>(out));
}

TEST(KORFillDictionaryTest, MakesANewObjectEachTime) {
  EXPECT_TRUE(was_new);
  const KORHandle<IEngine> first = Make<IEngine>("KORFillDictionaryTestEngine", S_OK);
  const KORHandle<IEngine> second = Make<IEngine>("KORFillDictionaryTestEngine", S_OK);
  EXPECT_FALSE(first == second);
  first->AddRef();
  EXPECT_EQ(first->Release(), 1u);
}

TEST(KORFillDictionaryTest, UnknownComponentsAreNotMade) {
  for (const char* const component : {"", "KORFillDictionaryTest", "korfilldictionarytestengine"}) {
    Make<IEngine>(component, E_FAIL);
  }
}

TEST(KORFillDictionaryTest, AnInterfaceThatIsNotOfferedLeavesNoObject) {
  Make<IOther>("KORFillDictionaryTestEngine", E_NOINTERFACE);
}

TEST(KORFillDictionaryTest, NullArgumentsAreRefused) {
  Make<IEngine>(nullptr, E_INVALIDARG);
  EXPECT_EQ(KORInstantiateComponent("KORFillDictionaryTestEngine", IEngine::ClassId(), nullptr), E_INVALIDARG);
}

TEST(KORFillDictionaryTest, TheFirstWayOfANameStays) {
  EXPECT_FALSE(KORFillDictionary::RegisterFunctionCreation("KORFillDictionaryTestEngine", MakeNothing));
  EXPECT_EQ(KORFillDictionary::FindFunctionCreation("KORFillDictionaryTestEngine"), &MakeEngine);
  EXPECT_EQ(KORFillDictionary::FindFunctionCreation("KORFillDictionaryTest"), nullptr);
}

TEST(KORFillDictionaryTest, AFaultMakesNoObject) {
  KORFreshSession session;
  session.InjectFault("KORInstantiateComponent", E_INVALIDARG);
  Make<IEngine>("KORFillDictionaryTestEngine", E_INVALIDARG);
}

TEST(KORFillDictionaryTest, ThreadsRegisterAndMakeAtOnce) {
  std::atomic<int> registered = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([&registered] {
      const KORFreshSession session;
      for (int round = 0; round < 100; ++round) {
        const std::string name = "KORFillDictionaryTestThreads" + std::to_string(round);
        if (KORFillDictionary::RegisterFunctionCreation(name.c_str(), MakeEngine)) ++registered;
        Make<IEngine>(name.c_str(), S_OK);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(registered, 100);
}

// Entries by their identifier

constexpr KORUuid OtherKind = KORUuid::OfName("KORFillDictionaryTest.OtherKind");

const KORMetaClass* Find(const KORUuid& identifier, const KORUuid& kind = CLSID_KORMetaClass) {
  return KORFillDictionary::FindInDictionary(identifier, kind);
}

// At the load of the program, as the modules do it.
const bool entry_was_new =
    KORFillDictionary::AddDictionary(IEngine::ClassId(), CLSID_KORMetaClass, IEngine::MetaObject());

TEST(KORDictionaryTest, EntryIsFoundByItsIdentifier) {
  EXPECT_TRUE(entry_was_new);
  EXPECT_EQ(Find(IEngine::ClassId()), IEngine::MetaObject());
  EXPECT_EQ(Find(IOther::ClassId()), nullptr);
  EXPECT_EQ(Find(KORUuid{}), nullptr);
}

TEST(KORDictionaryTest, EachKindHasAnEntryOfItsOwn) {
  constexpr KORUuid SecondKind = KORUuid::OfName("KORFillDictionaryTest.SecondKind");
  EXPECT_EQ(Find(IEngine::ClassId(), SecondKind), nullptr);
  EXPECT_TRUE(KORFillDictionary::AddDictionary(IEngine::ClassId(), SecondKind, IOther::MetaObject()));
  EXPECT_EQ(Find(IEngine::ClassId()), IEngine::MetaObject());
  EXPECT_EQ(Find(IEngine::ClassId(), SecondKind), IOther::MetaObject());
}

TEST(KORDictionaryTest, IdentifierAndKindDoNotStandForEachOther) {
  EXPECT_EQ(Find(CLSID_KORMetaClass, IEngine::ClassId()), nullptr);
}

TEST(KORDictionaryTest, TheFirstEntryStays) {
  EXPECT_FALSE(KORFillDictionary::AddDictionary(IEngine::ClassId(), CLSID_KORMetaClass, IOther::MetaObject()));
  EXPECT_EQ(Find(IEngine::ClassId()), IEngine::MetaObject());
}

TEST(KORDictionaryThreadsTest, OneOfManyThreadsAddsAnEntry) {
  std::atomic<int> added = 0;
  std::vector<std::thread> threads;
  for (int number = 0; number < 4; ++number) {
    threads.emplace_back([&added] {
      for (int round = 0; round < 100; ++round) {
        const KORUuid identifier = KORUuid::OfName("KORDictionaryThreadsTest" + std::to_string(round));
        if (KORFillDictionary::AddDictionary(identifier, OtherKind, IEngine::MetaObject())) ++added;
        EXPECT_EQ(Find(identifier, OtherKind), IEngine::MetaObject());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(added, 100);
}

// Creation functions of classes that answer for interfaces themselves

KORMetaClass DescribeExtension(const char* name, ENUMTypeOfClass kind) {
  return {name, KORUuid::OfName(name), KORBaseUnknown::MetaObject(), kind};
}

class Gearbox final : public KORExtension, public KORImplements<IEngine> {
 public:
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description =
        DescribeExtension("KORFillDictionaryTest.Gearbox", ENUMTypeOfClass::DataExtension);
    return &description;
  }
};

class Starter final : public KORExtension, public KORImplements<IEngine> {
 public:
  static const KORMetaClass* MetaObject() {
    static const KORMetaClass description =
        DescribeExtension("KORFillDictionaryTest.Starter", ENUMTypeOfClass::CodeExtension);
    return &description;
  }
};

template <class Interface, class Class>
Interface* Create(KORBaseUnknown& object) {
  return static_cast<Interface*>(KORFillDictionary::ToCreateBOA<Interface, Class>(object));
}

TEST(ToCreateBOATest, ClassWithStateAnswersByTheOneObjectThatBelongsToTheExtendedOne) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    Workpiece object;
    IEngine* const first = Create<IEngine, Gearbox>(object);
    IEngine* const second = Create<IEngine, Gearbox>(object);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_EQ(first->GetImpl(0), &object);
    EXPECT_EQ(CountReferences(object), 3u) << "each reference is one on the extended object";
    EXPECT_EQ(first->Release(), 2u);
    EXPECT_EQ(second->Release(), 1u);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2) << "it stays with the object";
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(ToCreateBOATest, ClassWithoutStateAnswersByANewObject) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Workpiece object;
  IEngine* const first = Create<IEngine, Starter>(object);
  IEngine* const second = Create<IEngine, Starter>(object);
  ASSERT_NE(first, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->GetImpl(0), &object);
  EXPECT_EQ(CountReferences(object), 3u) << "each extension keeps the extended object alive";
  EXPECT_EQ(first->Release(), 0u);
  EXPECT_EQ(second->Release(), 0u);
  EXPECT_EQ(CountReferences(object), 1u);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
}

TEST(ToCreateBOATest, ClassThatExtendsNothingAnswersByTheObject) {
  Engine object;
  IEngine* const engine = Create<IEngine, Engine>(object);
  EXPECT_EQ(engine, &object);
  EXPECT_EQ(CountReferences(object), 2u);
  EXPECT_EQ(engine->Release(), 1u);
}

TEST(ToCreateBOATest, ClassThatLacksTheInterfaceGivesNullAndLeavesNoReference) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    Workpiece extended;
    Engine by_itself;
    EXPECT_EQ((Create<IOther, Gearbox>(extended)), nullptr);
    EXPECT_EQ((Create<IOther, Starter>(extended)), nullptr);
    EXPECT_EQ((Create<IOther, Engine>(by_itself)), nullptr);
    EXPECT_EQ(CountReferences(extended), 1u);
    EXPECT_EQ(CountReferences(by_itself), 1u);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

// A class that doesn't describe itself, and so is said to extend nothing.
class Undescribed final : public KORExtension, public KORImplements<IEngine> {};

TEST(ToCreateBOATest, ExtensionThatDoesNotSayItsKindGivesNull) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Workpiece object;
  EXPECT_EQ((Create<IEngine, Undescribed>(object)), nullptr);
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
}

}  // namespace
