// The table from pointer to pointer.
#include "platform/base/KORHashObject.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

namespace {

using Pairs = std::vector<std::pair<void*, void*>>;

class KORHashObjectTest : public testing::Test {
 protected:
  Pairs Walk() {
    Pairs met;
    void* key = nullptr;
    void* value = nullptr;
    for (Table.Begin(); Table.Next(key, value) != 0;) met.emplace_back(key, value);
    return met;
  }

  KORHashObject Table{200};
  int First = 0, Second = 0, Third = 0;  // pointed to, as keys and as values
};

TEST_F(KORHashObjectTest, InsertLeavesWhatStands) {
  EXPECT_NE(Table.Insert(&First, &Second), 0);
  EXPECT_EQ(Table.Insert(&First, &Third), 0);
  EXPECT_EQ(Table.Get(&First), &Second);
}

TEST_F(KORHashObjectTest, PutAddsAndOverwrites) {
  Table.Put(&First, &Second);
  EXPECT_EQ(Table.Get(&First), &Second);
  Table.Put(&First, &Third);
  EXPECT_EQ(Table.Get(&First), &Third);
  EXPECT_EQ(Walk(), (Pairs{{&First, &Third}}));
}

TEST_F(KORHashObjectTest, MissingKeyGivesNull) {
  EXPECT_EQ(Table.Get(&First), nullptr);
  EXPECT_EQ(Table.Get(nullptr), nullptr);
}

TEST_F(KORHashObjectTest, NullIsAKeyAndAValue) {
  EXPECT_NE(Table.Insert(nullptr, &First), 0);
  EXPECT_EQ(Table.Insert(nullptr, &Second), 0);
  EXPECT_EQ(Table.Get(nullptr), &First);
  EXPECT_NE(Table.Insert(&Second, nullptr), 0);
  EXPECT_EQ(Table.Insert(&Second, &Third), 0);
  EXPECT_EQ(Walk(), (Pairs{{nullptr, &First}, {&Second, nullptr}}));
}

TEST_F(KORHashObjectTest, WalkMeetsEveryEntryInTheOrderOfAdding) {
  Table.Insert(&Third, &First);
  Table.Insert(&First, &Second);
  Table.Put(&Second, &Third);
  Table.Put(&Third, &Third);
  const Pairs entries{{&Third, &Third}, {&First, &Second}, {&Second, &Third}};
  EXPECT_EQ(Walk(), entries);
  EXPECT_EQ(Walk(), entries) << "the second walk";
}

TEST_F(KORHashObjectTest, EndOfTheWalkGivesNull) {
  void* key = &First;
  void* value = &First;
  Table.Begin();
  EXPECT_EQ(Table.Next(key, value), 0);
  EXPECT_EQ(key, nullptr);
  EXPECT_EQ(value, nullptr);
}

TEST_F(KORHashObjectTest, WalkSeesWhatChangesOnTheWay) {
  Table.Insert(&First, &First);
  Table.Insert(&Second, &First);
  void* key = nullptr;
  void* value = nullptr;
  Table.Begin();
  ASSERT_EQ(Table.Next(key, value), 1);
  Table.Put(&Second, &Second);
  Table.Insert(&Third, &Third);
  ASSERT_EQ(Table.Next(key, value), 1);
  EXPECT_EQ(value, &Second);
  ASSERT_EQ(Table.Next(key, value), 1);
  EXPECT_EQ(key, &Third);
  Table.RemoveAll();
  EXPECT_EQ(Table.Next(key, value), 0);
}

TEST_F(KORHashObjectTest, RemoveAllForgetsEntriesAndLeavesObjects) {
  First = 5;
  Table.Insert(&First, &First);
  Table.RemoveAll();
  EXPECT_EQ(Table.Get(&First), nullptr);
  EXPECT_TRUE(Walk().empty());
  EXPECT_EQ(First, 5);
  EXPECT_NE(Table.Insert(&First, &Second), 0) << "the key can be used again";
}

TEST_F(KORHashObjectTest, CopyIsATableOfItsOwn) {
  Table.Insert(&First, &First);
  const KORHashObject copy = Table;
  Table.Put(&First, &Second);
  EXPECT_EQ(copy.Get(&First), &First);
}

TEST(KORHashObjectSizeTest, GrowsFromAnyInitialSize) {
  std::array<int, 1000> objects{};
  for (const int initial_size : {-1, 0, 1, 200}) {
    KORHashObject table(initial_size);
    for (int& object : objects) EXPECT_NE(table.Insert(&object, &object), 0);
    for (int& object : objects) EXPECT_EQ(table.Get(&object), &object) << "initial size " << initial_size;
  }
}

}  // namespace
