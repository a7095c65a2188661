// The options that a typed code selects, and the references of a time formula.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "tests/support/CardTable.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::Card;
using support::Patterned;
using support::TableOf;
using support::Text;
using support::Unicode;

struct OptionRow {
  const char* name;
  std::vector<Card> table;
  std::string code;
  long start;
  long option;
};

class OptionIdTest : public support::ServiceRowTest<OptionRow> {};

TEST_P(OptionIdTest, IsTheUnionOfTheBitsSelected) {
  VEXSTMTimeAnalysisDlgServices services;
  Load(services, "STD", TableOf(GetParam().table));
  long option = GetParam().start;
  services.GetOptionID(Unicode(GetParam().code), option);
  EXPECT_EQ(option, GetParam().option);
  EXPECT_EQ(services.GetCodeIndex(), -1);
}

const std::vector<Card> Options = {Patterned("1", "\"A\"(|\"B\"|\"\")(|\"C\"|\"\")", "1", "3", "", "1"),
                                   Patterned("2", "\"A\"(|\"B\"|\"\")(|\"C\"|\"\")", "1", "9", "", "4"),
                                   {.id = "3", .code = "AB", .time = "1", .option_position = "0", .option_bits = "64"}};

INSTANTIATE_TEST_SUITE_P(
    Bits, OptionIdTest,
    testing::Values(OptionRow{"None", Options, "A", 0, 0}, OptionRow{"First", Options, "AB", 0, 1},
                    OptionRow{"Second", Options, "AC", 0, 4}, OptionRow{"Both", Options, "ABC", 0, 5},
                    OptionRow{"LowerCaseAndBlanks", Options, " a b c ", 0, 5},
                    OptionRow{"NeverCleared", Options, "AB", 2, 3}, OptionRow{"NotFound", Options, "X", 8, 8},
                    OptionRow{"EmptyCode", Options, "", 9, 9},
                    OptionRow{"UnreadableBits", {Patterned("1", "\"A\"", "1", "0", "", "x")}, "A", 2, 2},
                    OptionRow{"PositionBeyondThePattern", {Patterned("1", "\"A\"", "1", "1", "", "4")}, "A", 0, 0},
                    OptionRow{"PositionBelowZero", {Patterned("1", "\"A\"", "1", "-1", "", "4")}, "A", 0, 0},
                    OptionRow{"NoPositionIsZero", {Patterned("1", "\"A\"", "1", "", "", "4")}, "A", 0, 4},
                    // Unlike for the time, a move of any length gets its 1.
                    OptionRow{"ShortMove", {Patterned("1", "\"M5A1\"", "1", "0", "", "4")}, "M5A", 0, 4},
                    OptionRow{"LongMove", {Patterned("1", "\"M100A1\"", "1", "0", "", "4")}, "m 100 a", 0, 4},
                    OptionRow{"LongMoveItself", {Patterned("1", "\"M100A\"", "1", "0", "", "4")}, "M100A", 0, 0}),
    [](const auto& row) { return std::string(row.param.name); });

// --------------------------------------------------------------------------------------------------------- References

struct ReferenceRow {
  const char* name;
  const char* formula;
  const char* expected;
};

class SubstParameterTest : public support::ServiceRowTest<ReferenceRow> {};

// Positions 1, 3 and 1999 took part, with the values 5, 2.5 and 8; position 2 did not.
TEST_P(SubstParameterTest, ReplacesReferencesByTheirValues) {
  std::array<double, 2000> values{};
  std::array<int, 2000> flags{};
  values[0] = 9.0;
  values[1] = 5.0;
  values[2] = 7.0;
  values[3] = 2.5;
  values[1999] = 8.0;
  flags[1] = 1;
  flags[3] = 1;
  flags[1999] = -1;
  KORUnicodeString formula = GetParam().formula;
  const VEXSTMTimeAnalysisDlgServices services;
  services.SubstParameterCode(formula, values.data(), flags.data());
  EXPECT_EQ(Text(formula), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Formulas, SubstParameterTest,
    testing::Values(ReferenceRow{"Plain", "2*$1$+1", "2*5+1"}, ReferenceRow{"Empty", "", ""},
                    ReferenceRow{"None", "2*3", "2*3"}, ReferenceRow{"Two", "$1$*$3$", "5*2.5"},
                    ReferenceRow{"DidNotTakePart", "10+$2$", "10+"}, ReferenceRow{"LastPosition", "$1999$", "8"},
                    ReferenceRow{"BeyondTheLastPosition", "1$2000$2", "12"},
                    ReferenceRow{"FarBeyond", "1$99999999999999999999$2", "12"},
                    ReferenceRow{"BelowZero", "1$-1$2", "12"}, ReferenceRow{"Fraction", "$1.9$", "5"},
                    ReferenceRow{"FractionAboveMinusOne", "1$-0.5$2", "12"}, ReferenceRow{"NoNumber", "1$x$2", "12"},
                    ReferenceRow{"BlankAhead", "$ 1$", "5"}, ReferenceRow{"TextBehindTheNumber", "$1abc$+1", "5+1"},
                    ReferenceRow{"NothingBetween", "1$$2", "12"}, ReferenceRow{"Infinity", "1$inf$2", "12"},
                    ReferenceRow{"NotANumber", "1$nan$2", "12"}, ReferenceRow{"WithoutItsEnd", "2+$1", "2+5"},
                    ReferenceRow{"SignAlone", "2+$", "2+"}, ReferenceRow{"ThreeSigns", "$1$$", "5"},
                    ReferenceRow{"ExponentIsRead", "$1e0$", "5"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SubstParameterBigInputTest, LongFormulaEndsQuickly) {
  const std::array<double, 2000> values{};
  const std::array<int, 2000> flags{};
  std::string text;
  for (int reference = 0; reference < 100000; ++reference) text += "1$2$";
  KORUnicodeString formula = Unicode(text);
  VEXSTMTimeAnalysisDlgServices().SubstParameterCode(formula, values.data(), flags.data());
  EXPECT_EQ(Text(formula), std::string(100000, '1'));
}

}  // namespace
