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

// By name

TEST(KORMetaClassTest, IsFoundByItsNameOnceItWasAskedFor) {
  static constexpr KORMetaClass Saw = Described("KORMetaClassTestSaw");
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestSaw"), nullptr);
  EXPECT_EQ(fct_RetrieveMetaObject(Saw), &Saw);
  const std::string same_letters = std::string("KORMetaClassTest") + "Saw";
  EXPECT_EQ(fct_FindMetaObject(same_letters.c_str()), &Saw);
  EXPECT_EQ(fct_RetrieveMetaObject(Saw), &Saw);
}

TEST(KORMetaClassTest, IsFoundByItsWholeNameAlone) {
  static constexpr KORMetaClass Plane = Described("KORMetaClassTestPlane");
  EXPECT_EQ(fct_RetrieveMetaObject(Plane), &Plane);
  for (const char* const name : {"", "KORMetaClassTest", "KORMetaClassTestPlanes", "kormetaclasstestplane"}) {
    EXPECT_EQ(fct_FindMetaObject(name), nullptr) << name;
  }
  EXPECT_EQ(fct_FindMetaObject(nullptr), nullptr);
}

TEST(KORMetaClassTest, OneDoesNotMakeItsBaseKnown) {
  EXPECT_EQ(fct_RetrieveMetaObject(Drill), &Drill);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestTool"), nullptr);
}

TEST(KORMetaClassTest, TheFirstOneOfANameStays) {
  static constexpr KORMetaClass First = Described("KORMetaClassTestLathe");
  static constexpr KORMetaClass Second = Described("KORMetaClassTestLathe", &Tool);
  EXPECT_EQ(fct_RetrieveMetaObject(First), &First);
  EXPECT_EQ(fct_RetrieveMetaObject(Second), &First);
  EXPECT_EQ(fct_FindMetaObject("KORMetaClassTestLathe"), &First);
}

TEST(KORMetaClassThreadsTest, ManyThreadsKeepOneOfTheirDescriptions) {
  constexpr std::size_t ThreadCount = 8;
  constexpr std::size_t RoundCount = 50;
  static std::array<std::string, RoundCount> names;
  static std::array<std::array<KORMetaClass, ThreadCount>, RoundCount> descriptions;
  for (std::size_t round = 0; round < RoundCount; ++round) {
    names[round] = "KORMetaClassTestThreads" + std::to_string(round);
    descriptions[round].fill({names[round].c_str(), KORUuid::OfName(names[round]), nullptr});
    std::array<const KORMetaClass*, ThreadCount> retrieved{};
    std::barrier start(static_cast<std::ptrdiff_t>(ThreadCount));
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < ThreadCount; ++index) {
      threads.emplace_back([&, index] {
        start.arrive_and_wait();
        retrieved[index] = fct_RetrieveMetaObject(descriptions[round][index]);
      });
    }
    for (std::thread& thread : threads) thread.join();
    const KORMetaClass* const known = fct_FindMetaObject(names[round].c_str());
    ASSERT_NE(known, nullptr);
    for (const KORMetaClass* const one : retrieved) EXPECT_EQ(one, known);
  }
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
                                         KindRow{"OtherClass", &PillarDrill, "KORMetaClassTestMill", false},
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
  EXPECT_FALSE(description.SetExtensionOf(nullptr));
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
