// The byte text that serves as key.
#include "platform/base/KORString.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "platform/base/KORList.h"
#include "tests/platform/NamedRow.h"

namespace {

using platformtest::NameOfRow;

TEST(KORStringTest, IsMadeOfTexts) {
  EXPECT_STREQ(KORString().ConvertToChar(), "");
  EXPECT_STREQ(KORString("TotalTime").ConvertToChar(), "TotalTime");
  EXPECT_STREQ(KORString(static_cast<const char*>(nullptr)).ConvertToChar(), "");
  EXPECT_EQ(KORString(std::string_view("TotalTime", 5)), "Total");
  EXPECT_EQ(KORString(KORUnicodeString("Müller")).Bytes(), "M\xC3\xBCller");
}

TEST(KORStringTest, IsAssignedTexts) {
  KORString key = "Code";
  key = "Factor";
  EXPECT_EQ(key, "Factor");
  const char* const nothing = nullptr;
  key = nothing;
  EXPECT_TRUE(key.IsEmpty());
  key = KORString(std::string_view("TTB"));
  EXPECT_FALSE(key.IsEmpty());
  EXPECT_EQ(key.Bytes(), "TTB");
}

TEST(KORStringTest, KeepsBytesAsTheyCome) {
  EXPECT_EQ(KORString("M\xFCller").Bytes(), "M\xFCller");
  EXPECT_EQ(KORString(std::string_view("a\0b", 3)).Bytes().size(), 3u);
}

struct LengthRow {
  const char* Name;
  const char* Bytes;
  int Length;
};
class KORStringLengthTest : public testing::TestWithParam<LengthRow> {};

TEST_P(KORStringLengthTest, CountsCharacters) {
  EXPECT_EQ(KORString(GetParam().Bytes).GetLengthInChar(), GetParam().Length);
  EXPECT_EQ(KORUnicodeString(GetParam().Bytes).GetLengthInChar(), GetParam().Length);
}

INSTANTIATE_TEST_SUITE_P(Texts, KORStringLengthTest,
                         testing::Values(LengthRow{"Empty", "", 0}, LengthRow{"Ascii", "TTB", 3},
                                         LengthRow{"Utf8", "M\xC3\xBCller", 6},
                                         LengthRow{"Windows1252", "M\xFCller", 6},
                                         LengthRow{"Utf8AndWindows1252", "\xC3\xBC\xFC", 3}),
                         NameOfRow());

struct CompareRow {
  const char* Name;
  const char* Left;
  const char* Right;
  int Result;
};
class KORStringCompareTest : public testing::TestWithParam<CompareRow> {};

TEST_P(KORStringCompareTest, GivesTheOrderOfTheBytes) {
  const CompareRow& row = GetParam();
  const KORString left = row.Left;
  const KORString right = row.Right;
  EXPECT_EQ(left.Compare(row.Right), row.Result);
  EXPECT_EQ(left.Compare(right), row.Result);
  EXPECT_EQ(right.Compare(left), -row.Result);
  EXPECT_EQ(left == right, row.Result == 0);
  EXPECT_EQ(left == row.Right, row.Result == 0);
  EXPECT_EQ(row.Right != left, row.Result != 0);
  EXPECT_EQ(left < right, row.Result < 0);
  EXPECT_EQ(left > right, row.Result > 0);
}

INSTANTIATE_TEST_SUITE_P(Pairs, KORStringCompareTest,
                         testing::Values(CompareRow{"Equal", "Code", "Code", 0}, CompareRow{"BothEmpty", "", "", 0},
                                         CompareRow{"NullIsEmpty", "", nullptr, 0},
                                         CompareRow{"EmptyIsFirst", "", "Code", -1},
                                         CompareRow{"HeadIsFirst", "Code", "CodeTime", -1},
                                         CompareRow{"CapitalIsFirst", "CODE", "Code", -1},
                                         CompareRow{"ByteAbove127IsLast", "\xC3\xBC", "z", 1}),
                         NameOfRow());

TEST(KORStringTest, IsPutTogether) {
  KORString key = "TTB";
  key += "Time";
  EXPECT_EQ(key, "TTBTime");
  EXPECT_EQ(key + "?", "TTBTime?");
  EXPECT_EQ("V_" + key, "V_TTBTime");
  key += key;
  EXPECT_EQ(key, "TTBTimeTTBTime");
}

TEST(KORStringTest, FindsValuesInATable) {
  const std::map<KORString, int> places{{"TotalTime", 2}, {"Code", 1}};
  EXPECT_EQ(places.at("Code"), 1);
  EXPECT_EQ(places.count("code"), 0u);
}

TEST(KORStringTest, ListsCountFromOne) {
  KORListValKORString keys;
  keys.Append("Code");
  keys.Append("Factor");
  EXPECT_EQ(keys[2], "Factor");
  EXPECT_EQ(keys.Locate("Factor"), 2);
  EXPECT_EQ(keys.Locate("Factor", 3), 0);
}

}  // namespace
