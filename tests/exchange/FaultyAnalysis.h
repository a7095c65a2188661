// An analysis whose operations fail now and then, in every way in which an operation can: with nothing done, with
// everything done, with half of it, with a success that is not S_OK.
#pragma once

#include <utility>

#include "tests/calculation/AnalysisShell.h"
#include "tests/support/RandomText.h"

namespace exchangetest {

/// Two of the same seed fail alike, call by call.
class FaultyAnalysis : public calculationtest::AnalysisShell {
 public:
  /// Every operation fails once in `one_in` times.
  FaultyAnalysis(support::TimeAnalysis_var inside, unsigned seed, int one_in)
      : AnalysisShell(std::move(inside)), _Random(seed), _OneIn(one_in) {}

  long SetValue(const KORString& key, unsigned char value) override { return SetOrFail(key, value); }
  long SetValue(const KORString& key, double value) override { return SetOrFail(key, value); }
  long SetValue(const KORString& key, int value) override { return SetOrFail(key, value); }
  long SetValue(const KORString& key, const KORUnicodeString& value) override { return SetOrFail(key, value); }

  long GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override {
    return Pass([&] { return AnalysisShell::GetAllValues(names, values); });
  }

  long GetLine(int row, VEXTimeAnalysisLineData& line) override {
    return Pass([&] { return AnalysisShell::GetLine(row, line); });
  }

  long SetLine(int row, VEXTimeAnalysisLineData& line) override {
    return Pass([&] { return AnalysisShell::SetLine(row, line); });
  }

  long RemoveAllLines() override {
    return Pass([&] { return AnalysisShell::RemoveAllLines(); });
  }

  // Besides: a count that is none, and one of more rows than there are.
  long GetLineCount(int& count) override {
    const long status = Pass([&] { return AnalysisShell::GetLineCount(count); });
    if (_Random.OneIn(_OneIn)) count = _Random.Below(2) * -3;
    if (_Random.OneIn(_OneIn)) count += 2;
    return status;
  }

  // Besides: another text for a reused analysis than its identifier, and names without a value behind those that have
  // one.
  long GetLineAttributes(int row, KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override {
    const long status = Pass([&] { return AnalysisShell::GetLineAttributes(row, names, values); });
    for (int position = 1; position <= values.Size(); ++position) {
      if (names[position] == "TimeAnalysis" && _Random.OneIn(2)) values[position] = "a reused analysis";
    }
    if (_Random.OneIn(_OneIn)) names.Append("Code");
    return status;
  }

 private:
  template <class Value>
  long SetOrFail(const KORString& key, const Value& value) {
    return Pass([&] { return AnalysisShell::SetValue(key, value); });
  }

  template <class Operation>
  long Pass(const Operation& operation) {
    if (!_Random.OneIn(_OneIn)) return operation();
    switch (_Random.Below(6)) {
      case 0:
        return E_FAIL;
      case 1:
        return E_NOINTERFACE;
      case 2:
        return S_OK;
      case 3:
        (void)operation();
        return E_FAIL;
      case 4:
        (void)operation();
        return S_FALSE;
      default:
        (void)operation();
        return 42;
    }
  }

  support::RandomText _Random;
  int _OneIn;
};

}  // namespace exchangetest
