// The analyses that an analysis reuses in its own lines.
#pragma once

#include "platform/base/KORObjectLists.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace objects {

/// Fills `reused` with what the lines of an analysis reuse, row by row: one that is reused on several rows stands there
/// as often. The list is empty for null and for an object without lines.
void ListReusedAnalyses(const VEXITimeAnalysisRepReference_var& analysis, KORListValKORBaseUnknown_var& reused);

}  // namespace objects
