// The line table of a time analysis.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/VEXTimeAnalysisLineData.h"

/// The lines of an analysis, in rows from 1.
class VEXITimeAnalysisLines : public KORInterface<VEXITimeAnalysisLines> {
 public:
  static constexpr const char* InterfaceName = "VEXITimeAnalysisLines";

  /// Number of rows. S_OK.
  virtual long GetLineCount(int& count) = 0;

  /// Replaces the whole content of `line` by row `row`; its formula parameters are copies that belong to `line`.
  /// S_OK; E_INVALIDARG, with `line` left empty, for a row outside 1 to the row count.
  virtual long GetLine(int row, VEXTimeAnalysisLineData& line) = 0;

  /// Stores `line` as row `row`; its formula parameters are copied. The row just past the last one is appended.
  /// S_OK; E_INVALIDARG, with nothing changed, for any other row.
  virtual long SetLine(int row, VEXTimeAnalysisLineData& line) = 0;

  /// Fills two lists of equal size with the set keys of a row and their values as text. The known keys stand in the
  /// order of KORKnownKeys, all others behind them in the order of their bytes. Reals are printed with as many digits
  /// as read back bit for bit, booleans as "1" and "0", a reused analysis as its "PLM_ExternalID" (empty for none).
  /// Formula parameters have no text form and are not listed. S_OK; E_INVALIDARG, with both lists empty, for a row
  /// outside 1 to the row count.
  virtual long GetLineAttributes(int row, KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) = 0;

  /// Empties the table. S_OK.
  virtual long RemoveAllLines() = 0;

  /// Appends new records (VEXTimeAnalysisLineData) on the heap for `count` rows from `first` onward, each with one
  /// reference that is the caller's (ReleaseTimeAnalysisLines gives them back). S_OK; E_INVALIDARG if `first` or
  /// `count` leads outside 1 to the row count: the rows that are there are appended.
  virtual long GetLines(int first, int count, KORRawCollPV& lines) = 0;
};
using VEXITimeAnalysisLines_var = KORHandle<VEXITimeAnalysisLines>;
