// Which analyses an analysis reuses. Meaning and results as the members of VEXSTMTimeAnalysisDlgServices of the same
// purpose tell.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/VEXITimeAnalysisLines.h"

namespace calculation {

/// What lines reuse, row by row: one that is reused on several rows stands there as often. The argument is not null.
KORListValKORBaseUnknown_var ReusedAnalysesOf(const VEXITimeAnalysisLines_var& lines);

KORBaseUnknown_var ReusedAnalysisOfRow(int row, const KORBaseUnknown_var& analysis);
bool HasReusedLine(const KORBaseUnknown_var& analysis);
KORUnicodeString IdentifierOf(KORBaseUnknown* analysis);

/// An analysis and all that it reuses: parallel lists, as PrepareListOfAllLevelReusedPLMIds fills them.
struct ReuseTables {
  KORListValKORUnicodeString& Identifiers;
  KORRawColldouble& Values;
  KORListValKORBaseUnknown_var& Analyses;
};
void ListAllReused(const KORBaseUnknown_var& analysis, ReuseTables tables);

}  // namespace calculation
