// Which analyses an analysis reuses. Meaning and results as the members of VEXSTMTimeAnalysisDlgServices of the same
// purpose tell.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"

namespace calculation {

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
