// Values as text.
#include "platform/model/KORValueText.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/base/KORNumberText.h"
#include "tests/model/ModelTest.h"

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

struct ValueTextRow {
  const char* Name;
  KORKeyedValues::View Held;
  const char* Digits;
  const char* Words;
};

void PrintTo(const ValueTextRow& row, std::ostream* out) {
  *out << row.Name;
}

class KORValueTextTest : public testing::TestWithParam<ValueTextRow> {};

TEST_P(KORValueTextTest, IsTheTextOfTheValue) {
  EXPECT_EQ(KORTextOfValue(GetParam().Held, KORBooleanDigits), GetParam().Digits);
  EXPECT_EQ(KORTextOfValue(GetParam().Held, KORBooleanWords), GetParam().Words);
}

INSTANTIATE_TEST_SUITE_P(
    Values, KORValueTextTest,
    testing::Values(ValueTextRow{"Text", std::string_view("R40A"), "R40A", "R40A"},
                    ValueTextRow{"EmptyText", std::string_view(), "", ""},
                    ValueTextRow{"True", static_cast<unsigned char>(1), "1", "TRUE"},
                    ValueTextRow{"AnyOtherTruth", static_cast<unsigned char>(200), "1", "TRUE"},
                    ValueTextRow{"False", static_cast<unsigned char>(0), "0", "FALSE"},
                    ValueTextRow{"Integer", -12, "-12", "-12"},
                    ValueTextRow{"LeastInteger", std::numeric_limits<int>::min(), "-2147483648", "-2147483648"},
                    ValueTextRow{"Real", 0.1, "0.1", "0.1"}, ValueTextRow{"MissingTime", -0.036, "-0.036", "-0.036"},
                    ValueTextRow{"Third", 1.0 / 3.0, "0.3333333333333333", "0.3333333333333333"},
                    ValueTextRow{"Infinity", -Infinity, "-inf", "-inf"},
                    ValueTextRow{"NullObject", KORBaseUnknown_var(), "", ""}),
    modeltest::NameOfRow());

TEST(KORValueTextTest, RealsReadBackBitForBit) {
  for (const double real : {0.0, -0.0, 0.1 + 0.2, 1e-320, 5e-324, 1.7976931348623157e308, Infinity, -Infinity, 1e22}) {
    const KORUnicodeString text = KORTextOfValue(real, KORBooleanDigits);
    const std::optional<double> read = kornumber::ReadWholeReal(text.Bytes());
    ASSERT_TRUE(read.has_value()) << text.ConvertToChar();
    EXPECT_EQ(std::bit_cast<std::uint64_t>(*read), std::bit_cast<std::uint64_t>(real)) << text.ConvertToChar();
  }
}

TEST(KORValueTextTest, AnalysisIsItsIdentifier) {
  const modeltest::Analysis_var analysis = modeltest::NewAnalysis("TA-7");
  EXPECT_EQ(KORTextOfValue(KORBaseUnknown_var(analysis), KORBooleanDigits), "TA-7");
}

TEST(KORValueTextTest, OtherObjectIsTheEmptyText) {
  EXPECT_EQ(KORTextOfValue(KORBaseUnknown_var::Adopt(new KORBaseUnknown), KORBooleanDigits), "");
}

}  // namespace
