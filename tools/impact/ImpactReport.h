// The forms in which the impact of a change is written.
#pragma once

#include <iosfwd>
#include <vector>

#include "tools/impact/ImpactedAnalysis.h"

namespace tool {

/// What a report tells: the template, by its position among the analyses, and all above it, lower levels first.
struct ImpactReport {
  const FolderAnalyses& Analyses;
  std::size_t Template;
  const std::vector<ImpactedAnalysis>& Impacted;
};

/// Writes tables for people: where the template is used, and the totals before and behind. Text about what is to be
/// done follows where files are to be changed.
void WriteImpactTables(std::ostream& output, const ImpactReport& report, const ResultUnit& unit);

/// Writes one line of JSON for each analysis.
void WriteImpactJson(std::ostream& output, const ImpactReport& report, const VEXSTMTimeAnalysisDlgServices& services);

/// Writes a table of comma-separated values: for each analysis one row for each row that reuses one below it, and one
/// for each total.
void WriteImpactCsv(std::ostream& output, const ImpactReport& report, const ResultUnit& unit);

}  // namespace tool
