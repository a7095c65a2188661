// Random MOST texts: the conversions against the plain ones, and there and back again.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "tests/oracle/MostNormOracle.h"
#include "tests/support/RandomText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::RandomText;
using support::Text;
using support::Unicode;
using namespace std::string_view_literals;

constexpr std::array Pieces{"A"sv, "A1"sv,   "B0"sv,  "G1"sv, "P3"sv, "X16"sv, "("sv,   ")"sv,
                            "-"sv, "-1"sv,   "-3"sv,  " "sv,  "1"sv,  "3"sv,   "-1 "sv, "-3 "sv,
                            "."sv, "-2.5"sv, "A1-"sv, "a"sv,  ")("sv, "-1)"sv};
constexpr std::array Frequencies{"1"sv, "3"sv, ""sv, "2.5"sv, "2*3"sv, "0"sv, "x"sv, "1.0"sv, "3 "sv, "10/4"sv};

class MostNormDifferentialTest : public support::ServiceTest {
 protected:
  double Evaluate(const std::string& formula) {
    int status = 0;
    return _Services.GetTimeFromFormula(Unicode(formula), status);
  }

  // A text that begins as a sequence does, most of the time.
  std::string Draw(RandomText& random) {
    const std::string text = random.Draw(Pieces, 14);
    if (random.OneIn(10)) return text;
    return (random.OneIn(4) ? "(A1" : "A1") + text;
  }

  VEXSTMTimeAnalysisDlgServices _Services;
};

TEST_F(MostNormDifferentialTest, CodeFormToNormFormat) {
  RandomText random(51);
  const auto evaluate = [this](const std::string& formula) { return Evaluate(formula); };
  for (int round = 0; round < 100000; ++round) {
    const std::string code = Draw(random);
    const std::string frequency(random.AnyOf(Frequencies));
    ASSERT_EQ(Text(_Services.ConvertToMOSTNormFormatService(Unicode(code), Unicode(frequency))),
              oracle::ConvertToMostNorm(code, frequency, evaluate))
        << "code <" << code << "> frequency <" << frequency << ">";
    std::vector<bool> expected_flags;
    KORListValKORBoolean flags;
    for (int left = random.Below(10); left > 0; --left) {
      expected_flags.push_back(random.OneIn(2));
      flags.Append(expected_flags.back() ? KORBoolean{1} : KORBoolean{0});
    }
    ASSERT_EQ(Text(_Services.ConvertToMOSTNormFormatService(Unicode(code), Unicode(frequency), flags)),
              oracle::ConvertToMostNorm(code, frequency, expected_flags, evaluate))
        << "code <" << code << "> frequency <" << frequency << "> flags " << testing::PrintToString(expected_flags);
  }
}

TEST_F(MostNormDifferentialTest, NormFormatToCodeForm) {
  RandomText random(52);
  for (int round = 0; round < 100000; ++round) {
    const std::string norm = Draw(random);
    const std::string frequency(random.AnyOf(Frequencies));
    ASSERT_EQ(Text(_Services.GetMOSTCodeFromNormFormatService(Unicode(norm), Unicode(frequency))),
              oracle::GetMostCodeFromNorm(norm, frequency))
        << "norm <" << norm << "> frequency <" << frequency << ">";
  }
}

TEST_F(MostNormDifferentialTest, TestForASequence) {
  RandomText random(53);
  for (int round = 0; round < 100000; ++round) {
    const std::string code = random.Draw(Pieces, 5);
    ASSERT_EQ(_Services.IsSequentialCode(Unicode(code)) == 1, oracle::IsSequentialCode(code)) << code;
  }
}

// Parameters of one letter and digits, brackets that hold something and stand apart, a frequency other than 1 that is
// written as it prints: such texts come back from the other form.
class MostRoundTripTest : public support::ServiceTest {
 protected:
  void Draw(RandomText& random) {
    static constexpr std::array Frequency{"3"sv, "2.5"sv, "12"sv, "0.5"sv};
    static constexpr std::array Letters{"A"sv, "B"sv, "G"sv, "P"sv, "M"sv, "X"sv, "I"sv};
    static constexpr std::array Indexes{"0"sv, "1"sv, "3"sv, "16"sv, "330"sv};
    _Frequency = random.AnyOf(Frequency);
    _Norm.clear();
    _Code.clear();
    bool bracketed = false;
    const int length = random.Below(9) + 1;
    for (int parameter = 0; parameter < length; ++parameter) {
      const bool before = bracketed;
      bracketed = random.OneIn(2);
      if (bracketed && !before) _Norm += '(';
      if (!bracketed && before) _Norm += ')';
      const std::string letter(parameter == 0 ? "A"sv : random.AnyOf(Letters));
      const std::string name = letter + std::string(random.AnyOf(Indexes));
      _Norm += name;
      _Code += (parameter == 0 ? "" : " ") + name + "-" + (bracketed ? _Frequency : "1");
    }
    // A bracket at the end leaves a blank behind the code.
    if (bracketed) {
      _Norm += ')';
      _Code += ' ';
    }
  }

  VEXSTMTimeAnalysisDlgServices _Services;
  std::string _Frequency;
  std::string _Norm;
  std::string _Code;
};

TEST_F(MostRoundTripTest, BothFormsComeBack) {
  RandomText random(54);
  for (int round = 0; round < 20000; ++round) {
    Draw(random);
    const KORUnicodeString frequency = Unicode(_Frequency);
    const KORUnicodeString code = _Services.GetMOSTCodeFromNormFormatService(Unicode(_Norm), frequency);
    ASSERT_EQ(Text(code), _Code) << _Norm << " frequency " << _Frequency;
    const KORUnicodeString norm = _Services.ConvertToMOSTNormFormatService(code, frequency);
    ASSERT_EQ(Text(norm), _Norm) << _Code << " frequency " << _Frequency;
  }
}

}  // namespace
