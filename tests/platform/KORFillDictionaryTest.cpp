// Components made by their name.
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

namespace {

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

}  // namespace
