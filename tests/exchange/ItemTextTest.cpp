// Texts of the exchange are cut into items, fields and names.
#include "exchange/ItemText.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/RandomText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::Text;
using support::Texts;
using support::Unicode;

std::vector<std::string> Explode(const std::string& separator, const std::string& text) {
  return Texts(exchange::Explode(Unicode(separator), Unicode(text)));
}

// Cutting a text

struct CutRow {
  const char* name;
  const char* separator;
  const char* text;
  std::vector<std::string> fields;
};

class ExplodeTest : public testing::TestWithParam<CutRow> {};

TEST_P(ExplodeTest, GivesTheFields) {
  EXPECT_EQ(Explode(GetParam().separator, GetParam().text), GetParam().fields);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, ExplodeTest,
    testing::Values(
        CutRow{"TextWithoutSeparatorIsOneField", ":", "a", {"a"}}, CutRow{"EmptyTextHasNoField", ":", "", {}},
        CutRow{"SeparatorAloneStandsBetweenTwoEmptyFields", ":", ":", {"", ""}},
        CutRow{"TwoSeparatorsAlone", ":", "::", {"", "", ""}},
        CutRow{"SeparatorAtTheEndGivesALastEmptyField", ":", "a:b:", {"a", "b", ""}},
        CutRow{"SeparatorAtTheHeadGivesAFirstEmptyField", ":", ":a", {"", "a"}},
        CutRow{"EmptyFieldBetween", ":", "a::b", {"a", "", "b"}},
        CutRow{"BlankIsAField", ":", "a: :b", {"a", " ", "b"}},
        CutRow{"OtherSeparatorIsText", "|", "a:b|c:d", {"a:b", "c:d"}},
        CutRow{"LineFeedIsText", "|", "a\n|b\n", {"a\n", "b\n"}},
        CutRow{"LettersBeyondAscii", ":", "Größe:Maß:€", {"Größe", "Maß", "€"}},
        CutRow{"AttributeWithEmptyValue", ":", "AttributeData:wdstart:8:", {"AttributeData", "wdstart", "8", ""}},
        CutRow{"Cell", ":", "LineData:et_linedata:7:4:8:TTB", {"LineData", "et_linedata", "7", "4", "8", "TTB"}},
        CutRow{"NamesOfAnAttribute", "|", "V_TimeType|TimeType", {"V_TimeType", "TimeType"}}),
    support::RowName());

// The whole separator is looked for; one character of it goes.
INSTANTIATE_TEST_SUITE_P(OddSeparators, ExplodeTest,
                         testing::Values(CutRow{"OneCharacterOfTwoGoes", "::", "a::b", {"a", ":b"}},
                                         CutRow{"WhatStaysMayBeASeparatorAgain", "::", "a:::b", {"a", "", ":b"}},
                                         CutRow{"OneCharacterOfTwoGoesAtTheEnd", "::", "a::", {"a", ":"}},
                                         CutRow{"HalfASeparatorIsNone", "::", "a:b", {"a:b"}},
                                         CutRow{"ThreeDifferentCharacters", "xyz", "axyzb", {"a", "yzb"}},
                                         CutRow{"CharacterOfTwoBytes", "ß", "aßb", {"a", "b"}},
                                         CutRow{"CharacterOfTwoBytesAheadOfAnother", "ßx", "aßxb", {"a", "xb"}},
                                         CutRow{"SecondCharacterOfTwoBytes", "xß", "axßb", {"a", "ßb"}},
                                         CutRow{"EmptySeparatorIsNowhere", "", "a:b", {"a:b"}},
                                         CutRow{"EmptySeparatorOfAnEmptyText", "", "", {}}),
                         support::RowName());

TEST(ExplodeLengthTest, CutsAMillionFields) {
  const KORListValKORUnicodeString fields = exchange::Explode(":", Unicode(std::string(1'000'000, ':')));
  EXPECT_EQ(fields.Size(), 1'000'001);
  EXPECT_EQ(fields.Locate("", 1'000'001), 1'000'001);
}

TEST(ExplodeLengthTest, KeepsAFieldOfAMillionCharacters) {
  const std::string field(1'000'000, 'a');
  EXPECT_EQ(Explode(":", field + ":" + field), (std::vector<std::string>{field, field}));
}

// The rule of the cut, step by step: up to the separator, one character more away, and again.
std::vector<std::string> ExplodeByTheRule(const KORUnicodeString& separator, KORUnicodeString text) {
  std::vector<std::string> fields;
  if (text.IsEmpty()) return fields;
  for (int place = text.SearchSubString(separator); place >= 0; place = text.SearchSubString(separator)) {
    fields.push_back(Text(text.SubString(0, place)));
    text.Remove(0, place + 1);
  }
  fields.push_back(Text(text));
  return fields;
}

constexpr std::array<const char*, 9> Pieces{":", ":", "|", "::", "a", "LineData", " ", "ß", "\n"};

TEST(ExplodePropertyTest, FollowsTheRuleOnDrawnTexts) {
  support::RandomText random(20'260);
  for (int round = 0; round < 4'000; ++round) {
    const std::string separator = random.Draw(Pieces, 2);
    const std::string text = random.Draw(Pieces, 20);
    ASSERT_EQ(Explode(separator, text), ExplodeByTheRule(Unicode(separator), Unicode(text)))
        << "separator <" << separator << ">, text <" << text << ">";
  }
}

// Field by field

std::vector<std::string> CutOneByOne(char separator, std::string_view text) {
  std::vector<std::string> fields;
  exchange::FieldCutter cutter(separator, text);
  for (auto field = cutter.Next(); field; field = cutter.Next()) fields.emplace_back(*field);
  return fields;
}

TEST(FieldCutterTest, GivesTheFieldsOfExplode) {
  support::RandomText random(7'341);
  for (int round = 0; round < 4'000; ++round) {
    const std::string text = random.Draw(Pieces, 20);
    ASSERT_EQ(CutOneByOne(':', text), Explode(":", text)) << "text <" << text << ">";
    ASSERT_EQ(CutOneByOne('|', text), Explode("|", text)) << "text <" << text << ">";
  }
}

TEST(FieldCutterTest, GivesNothingBehindTheLastField) {
  for (const char* const text : {"", "a", ":", "a:b:"}) {
    exchange::FieldCutter cutter(':', text);
    while (cutter.Next()) {
    }
    EXPECT_FALSE(cutter.Next()) << "text <" << text << ">";
  }
}

// Items

TEST(ItemTest, HasTheFirstSixFieldsOfExplode) {
  support::RandomText random(911);
  for (int round = 0; round < 4'000; ++round) {
    const std::string text = random.Draw(Pieces, 12);
    const std::vector<std::string> fields = Explode(":", text);
    const exchange::Item item(text);
    for (std::size_t position = 1; position <= 6; ++position) {
      const bool has_field = fields.size() >= position;
      ASSERT_EQ(item.HasFields(position), has_field) << "text <" << text << ">, field " << position;
      ASSERT_EQ(item.Field(position), has_field ? fields[position - 1] : "")
          << "text <" << text << ">, field " << position;
    }
  }
}

struct KindRow {
  const char* name;
  const char* text;
  const char* kind;
};

class ItemKindTest : public testing::TestWithParam<KindRow> {};

TEST_P(ItemKindTest, IsTheFirstField) {
  EXPECT_EQ(exchange::Item(GetParam().text).Kind(), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ItemKindTest,
                         testing::Values(KindRow{"Attribute", "AttributeData:name:8:A", "AttributeData"},
                                         KindRow{"Cell", "LineData:et_linedata:1:0:8:A", "LineData"},
                                         KindRow{"OneField", "Save", "Save"}, KindRow{"NoField", "", ""},
                                         KindRow{"EmptyFirstField", ":LineData", ""},
                                         KindRow{"BlankAhead", " LineData:x", " LineData"},
                                         KindRow{"MoreThanSixFields", "a:b:c:d:e:f:g:h", "a"}),
                         support::RowName());

}  // namespace
