// Checks and cuts of texts: numbers, parameters, colours, and the sorting of integers.
#include "timevalue/TextHelpers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <random>
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/formula/ScopedLocale.h"
#include "tests/support/ServiceTest.h"

namespace {

using formulatest::ScopedLocale;
using Services = VEXSTMTimeAnalysisDlgServices;

// ------------------------------------------------------------------------------------------------ Number texts

struct NumberCase {
  const char* name;
  const char* text;
  int is_real_under_point;
  int is_real_under_comma;
  int is_integer;
};

void PrintTo(const NumberCase& row, std::ostream* stream) {
  *stream << '"' << row.text << '"';
}

class NumberTextTest : public support::ServiceRowTest<NumberCase> {};

TEST_P(NumberTextTest, UnderADecimalPoint) {
  EXPECT_EQ(Services::IsStringValueAReal(GetParam().text), GetParam().is_real_under_point);
  EXPECT_EQ(Services::IsStringValueAnInteger(GetParam().text), GetParam().is_integer);
}

TEST_P(NumberTextTest, UnderADecimalComma) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  EXPECT_EQ(Services::IsStringValueAReal(GetParam().text), GetParam().is_real_under_comma);
  EXPECT_EQ(Services::IsStringValueAnInteger(GetParam().text), GetParam().is_integer);
}

// Without a decimal character only digits pass.
TEST_P(NumberTextTest, WithoutADecimalCharacter) {
  _Session.InjectFault("KORSysGetLocalDecimalChar", E_FAIL);
  EXPECT_EQ(Services::IsStringValueAReal(GetParam().text), GetParam().is_integer);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, NumberTextTest,
    testing::Values(NumberCase{"Empty", "", 1, 1, 1}, NumberCase{"Digits", "12", 1, 1, 1},
                    NumberCase{"AllDigits", "0123456789", 1, 1, 1}, NumberCase{"LeadingZeros", "007", 1, 1, 1},
                    NumberCase{"Point", "1.5", 1, 0, 0}, NumberCase{"Comma", "1,5", 0, 1, 0},
                    NumberCase{"PointZero", "7.0", 1, 0, 0}, NumberCase{"PointAlone", ".", 1, 0, 0},
                    NumberCase{"CommaAlone", ",", 0, 1, 0}, NumberCase{"TwoPoints", "1.2.3", 1, 0, 0},
                    NumberCase{"TwoCommas", "1,2,3", 0, 1, 0}, NumberCase{"PointsOnly", "...", 1, 0, 0},
                    NumberCase{"Both", "1.2,3", 0, 0, 0}, NumberCase{"Negative", "-1", 0, 0, 0},
                    NumberCase{"MinusSeven", "-7", 0, 0, 0}, NumberCase{"PlusSign", "+1", 0, 0, 0},
                    NumberCase{"Exponent", "1e3", 0, 0, 0}, NumberCase{"BlankBefore", " 1", 0, 0, 0},
                    NumberCase{"BlankBehind", "1 ", 0, 0, 0}, NumberCase{"Letter", "a", 0, 0, 0},
                    NumberCase{"LetterLast", "12345a", 0, 0, 0}, NumberCase{"Hexadecimal", "0x1", 0, 0, 0},
                    NumberCase{"ArabicDigit", "\xD9\xA1", 0, 0, 0}, NumberCase{"Superscript", "\xC2\xB2", 0, 0, 0}),
    support::RowName());

TEST(NumberTextTest, LongTexts) {
  const std::string digits(100000, '5');
  EXPECT_EQ(Services::IsStringValueAReal(support::Unicode(digits)), 1);
  EXPECT_EQ(Services::IsStringValueAnInteger(support::Unicode(digits)), 1);
  EXPECT_EQ(Services::IsStringValueAReal(support::Unicode(digits + "x")), 0);
  EXPECT_EQ(Services::IsStringValueAnInteger(support::Unicode(digits + ".")), 0);
}

// -------------------------------------------------------------------------------------------------- Parameters

struct CutCase {
  const char* name;
  const char* separator;
  const char* text;
  std::vector<std::string> parameters;
};

void PrintTo(const CutCase& row, std::ostream* stream) {
  *stream << '"' << row.text << "\" at " << row.separator;
}

class BreakStringToParamsTest : public testing::TestWithParam<CutCase> {};

TEST_P(BreakStringToParamsTest, CutsAtEachSeparator) {
  const CutCase& row = GetParam();
  const KORUnicodeString text(row.text);
  EXPECT_THAT(support::Texts(Services::BreakStringToParams(row.separator, text)),
              testing::ElementsAreArray(row.parameters));
  EXPECT_EQ(support::Text(text), row.text);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BreakStringToParamsTest,
    testing::Values(
        CutCase{"Empty", "|", "", {}}, CutCase{"NoSeparator", "|", "A", {"A"}}, CutCase{"Two", "|", "A|B", {"A", "B"}},
        CutCase{"SeparatorLast", "|", "A|", {"A", ""}}, CutCase{"SeparatorFirst", "|", "|A", {"", "A"}},
        CutCase{"TwoSeparators", "|", "A||B", {"A", "", "B"}}, CutCase{"SeparatorAlone", "|", "|", {"", ""}},
        CutCase{"SeparatorsOnly", "|", "|||", {"", "", "", ""}}, CutCase{"BlanksStay", "|", " A | B ", {" A ", " B "}},
        CutCase{"OtherSeparator", ";", "A|B;C", {"A|B", "C"}},
        // Of a longer separator only the first character is taken out.
        CutCase{"TwoBars", "||", "a||b", {"a", "|b"}}, CutCase{"TwoBarsTwice", "||", "a||b||c", {"a", "|b", "|c"}},
        CutCase{"TailMakesASeparatorAgain", "||", "a|||b", {"a", "", "|b"}},
        CutCase{"LongSeparator", "abc", "1abc2", {"1", "bc2"}}, CutCase{"LongSeparatorLast", "||", "a||", {"a", "|"}},
        CutCase{"EmptySeparator", "", "a|b", {"a|b"}}, CutCase{"EmptySeparatorEmptyText", "", "", {}},
        CutCase{"LetterAsSeparator",
                "\xC3\xA4",
                "a\xC3\xA4\xC3\xB6\xC3\xA4"
                "b",
                {"a", "\xC3\xB6", "b"}},
        CutCase{"LettersAround", "|", "\xC3\xA4|\xE2\x82\xAC", {"\xC3\xA4", "\xE2\x82\xAC"}}),
    support::RowName());

TEST(BreakStringToParamsTest, ManyParameters) {
  std::string text;
  for (int n = 0; n < 200000; ++n) text += "ab|";
  const KORListValKORUnicodeString parameters = Services::BreakStringToParams("|", support::Unicode(text));
  ASSERT_EQ(parameters.Size(), 200001);
  EXPECT_EQ(support::Text(parameters[1]), "ab");
  EXPECT_EQ(support::Text(parameters[200000]), "ab");
  EXPECT_EQ(support::Text(parameters[200001]), "");
}

// ----------------------------------------------------------------------------------------------------- Colours

struct ColorCase {
  const char* name;
  const char* text;
  std::array<int, 3> channels;
};

void PrintTo(const ColorCase& row, std::ostream* stream) {
  *stream << '"' << row.text << '"';
}

class ConvertColorHexToIntTest : public testing::TestWithParam<ColorCase> {};

constexpr std::array Untouched{-11, -12, -13};

TEST_P(ConvertColorHexToIntTest, GivesTheChannels) {
  std::array<int, 3> channels = Untouched;
  Services::ConvertColorHexToInt(GetParam().text, channels[0], channels[1], channels[2]);
  EXPECT_EQ(channels, GetParam().channels);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ConvertColorHexToIntTest,
    testing::Values(ColorCase{"Orange", "FF8000", {255, 128, 0}}, ColorCase{"SmallLetters", "ff8000", {255, 128, 0}},
                    ColorCase{"SeventhDigitIsDropped", "1FF8000", {255, 128, 0}},
                    ColorCase{"EightDigits", "7FFF8000", {255, 128, 0}}, ColorCase{"White", "FFFFFF", {255, 255, 255}},
                    ColorCase{"Short", "FF", {0, 0, 255}}, ColorCase{"OneDigit", "1", {0, 0, 1}},
                    ColorCase{"Channels", "010203", {1, 2, 3}}, ColorCase{"Prefix", "0xFF8000", {255, 128, 0}},
                    ColorCase{"BlankBefore", "  FF8000", {255, 128, 0}},
                    ColorCase{"TailIsNotRead", "FF8000xyz", {255, 128, 0}},
                    ColorCase{"OnlySeventhDigit", "1000000", {0, 0, 0}}, ColorCase{"Black", "000000", Untouched},
                    ColorCase{"NoNumber", "xyz", Untouched}, ColorCase{"HashSign", "#FF8000", Untouched},
                    ColorCase{"Empty", "", Untouched}, ColorCase{"Negative32Bits", "80000000", Untouched},
                    ColorCase{"AllBits", "FFFFFFFF", Untouched}, ColorCase{"MinusSign", "-1", Untouched}),
    support::RowName());

// ----------------------------------------------------------------------------------------------------- Sorting

TEST(SortIntArrayTest, SortsUpward) {
  std::array numbers{3, -1, 3, 2};
  Services::SortIntArray(numbers.data(), 4);
  EXPECT_EQ(numbers, (std::array{-1, 2, 3, 3}));
}

TEST(SortIntArrayTest, NothingToSort) {
  Services::SortIntArray(nullptr, 4);
  std::array numbers{3, 1, 2};
  for (const int count : {-5, 0, 1}) {
    Services::SortIntArray(numbers.data(), count);
    EXPECT_EQ(numbers, (std::array{3, 1, 2})) << count;
  }
}

TEST(SortIntArrayTest, OnlyTheCountedOnes) {
  std::array numbers{5, 4, 3, 2, 1};
  Services::SortIntArray(numbers.data(), 3);
  EXPECT_EQ(numbers, (std::array{3, 4, 5, 2, 1}));
}

TEST(SortIntArrayTest, ExtremesAndRandomNumbers) {
  std::mt19937 generator(3);
  for (int round = 0; round < 300; ++round) {
    std::vector<int> numbers{INT_MAX, INT_MIN, 0, -1};
    for (auto n = generator() % 60; n > 0; --n) numbers.push_back(static_cast<int>(generator() % 41) - 20);
    std::vector<int> sorted = numbers;
    std::sort(sorted.begin(), sorted.end());
    Services::SortIntArray(numbers.data(), static_cast<int>(numbers.size()));
    ASSERT_EQ(numbers, sorted);
  }
}

}  // namespace
