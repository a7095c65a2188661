// Streams as texts: where they end, what they may hold, and how they fill an analysis.
//
//   stream = item { "|" item } end
//   end    = [ "|" ... ] [ line-end ... ]     what stands there is no part of the last value
//
// A file is one stream; line feeds inside belong to its values.
#pragma once

#include <string_view>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"

namespace tool {

/// The stream without line ends and then "|" at its end, and without a byte order mark at its start.
std::string_view WithoutStreamEnd(std::string_view text);

/// What keeps a value from being read from a stream again, in words: the first ":", "|" or NUL in it; empty for none.
std::string_view SeparatorIn(std::string_view value);
inline bool FitsIntoStream(std::string_view value) {
  return SeparatorIn(value).empty();
}

/// Fills an analysis without lines from items, and then gives it what follows from them: if a calculation of its lines
/// comes to the very totals in TMU that the items gave it, the totals in seconds of that calculation are set, too. All
/// else stands as it came.
void FillAnalysis(VEXTimeAnalysisRepReference& analysis, KORListValKORUnicodeString& items,
                  VEXSTMTimeAnalysisDlgServices& services);

}  // namespace tool
