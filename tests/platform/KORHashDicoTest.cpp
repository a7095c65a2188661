// The table from text to pointer.
#include "platform/base/KORHashDico.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Pairs = std::vector<std::pair<std::string, void*>>;

Pairs Walk(const KORHashDico& table) {
  Pairs met;
  const KORUnicodeString* key = nullptr;
  void* value = nullptr;
  while (table.NextItem(key, value) != 0) met.emplace_back(key->ConvertToChar(), value);
  EXPECT_EQ(key, nullptr);
  EXPECT_EQ(value, nullptr);
  return met;
}

class KORHashDicoTest : public testing::Test {
 protected:
  KORHashDico Table{10};
  int First = 0, Second = 0, Third = 0;  // pointed to
};

TEST_F(KORHashDicoTest, FirstEntryOfAKeyWins) {
  EXPECT_GE(Table.Insert("assembly", &First), 1);
  EXPECT_EQ(Table.Insert("assembly", &Second), 0);
  EXPECT_EQ(Table.Locate("assembly"), &First);
  EXPECT_EQ(Table.Locate("Assembly"), nullptr);
}

TEST_F(KORHashDicoTest, KeyIsTheTablesOwn) {
  KORUnicodeString key = "assembly";
  Table.Insert(key, &First);
  key = "welding";
  EXPECT_EQ(Table.Locate("assembly"), &First);
  EXPECT_EQ(Table.Locate(key), nullptr);
}

TEST_F(KORHashDicoTest, RemovedKeyCanBeUsedAgain) {
  Table.Insert("assembly", &First);
  Table.Insert("welding", &Second);
  Table.Remove("assembly");
  Table.Remove("painting");
  EXPECT_EQ(Walk(Table), (Pairs{{"welding", &Second}}));
  EXPECT_EQ(Table.Locate("assembly"), nullptr);
  EXPECT_GE(Table.Insert("assembly", &Third), 1);
  EXPECT_EQ(Walk(Table), (Pairs{{"welding", &Second}, {"assembly", &Third}}));
}

TEST_F(KORHashDicoTest, RemovesAKeyNamedByItself) {
  Table.Insert("assembly", &First);
  const KORUnicodeString* key = nullptr;
  void* value = nullptr;
  ASSERT_EQ(Table.NextItem(key, value), 1);
  Table.Remove(*key);
  EXPECT_TRUE(Walk(Table).empty());
}

TEST_F(KORHashDicoTest, RemoveAllLeavesTheObjects) {
  First = 5;
  Table.Insert("assembly", &First);
  Table.RemoveAll();
  EXPECT_EQ(Table.Locate("assembly"), nullptr);
  EXPECT_TRUE(Walk(Table).empty());
  EXPECT_EQ(First, 5);
}

TEST_F(KORHashDicoTest, EmptyTableEndsTheWalkAtOnce) {
  const KORUnicodeString* key = nullptr;
  void* value = &First;
  EXPECT_EQ(Table.NextItem(key, value), 0);
  EXPECT_EQ(key, nullptr);
  EXPECT_EQ(value, nullptr);
}

TEST_F(KORHashDicoTest, EmptyTextIsAKeyAndNullAValue) {
  EXPECT_GE(Table.Insert("", &First), 1);
  EXPECT_EQ(Table.Locate(""), &First);
  EXPECT_GE(Table.Insert("assembly", nullptr), 1);
  EXPECT_EQ(Table.Insert("assembly", &Second), 0);
  EXPECT_EQ(Walk(Table), (Pairs{{"", &First}, {"assembly", nullptr}}));
}

TEST_F(KORHashDicoTest, WalkSeesWhatChangesOnTheWay) {
  Table.Insert("assembly", &First);
  Table.Insert("welding", &Second);
  const KORUnicodeString* key = nullptr;
  void* value = nullptr;
  ASSERT_EQ(Table.NextItem(key, value), 1);
  EXPECT_EQ(*key, "assembly");
  Table.Remove("welding");
  for (int number = 0; number < 100; ++number) Table.Insert(KORUnicodeString::FromInteger(number), &Third);
  for (int number = 0; number < 100; ++number) {
    ASSERT_EQ(Table.NextItem(key, value), 1);
    EXPECT_EQ(*key, KORUnicodeString::FromInteger(number));
    EXPECT_EQ(value, &Third);
  }
  EXPECT_EQ(Table.NextItem(key, value), 0);
}

TEST_F(KORHashDicoTest, SeveralWalksGoOnAtOnce) {
  Table.Insert("assembly", &First);
  Table.Insert("welding", &Second);
  const KORUnicodeString* outer = nullptr;
  void* value = nullptr;
  int rounds = 0;
  for (; Table.NextItem(outer, value) != 0; ++rounds) EXPECT_EQ(Walk(Table).size(), 2u);
  EXPECT_EQ(rounds, 2);
}

TEST(KORHashDicoSizeTest, GrowsFromAnyInitialSize) {
  for (const int initial_size : {-1, 0, 10}) {
    KORHashDico table(initial_size);
    std::vector<int> objects(1000);
    for (int index = 0; index < 1000; ++index) {
      EXPECT_GE(table.Insert(KORUnicodeString::FromInteger(index), &objects[static_cast<std::size_t>(index)]), 1);
    }
    for (int index = 0; index < 1000; ++index) {
      EXPECT_EQ(table.Locate(KORUnicodeString::FromInteger(index)), &objects[static_cast<std::size_t>(index)])
          << "initial size " << initial_size;
    }
  }
}

}  // namespace
