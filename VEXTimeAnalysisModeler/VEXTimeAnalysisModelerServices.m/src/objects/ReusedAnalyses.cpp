// The analyses that an analysis reuses in its own lines.
#include "objects/ReusedAnalyses.h"

#include "calculation/ReuseTree.h"
#include "platform/model/VEXITimeAnalysisLines.h"

namespace objects {

void ListReusedAnalyses(const VEXITimeAnalysisRepReference_var& analysis, KORListValKORBaseUnknown_var& reused) {
  reused.RemoveAll();
  const VEXITimeAnalysisLines_var lines = analysis;
  if (!lines.IsNull()) reused = calculation::ReusedAnalysesOf(lines);
}

}  // namespace objects
