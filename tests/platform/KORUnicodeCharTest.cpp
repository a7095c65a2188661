// Classes of characters.
#include "platform/base/KORUnicodeChar.h"

#include <gtest/gtest.h>

#include "tests/platform/NamedRow.h"

namespace {

struct ClassRow {
  const char* Name;
  char32_t Character;
  bool IsAlpha;
  bool IsDigit;
};
class CharacterClassTest : public testing::TestWithParam<ClassRow> {};

TEST_P(CharacterClassTest, Classifies) {
  EXPECT_EQ(KORUnicodeChar::IsAlpha(GetParam().Character), GetParam().IsAlpha);
  EXPECT_EQ(KORUnicodeChar::IsDigit(GetParam().Character), GetParam().IsDigit);
}

// General categories are those of the Unicode character database.
INSTANTIATE_TEST_SUITE_P(
    Characters, CharacterClassTest,
    testing::Values(ClassRow{"Nul", 0, false, false}, ClassRow{"BeforeDigits", '/', false, false},
                    ClassRow{"Zero", '0', false, true}, ClassRow{"Nine", '9', false, true},
                    ClassRow{"BehindDigits", ':', false, false}, ClassRow{"BeforeCapitals", '@', false, false},
                    ClassRow{"FirstCapital", 'A', true, false}, ClassRow{"LastCapital", 'Z', true, false},
                    ClassRow{"BehindCapitals", '[', false, false}, ClassRow{"BeforeSmall", '`', false, false},
                    ClassRow{"FirstSmall", 'a', true, false}, ClassRow{"LastSmall", 'z', true, false},
                    ClassRow{"BehindSmall", '{', false, false}, ClassRow{"Umlaut", 0xE4, true, false},
                    ClassRow{"MultiplicationSign", 0xD7, false, false}, ClassRow{"OrdinalIndicator", 0xAA, true, false},
                    ClassRow{"TitleCase", 0x1C5, true, false}, ClassRow{"Modifier", 0x2B0, true, false},
                    ClassRow{"ArabicDigit", 0x661, false, false}, ClassRow{"Ideograph", 0x4E2D, true, false},
                    ClassRow{"CombiningMark", 0x301, false, false}, ClassRow{"BeyondUnicode", 0x110000, false, false},
                    ClassRow{"Greatest", 0xFFFFFFFF, false, false}),
    platformtest::NameOfRow());

}  // namespace
