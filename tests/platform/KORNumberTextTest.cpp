// Numbers in texts, against the C library in the "C" locale.
#include "platform/base/KORNumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tests/formula/ScopedLocale.h"
#include "tests/platform/NamedRow.h"

namespace {

using platformtest::NameOfRow;

template <class Number>
std::optional<Number> ReadByLibrary(const std::string& text, const char* format) {
  Number number{};
  return std::sscanf(text.c_str(), format, &number) == 1 ? std::optional(number) : std::nullopt;
}

template <class... Values>
std::string PrintByLibrary(const char* format, Values... values) {
  char text[64];
  std::snprintf(text, sizeof text, format, values...);
  return text;
}

std::optional<std::uint64_t> BitsOf(const std::optional<double>& number) {
  return number ? std::optional(std::bit_cast<std::uint64_t>(*number)) : std::nullopt;
}

struct IntegerRow {
  const char* Name;
  const char* Text;
  std::optional<int> Decimal;
  std::optional<int> Hexadecimal;
};
class IntegerTest : public testing::TestWithParam<IntegerRow> {};

TEST_P(IntegerTest, ReadsAsTheLibrary) {
  const std::string text = GetParam().Text;
  EXPECT_EQ(kornumber::ReadInteger(text), GetParam().Decimal);
  EXPECT_EQ(kornumber::ReadHexadecimal(text), GetParam().Hexadecimal);
  EXPECT_EQ(ReadByLibrary<int>(text, "%d"), GetParam().Decimal);
  EXPECT_EQ(ReadByLibrary<int>(text, "%x"), GetParam().Hexadecimal);
}

constexpr int Greatest = std::numeric_limits<int>::max();
constexpr int Least = std::numeric_limits<int>::min();

// What the C library gives is asked for beside each value.
INSTANTIATE_TEST_SUITE_P(
    Texts, IntegerTest,
    testing::Values(IntegerRow{"Plain", "12", 12, 0x12}, IntegerRow{"Signs", "-12", -12, -0x12},
                    IntegerRow{"Plus", "+12", 12, 0x12}, IntegerRow{"SpaceAhead", " \t\n\v\f\r12", 12, 0x12},
                    IntegerRow{"StopsAtLetter", "12cm", 12, 0x12c}, IntegerRow{"StopsAtDot", "12.5", 12, 0x12},
                    IntegerRow{"LettersOnly", "fF", {}, 0xff}, IntegerRow{"NoDigit", "TMU", {}, {}},
                    IntegerRow{"Empty", "", {}, {}}, IntegerRow{"SpaceOnly", "  ", {}, {}},
                    IntegerRow{"SignOnly", "-", {}, {}}, IntegerRow{"TwoSigns", "--1", {}, {}},
                    IntegerRow{"SpaceBehindSign", "- 1", {}, {}}, IntegerRow{"Prefix", "0x1F", 0, 0x1f},
                    IntegerRow{"PrefixAlone", "0x", 0, 0}, IntegerRow{"PrefixWithSign", "-0X1f", 0, -0x1f},
                    IntegerRow{"PrefixTwice", "0x0x1", 0, 0}, IntegerRow{"LeadingZeros", "0012", 12, 0x12},
                    IntegerRow{"Greatest", "2147483647", Greatest, 0x47483647},
                    IntegerRow{"JustAbove32Bits", "2147483648", Least, 0x47483648},
                    IntegerRow{"Least", "-2147483648", Least, -0x47483648},
                    IntegerRow{"LowBits", "4294967297", 1, static_cast<int>(0x94967297u)},
                    IntegerRow{"Greatest64", "9223372036854775807", -1, -1},
                    IntegerRow{"Above64", "9223372036854775808", -1, -1},
                    IntegerRow{"FarAbove64", "99999999999999999999999999", -1, -1},
                    IntegerRow{"Least64", "-9223372036854775808", 0, -1},
                    IntegerRow{"FarBelow64", "-99999999999999999999999999", 0, -1},
                    IntegerRow{"GreatestHexadecimal", "ffffffffffffffff", {}, -1},
                    IntegerRow{"MinusGreatestHexadecimal", "-ffffffffffffffff", {}, 1},
                    IntegerRow{"BeyondHexadecimal", "-10000000000000000", -1874919424, -1}),
    NameOfRow());

constexpr double Infinite = std::numeric_limits<double>::infinity();

struct RealRow {
  const char* Name;
  const char* Text;
  std::optional<double> Value;
  bool Whole;
};
class RealTest : public testing::TestWithParam<RealRow> {};

TEST_P(RealTest, ReadsAsTheLibrary) {
  const std::string text = GetParam().Text;
  EXPECT_EQ(BitsOf(kornumber::ReadReal(text)), BitsOf(GetParam().Value)) << text;
  EXPECT_EQ(BitsOf(ReadByLibrary<double>(text, "%le")), BitsOf(GetParam().Value)) << text;
  EXPECT_EQ(BitsOf(kornumber::ReadWholeReal(text)), GetParam().Whole ? BitsOf(GetParam().Value) : std::nullopt) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Decimal, RealTest,
    testing::Values(RealRow{"Plain", "2.5", 2.5, true}, RealRow{"Signed", "-2.5", -2.5, true},
                    RealRow{"Plus", "+2.5", 2.5, true}, RealRow{"SpaceAround", " \v2.5\t ", 2.5, true},
                    RealRow{"NegativeZero", "-0", -0.0, true}, RealRow{"Exponent", "2.5E+1", 25.0, true},
                    RealRow{"NoWholePart", ".5", 0.5, true}, RealRow{"NoFraction", "5.", 5.0, true},
                    RealRow{"DotOnly", ".", {}, false}, RealRow{"DotAndExponent", ".e1", {}, false},
                    RealRow{"SignOnly", "-", {}, false}, RealRow{"Empty", "", {}, false},
                    RealRow{"ExponentWithoutDigits", "1e", 1.0, false},
                    RealRow{"ExponentWithSignOnly", "1e+", 1.0, false}, RealRow{"TwoDots", "1.2.3", 1.2, false},
                    RealRow{"DotInExponent", "1e2.5", 100.0, false}, RealRow{"Comma", "2,5", 2.0, false},
                    RealRow{"Unit", "2.5 s", 2.5, false}, RealRow{"Overflow", "1e400", Infinite, true},
                    RealRow{"NegativeOverflow", "-1e400", -Infinite, true}, RealRow{"Underflow", "1e-400", 0.0, true},
                    RealRow{"NegativeUnderflow", "-1e-400", -0.0, true},
                    RealRow{"Denormal", "4.9e-324", 4.9e-324, true}, RealRow{"HalfOfTheLeast", "2.4e-324", 0.0, true},
                    RealRow{"Greatest", "1.7976931348623157e308", 1.7976931348623157e308, true},
                    RealRow{"ZeroWithGreatExponent", "0e99999999999", 0.0, true},
                    RealRow{"GreatExponent", "1e99999999999999999999", Infinite, true},
                    RealRow{"SeventeenDigits", "0.10000000000000001", 0.1, true}),
    NameOfRow());

INSTANTIATE_TEST_SUITE_P(
    Hexadecimal, RealTest,
    testing::Values(RealRow{"Plain", "0x1.8p1", 3.0, true}, RealRow{"CapitalPrefix", "-0XA", -10.0, true},
                    RealRow{"PrefixAlone", "0x", {}, false}, RealRow{"PrefixAndDot", "0x.", 0.0, false},
                    RealRow{"PrefixAndExponent", "0xp1", {}, false}, RealRow{"DotAndExponent", "0x.p1", 0.0, false},
                    RealRow{"DigitsBehindDot", "0x.8", 0.5, true}, RealRow{"EIsADigit", "0x1e+1", 30.0, false},
                    RealRow{"ExponentWithoutDigits", "0x1p-", 1.0, false},
                    RealRow{"Overflow", "0x1p99999", Infinite, true}),
    NameOfRow());

INSTANTIATE_TEST_SUITE_P(
    Words, RealTest,
    testing::Values(RealRow{"Inf", "inf", Infinite, true}, RealRow{"Infinity", "-INFinity", -Infinite, true},
                    RealRow{"InfWithTail", "infx", Infinite, false}, RealRow{"BegunInfinity", "infi", {}, false},
                    RealRow{"BegunInfinityWithTail", "infinitx", {}, false}, RealRow{"BegunInf", "in", {}, false},
                    RealRow{"Nan", "nan", std::numeric_limits<double>::quiet_NaN(), true},
                    RealRow{"NegativeNan", "-NaN", -std::numeric_limits<double>::quiet_NaN(), true},
                    RealRow{"NanWithTail", "nan(1)", std::numeric_limits<double>::quiet_NaN(), false},
                    RealRow{"BegunNan", "na", {}, false}),
    NameOfRow());

TEST(KORNumberTextTest, ReadsPartsOfLongerTexts) {
  const std::string_view text = "1234567";
  EXPECT_EQ(kornumber::ReadInteger(text.substr(0, 3)), 123);
  EXPECT_EQ(kornumber::ReadReal(text.substr(0, 3)), 123.0);
  EXPECT_EQ(kornumber::ReadHexadecimal(text.substr(0, 3)), 0x123);
}

struct PrintRow {
  const char* Name;
  double Number;
  const char* Text;
};
class PrintTest : public testing::TestWithParam<PrintRow> {};

TEST_P(PrintTest, PrintsAsTheLibrary) {
  EXPECT_EQ(kornumber::PrintReal(GetParam().Number), GetParam().Text);
  EXPECT_EQ(PrintByLibrary("%g", GetParam().Number), GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(
    Reals, PrintTest,
    testing::Values(PrintRow{"Zero", 0.0, "0"}, PrintRow{"NegativeZero", -0.0, "-0"}, PrintRow{"Tenth", 0.1, "0.1"},
                    PrintRow{"SixDigits", 123456.0, "123456"}, PrintRow{"SevenDigits", 1234567.0, "1.23457e+06"},
                    PrintRow{"Small", 0.0001, "0.0001"}, PrintRow{"Smaller", 0.00001, "1e-05"},
                    PrintRow{"Rounded", 2.0000005, "2"}, PrintRow{"HalfToEvenBelow", 100000.5, "100000"},
                    PrintRow{"HalfToEvenAbove", 100001.5, "100002"}, PrintRow{"Infinity", Infinite, "inf"},
                    PrintRow{"NegativeInfinity", -Infinite, "-inf"},
                    PrintRow{"Nan", std::numeric_limits<double>::quiet_NaN(), "nan"},
                    PrintRow{"NegativeNan", -std::numeric_limits<double>::quiet_NaN(), "-nan"},
                    PrintRow{"Longest", -1.234567e-300, "-1.23457e-300"}),
    NameOfRow());

TEST(KORNumberTextTest, PrintsIntegers) {
  for (const int number : {0, 1, -1, 42, Greatest, Least}) {
    EXPECT_EQ(kornumber::PrintInteger(number), PrintByLibrary("%d", number));
  }
}

// Random texts made of the pieces of numbers, with a fixed seed, against the C library.
class RandomNumbers {
 public:
  std::string DrawText() {
    static const std::vector<std::string> pieces = {"0",
                                                    "1",
                                                    "7",
                                                    "9",
                                                    "00",
                                                    "123",
                                                    "0x",
                                                    "0X",
                                                    "a",
                                                    "F",
                                                    "e",
                                                    "E",
                                                    "p",
                                                    "P",
                                                    ".",
                                                    "..",
                                                    "+",
                                                    "-",
                                                    " ",
                                                    "\t",
                                                    "\v",
                                                    "inf",
                                                    "INF",
                                                    "inity",
                                                    "nan",
                                                    "n",
                                                    "i",
                                                    "(",
                                                    ")",
                                                    ",",
                                                    "e+",
                                                    "e-",
                                                    "p-",
                                                    "308",
                                                    "324",
                                                    "4294967296",
                                                    "9223372036854775807",
                                                    "18446744073709551615",
                                                    "99999999999999999999",
                                                    "ffffffffffffffff",
                                                    "x",
                                                    "\xC3\xA4"};
    std::string text;
    for (std::size_t count = Draw(7); count > 0; --count) text += pieces[Draw(pieces.size() - 1)];
    return text;
  }

  double DrawNumber() {
    if (Draw(3) == 0) return std::bit_cast<double>(_Random() << 32 | _Random());
    const auto digits = static_cast<double>(Draw(100000000));
    return digits * std::pow(10.0, static_cast<double>(Draw(30)) - 20.0) * (Draw(1) == 0 ? 1.0 : -1.0);
  }

 private:
  std::size_t Draw(std::size_t most) { return std::uniform_int_distribution<std::size_t>(0, most)(_Random); }

  std::mt19937_64 _Random{19481024};
};

TEST(KORNumberTextTest, AgreesWithTheLibraryOnRandomTexts) {
  RandomNumbers random;
  int read = 0;
  for (int round = 0; round < 200000; ++round) {
    const std::string text = random.DrawText();
    ASSERT_EQ(kornumber::ReadInteger(text), ReadByLibrary<int>(text, "%d")) << text;
    ASSERT_EQ(kornumber::ReadHexadecimal(text), ReadByLibrary<int>(text, "%x")) << text;
    ASSERT_EQ(BitsOf(kornumber::ReadReal(text)), BitsOf(ReadByLibrary<double>(text, "%le"))) << text;
    read += kornumber::ReadReal(text) ? 1 : 0;
  }
  EXPECT_GT(read, 50000);
  EXPECT_LT(read, 150000);
}

TEST(KORNumberTextTest, AgreesWithTheLibraryOnRandomNumbers) {
  RandomNumbers random;
  for (int round = 0; round < 200000; ++round) {
    const double number = random.DrawNumber();
    ASSERT_EQ(kornumber::PrintReal(number), PrintByLibrary("%g", number));
    const std::string text = PrintByLibrary("%.17g", number);
    ASSERT_EQ(BitsOf(kornumber::ReadReal(text)), BitsOf(ReadByLibrary<double>(text, "%le"))) << text;
  }
}

TEST(KORNumberTextTest, LocaleOfTheProcessPlaysNoPart) {
  const formulatest::ScopedProcessLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce()) << "the locale " COMMA_LOCALE " has to be in LOCPATH";
  EXPECT_EQ(kornumber::ReadReal("2.5"), 2.5);
  EXPECT_EQ(kornumber::ReadReal("2,5"), 2.0);
  EXPECT_EQ(kornumber::ReadReal("0x1.8"), 1.5);
  EXPECT_EQ(kornumber::ReadReal("1.5e400"), Infinite);
  EXPECT_EQ(kornumber::PrintReal(2.5), "2.5");
}

}  // namespace
