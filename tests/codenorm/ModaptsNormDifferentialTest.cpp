// Random MODAPTS texts: the conversion against the plain state machine.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "tests/oracle/ModaptsNormOracle.h"
#include "tests/support/RandomText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::RandomText;
using support::Text;
using support::Unicode;
using namespace std::string_view_literals;

// The machine's alphabet, with the texts that people type more often than others.
constexpr std::array Pieces{"M4"sv,      "G1"sv, "P0"sv,          "B17"sv, "M"sv, "(M3P0)"sv, " 3("sv, "("sv,
                            ")"sv,       " "sv,  "3"sv,           "20"sv,  "*"sv, "/"sv,      "0"sv,   "2*3("sv,
                            " 59/20 "sv, "7"sv,  "99999999999"sv, ") "sv,  "m"sv, "(("sv};
constexpr std::array Strangers{"."sv, "+"sv, "-"sv, ","sv, "\n"sv, "["sv};

class ModaptsNormDifferentialTest : public support::ServiceTest {
 protected:
  VEXSTMTimeAnalysisDlgServices _Services;
};

TEST_F(ModaptsNormDifferentialTest, AgreesWithThePlainMachine) {
  RandomText random(61);
  support::Select(_Services, "MODAPTS");
  const auto evaluate = [this](const std::string& formula) {
    int status = 0;
    return _Services.GetTimeFromFormula(Unicode(formula), status);
  };
  int read = 0;
  for (int round = 0; round < 150000; ++round) {
    std::string norm = random.Draw(Pieces, 9);
    if (random.OneIn(25))
      norm.insert(static_cast<std::size_t>(random.Below(static_cast<int>(norm.size()) + 1)), random.AnyOf(Strangers));
    const std::string expected = oracle::GetModaptsCode(norm, evaluate);
    ASSERT_EQ(Text(_Services.GetMODAPTSCodeFromNormFormatService(Unicode(norm))), expected) << "norm <" << norm << ">";
    if (expected != "0" && expected != norm) ++read;
  }
  // The texts are worth something only if many of them can be read.
  EXPECT_GT(read, 40000);
}

}  // namespace
