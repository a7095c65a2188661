// The forms in which calc writes analyses.
#pragma once

#include <iosfwd>
#include <vector>

#include "tools/analysis/AnalysisResult.h"

namespace tool {

/// Writes one analysis as a table for people: lines, then totals by time type, with a blank line ahead of all but the
/// first one of a run.
void WriteResultTable(std::ostream& output, const AnalysisResult& result, const ResultUnit& unit, bool is_first);

/// Writes the totals of several analyses as one table, in their order. Nothing is summed over them, as an analysis that
/// others reuse is in their totals, too. Lines of the results are not looked at.
void WriteOverview(std::ostream& output, const std::vector<AnalysisResult>& results, const ResultUnit& unit);

/// Writes one analysis as a line of JSON. Times are there in TMU and in seconds, whatever the unit.
void WriteResultJson(std::ostream& output, const AnalysisResult& result, const VEXSTMTimeAnalysisDlgServices& services);

/// Write a table of comma-separated values: one row for each line of an analysis, and one for each total.
void WriteCsvHeader(std::ostream& output);
void WriteResultCsv(std::ostream& output, const AnalysisResult& result, const ResultUnit& unit);

}  // namespace tool
