// Analyses as the files that calc reads (AnalysisFile.h).
#pragma once

#include <string>
#include <vector>

#include "tools/analysis/AnalysisBuilder.h"
#include "tools/exchange/ExchangedAnalysis.h"

namespace tool {

struct AnalysisFileText {
  std::string Text;
  std::vector<int>
      Rows;  // of the analysis, in the order of the file's; those with nothing in their cells are not there
};

/// The analysis as a file. Times are entered times, in seconds, so that they come back as they are, whatever the
/// catalogue says: the code stands beside them. A row without a time has 0 seconds, a frequency of 1 and a negative
/// one, which counts as 1, is left out.
///
/// reused  by row, what it reuses
AnalysisFileText AnalysisFileOf(const ExchangedAnalysis& analysis, const ReusedAnalyses& reused);

/// True for a line that is nothing but texts: it has no code, reuses nothing and has no formula.
bool IsTextLine(VEXTimeAnalysisRepReference& analysis, int row);

}  // namespace tool
