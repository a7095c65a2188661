// Lists whose positions count from 1.
#include "platform/base/KORList.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

KORListValKORUnicodeString MakeList(std::initializer_list<const char*> texts) {
  KORListValKORUnicodeString list;
  for (const char* text : texts) list.Append(text);
  return list;
}

TEST(KORListTest, CountsFromOne) {
  KORListValKORUnicodeString list = MakeList({"A", "B"});
  ASSERT_EQ(list.Size(), 2);
  EXPECT_EQ(list[1], "A");
  EXPECT_EQ(list[2], "B");
  list[2] = "C";
  EXPECT_EQ(list, MakeList({"A", "C"}));
}

TEST(KORListTest, CopiesAreIndependent) {
  KORListValKORUnicodeString list = MakeList({"A"});
  KORListValKORUnicodeString copy = list;
  copy.Append("B");
  list[1] = "X";
  EXPECT_EQ(copy, MakeList({"A", "B"}));
  EXPECT_EQ(list, MakeList({"X"}));
}

TEST(KORListTest, AppendsListsAndItself) {
  KORListValKORUnicodeString list = MakeList({"A", "B"});
  list.Append(MakeList({"C"}));
  list.Append(list);
  EXPECT_EQ(list, MakeList({"A", "B", "C", "A", "B", "C"}));
  list.RemoveAll();
  EXPECT_EQ(list.Size(), 0);
}

TEST(KORListTest, CapacityIsRoomForThatManyValues) {
  constexpr int Capacity = 100;
  KORRawCollint list(Capacity);
  EXPECT_EQ(list.Size(), 0);
  list.Append(1);
  const int* const first = &list[1];
  for (int value = 2; value <= Capacity; ++value) {
    list.Append(value);
    ASSERT_EQ(&list[1], first) << "the values stay where they are up to the capacity; moved by " << value;
  }
}

TEST(KORListTest, CapacityIsNoLimit) {
  for (const int capacity : {1, 0, -1, INT_MIN}) {
    KORListValKORUnicodeString list(capacity);
    EXPECT_EQ(list.Size(), 0) << capacity;
    list.Append(MakeList({"A", "B", "C"}));
    EXPECT_EQ(list, MakeList({"A", "B", "C"})) << capacity;
  }
}

TEST(KORListTest, CapacityIsNoPartOfTheValue) {
  EXPECT_EQ(KORListValKORUnicodeString(5), KORListValKORUnicodeString());
}

struct LocateRow {
  const char* Wanted;
  int From;
  int Found;
};

TEST(KORListTest, LocatesFromAPosition) {
  const KORListValKORUnicodeString list = MakeList({"A", "B", "A"});
  for (const LocateRow& row : {LocateRow{"A", 1, 1}, LocateRow{"A", 2, 3}, LocateRow{"A", 3, 3}, LocateRow{"A", 4, 0},
                               LocateRow{"B", 3, 0}, LocateRow{"C", 1, 0}, LocateRow{"A", -5, 1}, LocateRow{"A", 99, 0},
                               LocateRow{"B", INT_MIN, 2}, LocateRow{"A", INT_MAX, 0}}) {
    EXPECT_EQ(list.Locate(row.Wanted, row.From), row.Found) << row.Wanted << " from " << row.From;
  }
  EXPECT_EQ(MakeList({}).Locate("A"), 0);
}

TEST(KORListTest, ListsOfPointersOwnNothing) {
  int object = 5;
  {
    KORRawCollPV list;
    list.Append(&object);
    EXPECT_EQ(list.Locate(&object), 1);
  }
  EXPECT_EQ(object, 5);
}

TEST(KORListDeathTest, PositionOutsideEndsTheProcess) {
  KORRawCollint list;
  list.Append(7);
  for (const int position : {0, 2, -1}) {
    EXPECT_DEATH(list[position] = 1, "AssertionFailed:1 <= position && position <= Size\\(\\) .*KORList.h [0-9]+");
  }
}

}  // namespace
