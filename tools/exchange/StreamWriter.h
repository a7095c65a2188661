// Analyses as streams: the form that SetAnalysisData reads.
//
//   stream    = "Save" "|" name "|" system { "|" attribute } { "|" heading } { "|" cell } [ "|" ]
//   attribute = "AttributeData" ":" key ":" type ":" value
//   heading   = "LineData" ":" "et_linedata" ":" "0" ":" column ":" "8" ":" key
//   cell      = "LineData" ":" "et_linedata" ":" row ":" column ":" type ":" value
//
// Columns count from 0, rows from 1. There is a column for each key that a line holds, in the order of the numbers that
// the form of GetAnalysisData gives them, and a cell for each value.
#pragma once

#include <string>

#include "tools/exchange/ExchangeVocabulary.h"
#include "tools/exchange/ExchangedAnalysis.h"

namespace tool {

/// The analysis as a stream. Left out are values that the exchange has no name for and those that do not fit into a
/// stream (FitsIntoStream), formulas, and of several attributes under one key all but the first. A line of which
/// nothing is left has its row number, so that the lines behind it keep theirs.
///
/// A "|" stands at the end if the last value ends in a line end, which would be taken for the end of the stream.
std::string StreamOf(VEXTimeAnalysisRepReference& analysis, ExchangeVocabulary& vocabulary);

}  // namespace tool
