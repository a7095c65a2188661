// Streams as texts: where they end, what they may hold, and how they fill an analysis.
//
//   stream = item { "|" item } end
//   end    = [ "|" ... ] [ line-end ... ]     what stands there is no part of the last value
//
// A file is one stream; line feeds inside belong to its values.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"
#include "tools/Messages.h"

namespace tool {

/// The stream without line ends and then "|" at its end, and without a byte order mark at its start.
std::string_view WithoutStreamEnd(std::string_view text);

/// What the migration of the library would take for a part of the stream, and is none: a byte order mark ahead of an
/// item that is read, and a carriage return behind the last one. Nothing if there is neither.
std::optional<Failure> FaultOfEnds(const std::string& path, std::string_view bytes);

/// What keeps a value from being read from a stream again, in words: the first ":", "|" or NUL in it; empty for none.
std::string_view SeparatorIn(std::string_view value);
inline bool FitsIntoStream(std::string_view value) {
  return SeparatorIn(value).empty();
}

/// Gives an analysis that was filled from items what follows from them: if a calculation of its lines comes to the very
/// totals in TMU that it has, the totals in seconds of that calculation are set, too. All else stands as it came.
void SetTotalsInSeconds(VEXTimeAnalysisRepReference& analysis, VEXSTMTimeAnalysisDlgServices& services);

/// Fills an analysis without lines from items, totals in seconds included.
void FillAnalysis(VEXTimeAnalysisRepReference& analysis, KORListValKORUnicodeString& items,
                  VEXSTMTimeAnalysisDlgServices& services);

}  // namespace tool
