// The change of a template carried up to all analyses above it, in the model of the current session.
#pragma once

#include <vector>

#include "tools/impact/ImpactedAnalysis.h"

namespace tool {

/// Brings the analyses above the template up to date: their lines, and their totals. The files are left alone.
///
/// The library carries the change up. It gives a row the time of what it reuses, once and as human time; what the file
/// says further of the row, its frequency, its time type and its values for formulas carried up, is put back behind it,
/// and what then comes to another total is handed on by the library once more.
///
/// steps  the analyses above it, lower levels first. Flawed ones have no totals to rely on, before and behind.
/// Raises CarriesTooMuch, with nothing changed, where more formula parameters would come up than AnalysisBuilder
/// bounds, and PropagationFails.
void PropagateChange(FolderAnalyses& analyses, std::size_t changed, const std::vector<ClimbStep>& steps,
                     VEXSTMTimeAnalysisDlgServices& services);

}  // namespace tool
