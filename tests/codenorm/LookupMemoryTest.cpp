// What lookups remember, and when they forget it: an answer holds for one table, system and decimal character.
#include "codenorm/LookupMemory.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/formula/ScopedLocale.h"
#include "tests/support/CardTable.h"
#include "tests/support/ServiceTest.h"
#include "tests/support/ShippedCatalogue.h"

namespace {

using codenorm::LookupMemory;
using formulatest::ScopedLocale;
using support::Patterned;
using support::Plain;
using support::TableOf;
using support::Text;
using support::TimeOf;

// -------------------------------------------------------------------------------------------------- The memory itself

class LookupMemoryTest : public testing::Test {
 protected:
  LookupMemoryTest() {
    _Memory.Enter(1, "STD", L'.');
    _Memory.Remember("GA", {.Entry = 3, .Time = "7.5"});
    _Memory.Remember("XX", {.Entry = {}, .Time = "0"});
  }

  bool Knows(const std::string& code) const { return _Memory.Find(code) != nullptr; }

  LookupMemory _Memory;
};

TEST_F(LookupMemoryTest, RemembersTheWholeAnswer) {
  _Memory.Enter(1, "STD", L'.');
  const codenorm::CodeTime* answer = _Memory.Find("GA");
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer->Entry, 3u);
  EXPECT_EQ(answer->Time, "7.5");
  answer = _Memory.Find("XX");
  ASSERT_NE(answer, nullptr) << "that a code is unknown is an answer too";
  EXPECT_FALSE(answer->Entry.has_value());
  EXPECT_EQ(answer->Time, "0");
  for (const char* other : {"", "G", "GA ", "ga", "GAX"}) EXPECT_FALSE(Knows(other)) << other;
}

struct CircumstanceRow {
  const char* name;
  std::uint64_t table_number;
  const char* system;
  wchar_t decimal_character;
};

class OtherCircumstancesTest : public LookupMemoryTest, public testing::WithParamInterface<CircumstanceRow> {};

TEST_P(OtherCircumstancesTest, ForgetForGood) {
  const CircumstanceRow& row = GetParam();
  _Memory.Enter(row.table_number, row.system, row.decimal_character);
  EXPECT_FALSE(Knows("GA"));
  _Memory.Remember("GA", {.Entry = 4, .Time = "9"});
  ASSERT_TRUE(Knows("GA"));
  EXPECT_EQ(_Memory.Find("GA")->Time, "9");
  _Memory.Enter(1, "STD", L'.');
  EXPECT_FALSE(Knows("GA"));
}

// Each differs in one thing from table 1, system "STD" and ".".
INSTANTIATE_TEST_SUITE_P(Each, OtherCircumstancesTest,
                         testing::Values(CircumstanceRow{"Table", 2, "STD", L'.'},
                                         CircumstanceRow{"System", 1, "SAM", L'.'},
                                         CircumstanceRow{"SystemInLowerCase", 1, "std", L'.'},
                                         CircumstanceRow{"NoSystem", 1, "", L'.'},
                                         CircumstanceRow{"DecimalComma", 1, "STD", L','},
                                         CircumstanceRow{"NoDecimalCharacter", 1, "STD", L'\0'}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(LookupMemoryTest, IsEmptiedOnceItIsFull) {
  _Memory.Enter(2, "STD", L'.');
  for (std::size_t number = 0; number < LookupMemory::MostAnswers; ++number) {
    _Memory.Remember("C" + std::to_string(number), {.Entry = number, .Time = "1"});
  }
  EXPECT_TRUE(Knows("C0"));
  EXPECT_TRUE(Knows("C" + std::to_string(LookupMemory::MostAnswers - 1)));
  _Memory.Remember("NEXT", {.Entry = 0, .Time = "1"});
  EXPECT_TRUE(Knows("NEXT"));
  for (std::size_t number = 0; number < LookupMemory::MostAnswers; ++number) {
    ASSERT_FALSE(Knows("C" + std::to_string(number))) << number;
  }
}

TEST_F(LookupMemoryTest, LongCodesAreNotRemembered) {
  const std::string longest(LookupMemory::MostCodeBytes, 'A');
  _Memory.Remember(longest, {.Entry = 0, .Time = "1"});
  _Memory.Remember(longest + "A", {.Entry = 0, .Time = "1"});
  EXPECT_TRUE(Knows(longest));
  EXPECT_FALSE(Knows(longest + "A"));
}

// ----------------------------------------------------------------------------------- The memory behind the lookups

class RememberedLookupTest : public support::ServiceTest {
 protected:
  VEXSTMTimeAnalysisDlgServices _Services;
};

TEST_F(RememberedLookupTest, SecondLookupGivesTheSameTexts) {
  Load(_Services, "STD", TableOf({Plain("1", "A", "2"), Plain("2", "B", "3")}));
  for (int round = 1; round <= 2; ++round) {
    EXPECT_EQ(TimeOf(_Services, "A"), "2");
    EXPECT_EQ(Text(_Services.GetTACodeID()), "1");
    EXPECT_EQ(Text(_Services.GetLocalDescription()), "local text of 1");
    EXPECT_EQ(_Services.GetCodeIndex(), 0);
    EXPECT_EQ(TimeOf(_Services, "B"), "3");
    EXPECT_EQ(Text(_Services.GetTACodeID()), "2");
    EXPECT_EQ(TimeOf(_Services, "C"), "0");
    EXPECT_EQ(Text(_Services.GetTACodeID()), "");
    EXPECT_EQ(Text(_Services.GetLocalDescription()), "local text of 2");
    EXPECT_EQ(_Services.GetCodeIndex(), 1);
  }
}

// Where the comma is the decimal character, the formula is a number; elsewhere it cannot be read.
TEST_F(RememberedLookupTest, FollowsAChangeOfTheLocale) {
  Load(_Services, "STD", TableOf({Plain("1", "A", "(1,2)")}));
  EXPECT_EQ(TimeOf(_Services, "A"), "0");
  {
    const ScopedLocale locale(COMMA_LOCALE);
    ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
    EXPECT_EQ(TimeOf(_Services, "A"), "1.2");
    EXPECT_EQ(TimeOf(_Services, "A"), "1.2");
  }
  EXPECT_EQ(TimeOf(_Services, "A"), "0");
}

TEST_F(RememberedLookupTest, FollowsAChangeOfTheSystem) {
  Load(_Services, "STD", TableOf({Plain("1", "A", "2"), Patterned("2", "\"X\"\"Y\"", "3")}));
  for (int round = 1; round <= 2; ++round) {
    support::Select(_Services, "STD");
    EXPECT_EQ(TimeOf(_Services, "A"), "2");
    EXPECT_EQ(TimeOf(_Services, "X+Y"), "0");
    support::Select(_Services, "SAM");
    EXPECT_EQ(TimeOf(_Services, "A"), "10");
    EXPECT_EQ(TimeOf(_Services, "X+Y"), "15");
    support::Select(_Services, "RWF");
    EXPECT_EQ(TimeOf(_Services, "A"), "3.3334");
    EXPECT_EQ(Text(_Services.GetTACodeID()), "1");
  }
}

TEST_F(RememberedLookupTest, TwoTablesInTurnGiveTheirOwnAnswers) {
  VEXSTMTimeAnalysisDlgServices other;
  Load(_Services, "STD", TableOf({Plain("1", "A", "2"), Plain("2", "B", "3")}));
  Load(other, "STD", TableOf({Plain("7", "B", "30"), Plain("8", "A", "20")}));
  for (int round = 1; round <= 3; ++round) {
    EXPECT_EQ(TimeOf(_Services, "A"), "2");
    EXPECT_EQ(Text(_Services.GetTACodeID()), "1");
    EXPECT_EQ(TimeOf(other, "A"), "20");
    EXPECT_EQ(Text(other.GetTACodeID()), "8");
    EXPECT_EQ(Text(other.GetLocalDescription()), "local text of 8");
  }
}

TEST_F(RememberedLookupTest, LongCodesAreLookedUpEachTime) {
  const std::string code(LookupMemory::MostCodeBytes + 1, 'A');
  Load(_Services, "STD", TableOf({Plain("1", code, "2")}));
  EXPECT_EQ(TimeOf(_Services, code), "2");
  EXPECT_EQ(TimeOf(_Services, code), "2");
}

}  // namespace
