// What becomes of the files above a template once its change has been carried up.
#pragma once

#include <functional>
#include <vector>

#include "tools/Answers.h"
#include "tools/impact/ImpactedAnalysis.h"

namespace tool {

/// Fills in the new totals, and the content of the files that have to change: those with a recorded time that is not
/// the time of the analysis that the row reuses. Nothing is written.
///
/// It is proven on the way that the files come to these totals: each analysis is built again, from its new content, by
/// `builder`. Where that finds a fault, which goes to `answers`, the analysis counts as flawed, with all that reuse it.
///
/// impacted  lower levels first; the change has been carried up (Propagation.h)
/// tick      called ahead of each analysis
void PlanChanges(const FolderAnalyses& analyses, std::vector<ImpactedAnalysis>& impacted, AnalysisBuilder builder,
                 const VEXSTMTimeAnalysisDlgServices& services, Answers& answers,
                 const std::function<void(std::size_t done)>& tick);

}  // namespace tool
