// An analysis that is made of names alone, to ask the exchange what it calls them.
#pragma once

#include <string>
#include <vector>

#include "tools/exchange/AnalysisStandIn.h"
#include "tools/exchange/ExchangeType.h"

namespace tool {

/// What the exchange reads of it: the attributes and the keys of one line that it is given, each with its position in
/// its list, from 0, as its value. What the exchange writes to it: the type of the last value.
class ExchangeProbe : public AnalysisStandIn {
 public:
  std::vector<std::string> Attributes;
  std::vector<std::string> LineKeys;  // none: it has no line

  /// Type of the value that was written last; None if nothing was.
  ExchangeType GetWrittenType() const { return _WrittenType; }

  long GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override;
  long SetValue(const KORString& /*key*/, unsigned char /*value*/) override { return Note(ExchangeType::Boolean); }
  long SetValue(const KORString& /*key*/, double /*value*/) override { return Note(ExchangeType::Real); }
  long SetValue(const KORString& /*key*/, int /*value*/) override { return Note(ExchangeType::Integer); }
  long SetValue(const KORString& /*key*/, const KORUnicodeString& /*value*/) override {
    return Note(ExchangeType::Text);
  }

  long GetLineCount(int& count) override;
  /// Notes the type of the value that stands beside the row number. A line with nothing beside it was given a
  /// reference to an analysis that is not there.
  long SetLine(int row, VEXTimeAnalysisLineData& line) override;
  long GetLineAttributes(int row, KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) override;

 private:
  long Note(ExchangeType type) {
    _WrittenType = type;
    return S_OK;
  }

  ExchangeType _WrittenType = ExchangeType::None;
};

}  // namespace tool
