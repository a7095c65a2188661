// The descriptions of classes: what they tell, and how they are found by name.
#include "platform/base/KORMetaClass.h"

#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform/NamedRow.h"

namespace {

using platformtest::NameOfRow;

constexpr KORMetaClass Described(const char* name, const KORMetaClass* base = nullptr) {
  return {name, KORUuid::OfName(name), base};
}

constexpr KORMetaClass Tool = Described("KORMetaClassTestTool");
constexpr KORMetaClass Drill = Described("KORMetaClassTestDrill", &Tool);
constexpr KORMetaClass PillarDrill = Described("KORMetaClassTestPillarDrill", &Drill);

/// A description that is known as long as this object lives.
class Known {
 public:
  explicit Known(const KORMetaClass& description) : _Description(description) {
    EXPECT_EQ(fct_RetrieveMetaObject(description), &description);
  }
  Known(const Known&) = delete;
  Known& operator=(const Known&) = delete;
  ~Known() { fct_ForgetMetaObject(_Description); }

 private:
  const KORMetaClass& _Description;
};

// By name

TEST(KORMetaClassTest, IsFoundByItsNameOnceItWasAskedFor) {
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), nullptr);
  const Known tool(Tool);
  const std::string same_letters = std::string("KORMetaClassTest") + "Tool";
  EXPECT_EQ(fct_FindMetaObject(same_letters.c_str()), &Tool);
  EXPECT_EQ(fct_RetrieveMetaObject(Tool), &Tool);
}

TEST(KORMetaClassTest, IsFoundByItsWholeNameAlone) {
  const Known tool(Tool);
  for (const char* const name : {"", "KORMetaClassTest", "KORMetaClassTestTools", "kormetaclasstesttool"}) {
    EXPECT_EQ(fct_FindMetaObject(name), nullptr) << name;
  }
  EXPECT_EQ(fct_FindMetaObject(nullptr), nullptr);
}

TEST(KORMetaClassTest, OneDoesNotMakeItsBaseKnown) {
  const Known drill(Drill);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), nullptr);
}

TEST(KORMetaClassTest, TheFirstOneOfANameStays) {
  const Known tool(Tool);
  const KORMetaClass second = Described("KORMetaClassTestTool", &Drill);
  EXPECT_EQ(fct_RetrieveMetaObject(second), &Tool);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), &Tool);
}

TEST(KORMetaClassTest, NameIsFreeOnceItsDescriptionIsForgotten) {
  { const Known tool(Tool); }
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), nullptr);
  const KORMetaClass second = Described("KORMetaClassTestTool", &Drill);
  const Known known(second);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), &second);
}

TEST(KORMetaClassTest, ForgettingAnotherOneOfTheSameNameChangesNothing) {
  const Known tool(Tool);
  const KORMetaClass second = Tool;
  fct_ForgetMetaObject(second);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), &Tool);
}

TEST(KORMetaClassTest, ForgettingOneThatIsNotKnownChangesNothing) {
  const Known tool(Tool);
  fct_ForgetMetaObject(Drill);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestDrill"), nullptr);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), &Tool);
}

TEST(KORMetaClassThreadsTest, ManyThreadsKeepOneOfTheirDescriptions) {
  constexpr std::size_t ThreadCount = 8;
  for (int round = 0; round < 50; ++round) {
    std::array<KORMetaClass, ThreadCount> descriptions;
    descriptions.fill(Tool);
    std::array<const KORMetaClass*, ThreadCount> retrieved{};
    std::barrier start(static_cast<std::ptrdiff_t>(ThreadCount));
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < ThreadCount; ++index) {
      threads.emplace_back([&, index] {
        start.arrive_and_wait();
        retrieved[index] = fct_RetrieveMetaObject(descriptions[index]);
      });
    }
    for (std::thread& thread : threads) thread.join();
    const KORMetaClass* const known = fct_FindMetaObject("KORMetaClassTestTool");
    ASSERT_NE(known, nullptr);
    for (const KORMetaClass* const one : retrieved) EXPECT_EQ(one, known);
    for (const KORMetaClass& description : descriptions) fct_ForgetMetaObject(description);
    EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), nullptr);
  }
}

TEST(KORMetaClassThreadsTest, OthersAreFoundWhileModulesComeAndGo) {
  const Known tool(Tool);
  std::vector<std::thread> threads;
  for (const KORMetaClass* const description : {&Drill, &PillarDrill}) {
    threads.emplace_back([description] {
      for (int round = 0; round < 500; ++round) {
        const Known known(*description);
        EXPECT_EQ(fct_FindMetaObject(description->Name), description);
        EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), &Tool);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestDrill"), nullptr);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestPillarDrill"), nullptr);
}

// Kinds of

struct KindRow {
  const char* Name;
  const KORMetaClass* Description;
  const char* Asked;
  bool IsKind;
};

class IsAKindOfTest : public testing::TestWithParam<KindRow> {};

TEST_P(IsAKindOfTest, GoesThroughAllBases) {
  EXPECT_EQ(GetParam().Description->IsAKindOf(GetParam().Asked), GetParam().IsKind);
}

INSTANTIATE_TEST_SUITE_P(Names, IsAKindOfTest,
                         testing::Values(KindRow{"Itself", &PillarDrill, "KORMetaClassTestPillarDrill", true},
                                         KindRow{"ItsBase", &PillarDrill, "KORMetaClassTestDrill", true},
                                         KindRow{"TheBaseOfItsBase", &PillarDrill, "KORMetaClassTestTool", true},
                                         KindRow{"NotWhatDerivesFromIt", &Tool, "KORMetaClassTestDrill", false},
                                         KindRow{"OtherClass", &PillarDrill, "KORMetaClassTestSaw", false},
                                         KindRow{"OtherCase", &Tool, "kormetaclasstesttool", false},
                                         KindRow{"BeginningOfItsName", &Tool, "KORMetaClassTest", false},
                                         KindRow{"EmptyName", &Tool, "", false},
                                         KindRow{"NullName", &Tool, nullptr, false}),
                         NameOfRow());

// What a class extends, and where it belongs

TEST(KORMetaClassTest, NewOneStandsByItself) {
  EXPECT_EQ(Tool.Kind, ENUMTypeOfClass::Implementation);
  EXPECT_STREQ(Tool.FWname, "");
  EXPECT_EQ(Tool.Extends, (std::array<const char*, 2>{}));
  EXPECT_EQ(Tool.Implementation, nullptr);
}

TEST(KORMetaClassTest, KindsHaveTheNumbersOfThePlatform) {
  EXPECT_EQ(static_cast<int>(ENUMTypeOfClass::Implementation), 1);
  EXPECT_EQ(static_cast<int>(ENUMTypeOfClass::DataExtension), 2);
  EXPECT_EQ(static_cast<int>(ENUMTypeOfClass::CodeExtension), 4);
}

TEST(KORMetaClassTest, ExtendsUpToTwoComponentsInTheirOrder) {
  KORMetaClass description = Tool;
  EXPECT_TRUE(description.SetExtensionOf("First"));
  EXPECT_STREQ(description.Extends[0], "First");
  EXPECT_EQ(description.Extends[1], nullptr);
  EXPECT_TRUE(description.SetExtensionOf("Second"));
  EXPECT_FALSE(description.SetExtensionOf("Third"));
  EXPECT_STREQ(description.Extends[0], "First");
  EXPECT_STREQ(description.Extends[1], "Second");
}

TEST(KORMetaClassTest, ComponentThatItWasMadeWithIsTheFirst) {
  KORMetaClass description{.Name = "KORMetaClassTestGuard",
                           .Identifier = KORUuid::OfName("KORMetaClassTestGuard"),
                           .Base = &Tool,
                           .Kind = ENUMTypeOfClass::CodeExtension,
                           .Extends = {"First"}};
  EXPECT_TRUE(description.SetExtensionOf("Second"));
  EXPECT_STREQ(description.Extends[0], "First");
  EXPECT_STREQ(description.Extends[1], "Second");
  EXPECT_FALSE(description.SetExtensionOf("Third"));
}

TEST(KORMetaClassTest, FrameworkIsTheOneThatWasSetLast) {
  KORMetaClass description = Tool;
  description.SetFWname("First");
  description.SetFWname("Second");
  EXPECT_STREQ(description.FWname, "Second");
  EXPECT_STREQ(description.Name, Tool.Name);
}

}  // namespace
