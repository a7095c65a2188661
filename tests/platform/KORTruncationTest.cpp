// Real numbers cut to integers.
#include "platform/base/KORTruncation.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/platform/NamedRow.h"

namespace {

constexpr std::int32_t Least32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Greatest32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t Least64 = std::numeric_limits<std::int64_t>::min();

struct TruncationRow {
  const char* Name;
  double Value;
  std::int32_t Cut32;
  std::int64_t Cut64;
};
class TruncationTest : public testing::TestWithParam<TruncationRow> {};

TEST_P(TruncationTest, CutsTowardZero) {
  EXPECT_EQ(kornumber::TruncateToInt32(GetParam().Value), GetParam().Cut32);
  EXPECT_EQ(kornumber::TruncateToInt64(GetParam().Value), GetParam().Cut64);
}

INSTANTIATE_TEST_SUITE_P(
    Values, TruncationTest,
    testing::Values(TruncationRow{"Zero", -0.0, 0, 0}, TruncationRow{"Up", 2.9, 2, 2},
                    TruncationRow{"Down", -2.9, -2, -2},
                    TruncationRow{"Greatest32", 2147483647.5, Greatest32, 2147483647},
                    TruncationRow{"Above32", 2147483648.0, Least32, 2147483648},
                    TruncationRow{"Least32", -2147483648.0, Least32, -2147483648LL},
                    TruncationRow{"LeastWithFraction", -2147483648.9, Least32, -2147483648LL},
                    TruncationRow{"Below32", -2147483649.0, Least32, -2147483649LL},
                    TruncationRow{"Greatest64", 9223372036854774784.0, Least32, 9223372036854774784},
                    TruncationRow{"Above64", 9223372036854775808.0, Least32, Least64},
                    TruncationRow{"Least64", -9223372036854775808.0, Least32, Least64},
                    TruncationRow{"Below64", -9223372036854777856.0, Least32, Least64},
                    TruncationRow{"Infinity", std::numeric_limits<double>::infinity(), Least32, Least64},
                    TruncationRow{"NegativeInfinity", -std::numeric_limits<double>::infinity(), Least32, Least64},
                    TruncationRow{"Nan", std::numeric_limits<double>::quiet_NaN(), Least32, Least64}),
    platformtest::NameOfRow());

}  // namespace
