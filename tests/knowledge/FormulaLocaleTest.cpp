// Numbers in bodies have a "." in every locale, when a body is compiled as well as when it runs.
#include "tests/formula/ScopedLocale.h"
#include "tests/knowledge/KnowledgeTest.h"

namespace knowledgetest {
namespace {

using formulatest::ScopedLocale;
using formulatest::ScopedProcessLocale;

struct LocaleCase {
  const char* Name;
  const char* Body;  // with a text as its value
  const char* Value;
};

class FormulaLocaleTest : public testing::TestWithParam<LocaleCase> {
 protected:
  // The text ahead makes a formula that no other test has compiled.
  static std::string Value(const char* ahead) { return TextOf(std::string(ahead) + GetParam().Body); }
};

TEST_P(FormulaLocaleTest, InTheCLocale) {
  EXPECT_EQ(Value(""), GetParam().Value);
}

TEST_P(FormulaLocaleTest, WithADecimalCommaOnTheThread) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  EXPECT_EQ(Value("--[[ thread ]] "), GetParam().Value);
  EXPECT_TRUE(locale.IsInForce()) << "the thread's locale stays";
}

TEST_P(FormulaLocaleTest, WithADecimalCommaInTheProcess) {
  const ScopedProcessLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  EXPECT_EQ(Value("--[[ process ]] "), GetParam().Value);
  EXPECT_TRUE(locale.IsInForce());
}

TEST_P(FormulaLocaleTest, CompiledInOneLocaleAndRunInAnother) {
  Formula formula("out Value : String", std::string("--[[ both ]] ") + GetParam().Body, {T("")});
  const ScopedLocale locale(LATIN1_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << LATIN1_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  EXPECT_EQ(formula.Run(), S_OK);
  EXPECT_EQ(formula.Values(), GetParam().Value);
}

INSTANTIATE_TEST_SUITE_P(Rows, FormulaLocaleTest,
                         testing::Values(LocaleCase{"Literal", "1.5 .. ''", "1.5"},
                                         LocaleCase{"Sum", "1.5 + 2.25 .. ''", "3.75"},
                                         LocaleCase{"Exponent", "1.5e3 .. ''", "1500.0"},
                                         LocaleCase{"ToText", "tostring(0.5)", "0.5"},
                                         LocaleCase{"ToNumber", "tonumber('2.5') .. ''", "2.5"},
                                         LocaleCase{"CommaIsNoNumber", "tostring(tonumber('2,5'))", "nil"},
                                         LocaleCase{"OrderOfTexts", "tostring('Z' < 'a')", "true"}),
                         RowName());

TEST(FormulaLocaleValueTest, TextsOfValuesHaveAPoint) {
  const ScopedLocale locale(COMMA_LOCALE);
  ASSERT_TRUE(locale.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  EXPECT_EQ(Outcome("x : Real, out a : Real", "x * 0.5", {R(2.5), R(0)}), "2.5 1.25");
}

}  // namespace
}  // namespace knowledgetest
