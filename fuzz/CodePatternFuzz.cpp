// The matcher of code patterns against the plain recursive walk.
// Input: a byte for the system, odd for chains of parts, then the pattern, a tab, and the code.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "fuzz/FuzzSupport.h"
#include "tests/oracle/CodePatternOracle.h"

namespace {

// The plain walk recurses once for each group and copies the rest of the code each time.
constexpr std::ptrdiff_t MostGroups = 300;
constexpr std::size_t LongestPattern = 2000;

void CompareCheck(VEXSTMTimeAnalysisDlgServices& services, const KORUnicodeString& pattern,
                  const KORUnicodeString& code) {
  int count = -1;
  std::vector<double> values(pattern.Bytes().size() + 1);
  std::vector<int> flags(pattern.Bytes().size() + 1);
  const bool matched = services.CheckDataCardCodePattern(code, pattern, count, values.data(), flags.data()) == 1;
  int expected_count = -1;
  std::vector<double> expected_values;
  std::vector<int> expected_flags;
  const bool expected = oracle::CheckPattern(services.GetSubsystem().ConvertToChar(), code.ConvertToChar(),
                                             pattern.ConvertToChar(), expected_count, expected_values, expected_flags);
  fuzz::RequireSame(expected, matched, "match");
  fuzz::RequireSame(expected_count, count, "count");
  for (std::size_t token = 0; token < expected_values.size(); ++token) {
    fuzz::RequireSameNumber(expected_values[token], values[token], "value");
    fuzz::RequireSame(expected_flags[token], flags[token], "flag");
  }
}

void CompareLevel(VEXSTMTimeAnalysisDlgServices& services, const KORUnicodeString& pattern,
                  const KORUnicodeString& code) {
  VEXSTMDataCardCodeScan* made = nullptr;
  (void)services.CreateCodeScanPattern(pattern, made);
  const std::unique_ptr<VEXSTMDataCardCodeScan[]> tokens(made);
  int consumed = 0;
  const VEXSTMDataCardCodeScan* stop = services.GetDataCardCodeScan(code.ConvertToChar(), tokens.get(), consumed);
  std::vector<oracle::Token> expected = oracle::CompilePattern(pattern.ConvertToChar());
  int expected_consumed = 0;
  const int expected_stop = oracle::GetCodeScan(services.GetSubsystem().ConvertToChar(), code.ConvertToChar(), expected,
                                                0, expected_consumed);
  fuzz::RequireSame(expected_stop, stop == nullptr ? -1 : static_cast<int>(stop - tokens.get()), "stop");
  if (expected_stop >= 0) fuzz::RequireSame(expected_consumed, consumed, "consumed");
  for (std::size_t token = 0; token < expected.size(); ++token) {
    fuzz::RequireSame(expected[token].Type, tokens[token]._Type, "type");
    fuzz::RequireSame(expected[token].Min, tokens[token]._Min, "lower bound");
    fuzz::RequireSame(expected[token].Max, tokens[token]._Max, "upper bound");
    fuzz::RequireSame(expected[token].Matched, tokens[token]._Matched != 0, "mark");
    fuzz::RequireSame(expected[token].IntValue, tokens[token]._IntValue, "integer");
    fuzz::RequireSameNumber(expected[token].RealValue, tokens[token]._RealValue, "real");
    fuzz::RequireSame(expected[token].Text, std::string(tokens[token]._Text.Bytes()), "text");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const bool chained = data[0] % 2 == 1;
  const std::string input = fuzz::CText(fuzz::BytesOf(data + 1, size - 1));
  std::string_view rest = input;
  const KORUnicodeString pattern(fuzz::TakeText(rest, '\t'));
  const KORUnicodeString code(rest);
  if (pattern.Bytes().size() > LongestPattern || std::ranges::count(pattern.Bytes(), '(') > MostGroups) return 0;
  VEXSTMTimeAnalysisDlgServices services;
  KORUnicodeString unused;
  services.GetDCEXMLFilePath(chained ? "SAM" : "STD", unused);
  CompareCheck(services, pattern, code);
  CompareLevel(services, pattern, code);
  return 0;
}
