// The text type: characters and bytes, search and change, letters of both cases, what is no UTF-8.
#include "platform/base/KORUnicodeString.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <vector>

#include "platform/base/KORStatus.h"
#include "tests/platform/NamedRow.h"

namespace {

using platformtest::NameOfRow;
using StripPlace = KORUnicodeString::StripPlace;

constexpr int Greatest = std::numeric_limits<int>::max();
constexpr int Least = std::numeric_limits<int>::min();

// Bytes as they come from files; what they are read as is given in UTF-8.
struct DecodingRow {
  const char* Name;
  std::string Bytes;
  std::string Text;
  int Length;
};
class DecodingTest : public testing::TestWithParam<DecodingRow> {};

TEST_P(DecodingTest, ReadsBytes) {
  const KORUnicodeString text{std::string_view(GetParam().Bytes)};
  EXPECT_EQ(text.Bytes(), GetParam().Text);
  EXPECT_EQ(text.GetLengthInChar(), GetParam().Length);
  EXPECT_EQ(KORUnicodeString(std::wstring_view(text.ConvertToWideChar())), text);
}

// Boundaries of the forms of UTF-8 are those of the Unicode standard; Windows-1252 is the code page's published table.
INSTANTIATE_TEST_SUITE_P(Utf8, DecodingTest,
                         testing::Values(DecodingRow{"Empty", "", "", 0}, DecodingRow{"Ascii", "R45B", "R45B", 4},
                                         DecodingRow{"NulInside", std::string("A\0B", 3), std::string("A\0B", 3), 3},
                                         DecodingRow{"TwoBytes",
                                                     "Gr\xC3\xB6\xC3\x9F"
                                                     "e",
                                                     "Gr\xC3\xB6\xC3\x9F"
                                                     "e",
                                                     5},
                                         DecodingRow{"FirstOfTwoBytes", "\xC2\x80", "\xC2\x80", 1},
                                         DecodingRow{"LastOfTwoBytes", "\xDF\xBF", "\xDF\xBF", 1},
                                         DecodingRow{"FirstOfThreeBytes", "\xE0\xA0\x80", "\xE0\xA0\x80", 1},
                                         DecodingRow{"LastBeforeSurrogates", "\xED\x9F\xBF", "\xED\x9F\xBF", 1},
                                         DecodingRow{"LastOfThreeBytes", "\xEF\xBF\xBF", "\xEF\xBF\xBF", 1},
                                         DecodingRow{"FirstOfFourBytes", "\xF0\x90\x80\x80", "\xF0\x90\x80\x80", 1},
                                         DecodingRow{"LastCharacter", "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF", 1},
                                         DecodingRow{"LongAcrossBlocks",
                                                     "1234567\xC3\xB6"
                                                     "2345678",
                                                     "1234567\xC3\xB6"
                                                     "2345678",
                                                     15}),
                         NameOfRow());

INSTANTIATE_TEST_SUITE_P(
    Windows1252, DecodingTest,
    testing::Values(
        DecodingRow{"LoneHighByte",
                    "Gr\xF6\xDF"
                    "e",
                    "Gr\xC3\xB6\xC3\x9F"
                    "e",
                    5},
        DecodingRow{"EuroSign", "\x80", "\xE2\x82\xAC", 1}, DecodingRow{"Dash", "\x96", "\xE2\x80\x93", 1},
        DecodingRow{"LastOfTheTable", "\x9F", "\xC5\xB8", 1},
        DecodingRow{"OpenPlacesBecomeControls", "\x81\x8D\x8F\x90\x9D", "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D", 5},
        DecodingRow{"NoBreakSpaceAndAbove", "\xA0\xFF", "\xC2\xA0\xC3\xBF", 2},
        DecodingRow{"OneBadByteDecidesForTheWholeText", "\xC3\xB6\xFF", "\xC3\x83\xC2\xB6\xC3\xBF", 3},
        DecodingRow{"OverlongTwoBytes", "\xC0\x80", "\xC3\x80\xE2\x82\xAC", 2},
        DecodingRow{"OverlongThreeBytes", "\xE0\x9F\xBF", "\xC3\xA0\xC5\xB8\xC2\xBF", 3},
        DecodingRow{"OverlongFourBytes", "\xF0\x8F\xBF\xBF", "\xC3\xB0\xC2\x8F\xC2\xBF\xC2\xBF", 4},
        DecodingRow{"Surrogate", "\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC", 3},
        DecodingRow{"BehindTheLastCharacter", "\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC", 4},
        DecodingRow{"HeadWithoutRest", "12345678\xC3", "12345678\xC3\x83", 9},
        DecodingRow{"ContinuationAlone", "\xBF", "\xC2\xBF", 1}),
    NameOfRow());

TEST(KORUnicodeStringTest, NullPointerIsTheEmptyText) {
  const char* const nothing = nullptr;
  EXPECT_TRUE(KORUnicodeString(nothing).IsEmpty());
  EXPECT_TRUE(KORUnicodeString() == nothing);
  EXPECT_FALSE(KORUnicodeString("A") == nothing);
}

TEST(KORUnicodeStringTest, WideCharactersThatAreNoneBecomeReplacements) {
  const std::wstring wide{L'A', static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x110000), L'B'};
  EXPECT_EQ(KORUnicodeString(std::wstring_view(wide)).Bytes(),
            "A\xEF\xBF\xBD\xEF\xBF\xBD"
            "B");
}

TEST(KORUnicodeStringTest, ComparesAndOrders) {
  const KORUnicodeString text("MTM1");
  EXPECT_EQ(text.Compare("MTM1"), 2);
  EXPECT_EQ(text.Compare("mtm1"), 0);
  EXPECT_EQ(text.Compare(""), 0);
  EXPECT_LT(KORUnicodeString("z"), KORUnicodeString("\xC3\xA4"));
  EXPECT_EQ(text + "-" + "X", KORUnicodeString("MTM1-X"));
}

struct SubStringRow {
  const char* Name;
  int Position;
  int Length;
  const char* Part;  // of the digits 0 to 9
  const char* Rest;  // what Remove leaves
};
class SubStringTest : public testing::TestWithParam<SubStringRow> {};

// Ten Greek letters; `places` names them by the digits that stand at the same places in the ASCII text.
KORUnicodeString Greek(const std::string& places) {
  std::wstring letters;
  for (const char place : places) letters += static_cast<wchar_t>(0x3B1 + (place - '0'));
  return KORUnicodeString(std::wstring_view(letters));
}

TEST_P(SubStringTest, CutsAndRemoves) {
  const std::string digits = "0123456789";
  const auto [name, position, length, part, rest] = GetParam();
  EXPECT_EQ(KORUnicodeString(digits.c_str()).SubString(position, length).Bytes(), part);
  EXPECT_EQ(Greek(digits).SubString(position, length), Greek(part));
  KORUnicodeString ascii(digits.c_str());
  ascii.Remove(position, length);
  EXPECT_EQ(ascii.Bytes(), rest);
  KORUnicodeString greek = Greek(digits);
  greek.Remove(position, length);
  EXPECT_EQ(greek, Greek(rest));
}

INSTANTIATE_TEST_SUITE_P(
    Windows, SubStringTest,
    testing::Values(SubStringRow{"Inside", 2, 3, "234", "0156789"}, SubStringRow{"Head", 0, 1, "0", "123456789"},
                    SubStringRow{"Tail", 9, 1, "9", "012345678"}, SubStringRow{"BeyondTheEnd", 8, 5, "89", "01234567"},
                    SubStringRow{"Behind", 10, 1, "", "0123456789"}, SubStringRow{"All", 0, Greatest, "0123456789", ""},
                    SubStringRow{"StartsBefore", -2, 5, "012", "3456789"},
                    SubStringRow{"EndsBefore", -5, 5, "", "0123456789"},
                    SubStringRow{"NoLength", 3, 0, "", "0123456789"},
                    SubStringRow{"NegativeLength", 3, -1, "", "0123456789"},
                    SubStringRow{"GreatestPosition", Greatest, Greatest, "", "0123456789"},
                    SubStringRow{"LeastPosition", Least, Greatest, "", "0123456789"},
                    SubStringRow{"LeastOfBoth", Least, Least, "", "0123456789"}),
    NameOfRow());

struct SearchRow {
  const char* Name;
  const char* Text;
  const char* Wanted;
  int From;
  int Found;
  int FoundBackward;
};
class SearchTest : public testing::TestWithParam<SearchRow> {};

TEST_P(SearchTest, Finds) {
  const KORUnicodeString text(GetParam().Text);
  EXPECT_EQ(text.SearchSubString(GetParam().Wanted, GetParam().From), GetParam().Found);
  EXPECT_EQ(text.SearchSubStringBackward(GetParam().Wanted), GetParam().FoundBackward);
}

INSTANTIATE_TEST_SUITE_P(
    Positions, SearchTest,
    testing::Values(SearchRow{"First", "A1B1C1", "1", 0, 1, 5}, SearchRow{"From", "A1B1C1", "1", 2, 3, 5},
                    SearchRow{"FromItself", "A1B1C1", "1", 3, 3, 5}, SearchRow{"Overlapping", "aaaa", "aa", 1, 1, 2},
                    SearchRow{"Missing", "A1B1C1", "D", 0, -1, -1}, SearchRow{"FromBehind", "A1B1C1", "1", 6, -1, 5},
                    SearchRow{"FromFarBehind", "A1", "1", Greatest, -1, 1},
                    SearchRow{"FromBefore", "A1B1", "A", -3, 0, 0}, SearchRow{"EmptyIsNowhere", "A1", "", 0, -1, -1},
                    SearchRow{"InEmpty", "", "A", 0, -1, -1},
                    SearchRow{"CountsCharacters",
                              "\xC3\xA4\xE2\x82\xAC"
                              "B\xC3\xA4",
                              "B", 0, 2, 2},
                    SearchRow{"FromCountsCharacters",
                              "\xC3\xA4\xE2\x82\xAC"
                              "B\xC3\xA4",
                              "\xC3\xA4", 1, 3, 3}),
    NameOfRow());

struct ReplaceRow {
  const char* Name;
  const char* Text;
  const char* Old;
  const char* New;
  const char* Replaced;
};
class ReplaceTest : public testing::TestWithParam<ReplaceRow> {};

TEST_P(ReplaceTest, ReplacesAll) {
  KORUnicodeString text(GetParam().Text);
  text.ReplaceAll(GetParam().Old, GetParam().New);
  EXPECT_EQ(text.Bytes(), GetParam().Replaced);
}

INSTANTIATE_TEST_SUITE_P(Texts, ReplaceTest,
                         testing::Values(ReplaceRow{"Shorter", "a,,b,,c", ",,", ";", "a;b;c"},
                                         ReplaceRow{"Longer", "1,5", ",", " comma ", "1 comma 5"},
                                         ReplaceRow{"ByNothing", "a b c", " ", "", "abc"},
                                         ReplaceRow{"FromTheLeft", "aaa", "aa", "b", "ba"},
                                         ReplaceRow{"NewHoldsOld", "aa", "a", "aa", "aaaa"},
                                         ReplaceRow{"NothingFound", "abc", "x", "y", "abc"},
                                         ReplaceRow{"EmptyIsNowhere", "abc", "", "y", "abc"},
                                         ReplaceRow{"NotAscii",
                                                    "1\xE2\x82\xAC"
                                                    "2\xE2\x82\xAC",
                                                    "\xE2\x82\xAC", "E", "1E2E"}),
                         NameOfRow());

TEST(KORUnicodeStringTest, ReplacesByItself) {
  KORUnicodeString text("ab");
  text.ReplaceAll(text, text);
  EXPECT_EQ(text.Bytes(), "ab");
}

struct StripRow {
  const char* Name;
  StripPlace Place;
  char Character;
  const char* Text;
  const char* Stripped;
};
class StripTest : public testing::TestWithParam<StripRow> {};

TEST_P(StripTest, Strips) {
  KORUnicodeString text(GetParam().Text);
  text.Strip(GetParam().Place, GetParam().Character);
  EXPECT_EQ(text.Bytes(), GetParam().Stripped);
}

INSTANTIATE_TEST_SUITE_P(Places, StripTest,
                         testing::Values(StripRow{"Leading", StripPlace::Leading, ' ', "  a b  ", "a b  "},
                                         StripRow{"Trailing", StripPlace::Trailing, ' ', "  a b  ", "  a b"},
                                         StripRow{"Both", StripPlace::Both, ' ', "  a b  ", "a b"},
                                         StripRow{"Everywhere", StripPlace::Everywhere, ' ', "  a b  ", "ab"},
                                         StripRow{"OnlyThatCharacter", StripPlace::Both, '0', "0100", "1"},
                                         StripRow{"AllOfIt", StripPlace::Leading, ' ', "   ", ""},
                                         StripRow{"AllOfItBehind", StripPlace::Trailing, ' ', "   ", ""},
                                         StripRow{"Empty", StripPlace::Both, ' ', "", ""},
                                         StripRow{"NoPartOfACharacter", StripPlace::Both, '\xA4', "\xC3\xA4",
                                                  "\xC3\xA4"}),
                         NameOfRow());

struct CaseRow {
  const char* Name;
  const char* Text;
  const char* Upper;
  const char* Lower;
};
class CaseTest : public testing::TestWithParam<CaseRow> {};

TEST_P(CaseTest, MapsLetters) {
  KORUnicodeString upper(GetParam().Text);
  upper.ToUpper();
  EXPECT_EQ(upper.Bytes(), GetParam().Upper);
  KORUnicodeString lower(GetParam().Text);
  lower.ToLower();
  EXPECT_EQ(lower.Bytes(), GetParam().Lower);
}

// One character for each character, by the tables of Unicode; the sharp s has a capital of its own.
INSTANTIATE_TEST_SUITE_P(Letters, CaseTest,
                         testing::Values(CaseRow{"Ascii", "r45B-x[`{@", "R45B-X[`{@", "r45b-x[`{@"},
                                         CaseRow{"Umlaut",
                                                 "Gr\xC3\xB6\xC3\x9F"
                                                 "e",
                                                 "GR\xC3\x96\xE1\xBA\x9E"
                                                 "E",
                                                 "gr\xC3\xB6\xC3\x9F"
                                                 "e"},
                                         CaseRow{"Greek", "\xCE\xA3\xCF\x83", "\xCE\xA3\xCE\xA3", "\xCF\x83\xCF\x83"},
                                         CaseRow{"Cyrillic", "\xD0\x96\xD0\xB6", "\xD0\x96\xD0\x96",
                                                 "\xD0\xB6\xD0\xB6"},
                                         CaseRow{"OtherLength", "\xC8\xBA", "\xC8\xBA", "\xE2\xB1\xA5"},
                                         CaseRow{"NoLetters",
                                                 "\xE2\x82\xAC"
                                                 "12",
                                                 "\xE2\x82\xAC"
                                                 "12",
                                                 "\xE2\x82\xAC"
                                                 "12"}),
                         NameOfRow());

TEST(KORUnicodeStringTest, ReadsNumbersByFormat) {
  int whole = 7;
  EXPECT_EQ(KORUnicodeString(" 12x").ConvertToNum(whole), S_OK);
  EXPECT_EQ(whole, 12);
  EXPECT_EQ(KORUnicodeString("0x1F").ConvertToNum(whole, "%x"), S_OK);
  EXPECT_EQ(whole, 31);
  double real = 7.0;
  EXPECT_EQ(KORUnicodeString("2.5e1 TMU").ConvertToNum(real), S_OK);
  EXPECT_EQ(real, 25.0);
}

TEST(KORUnicodeStringTest, LeavesTheNumberAloneOnFailure) {
  int whole = 7;
  double real = 7.0;
  for (const char* format : {"%d", "%x"}) EXPECT_EQ(KORUnicodeString("z").ConvertToNum(whole, format), E_FAIL);
  EXPECT_EQ(KORUnicodeString("z").ConvertToNum(real), E_FAIL);
  EXPECT_EQ(KORUnicodeString("1").ConvertToNum(whole, "%i"), E_FAIL);
  EXPECT_EQ(KORUnicodeString("1").ConvertToNum(whole, nullptr), E_FAIL);
  EXPECT_EQ(KORUnicodeString("1").ConvertToNum(real, "%f"), E_FAIL);
  EXPECT_EQ(KORUnicodeString("1").ConvertToNum(real, nullptr), E_FAIL);
  EXPECT_EQ(whole, 7);
  EXPECT_EQ(real, 7.0);
}

TEST(KORUnicodeStringTest, PrintsNumbers) {
  EXPECT_EQ(KORUnicodeString::FromInteger(-12).Bytes(), "-12");
  EXPECT_EQ(KORUnicodeString::FromReal(1234567.0).Bytes(), "1.23457e+06");
}

// Positions and cuts against a list of characters, on random texts of characters of all lengths.
TEST(KORUnicodeStringTest, AgreesWithAListOfCharacters) {
  std::mt19937 random(20240131);
  const std::wstring letters = L"ab\u00E4\u20AC\U0001F600";
  const auto draw = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
  for (int round = 0; round < 20000; ++round) {
    std::wstring wide;
    for (int length = draw(40); length > 0; --length) wide += letters[static_cast<std::size_t>(draw(4))];
    const KORUnicodeString text{std::wstring_view(wide)};
    const auto position = static_cast<std::size_t>(draw(static_cast<int>(wide.size())));
    const auto length = static_cast<std::size_t>(draw(5));
    const std::wstring part = wide.substr(position, length);
    const KORUnicodeString cut = text.SubString(static_cast<int>(position), static_cast<int>(length));
    ASSERT_EQ(cut.ConvertToWideChar(), part);
    ASSERT_EQ(text.GetLengthInChar(), static_cast<int>(wide.size()));
    if (part.empty()) continue;
    const auto from = static_cast<std::size_t>(draw(static_cast<int>(wide.size())));
    ASSERT_EQ(text.SearchSubString(cut, static_cast<int>(from)), static_cast<int>(wide.find(part, from)));
    ASSERT_EQ(text.SearchSubStringBackward(cut), static_cast<int>(wide.rfind(part)));
  }
}

}  // namespace
