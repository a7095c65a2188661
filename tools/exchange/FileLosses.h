// What a file of calc cannot hold of an analysis.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tools/exchange/AnalysisFileWriter.h"
#include "tools/exchange/Losses.h"

namespace tool {

struct FileComparison {
  std::vector<Loss> Losses;          // values that have a column or a property, and do not come back
  std::set<std::string> Attributes;  // that say something and have no property
  std::set<std::string> Keys;        // of lines, that say something and have no column
  std::set<std::string> Computed;    // attributes that calc computes, to another value than the analysis has
  std::set<int> ComputedRows;        // rows whose times calc computes, to other values
};

/// Compares an analysis with the one that was built from the file written of it.
///
/// rows  of the analysis, in the order of the rows of the file
FileComparison CompareWithFile(VEXTimeAnalysisRepReference& written, VEXTimeAnalysisRepReference& reread,
                               const std::vector<int>& rows, ExchangeVocabulary& vocabulary);

}  // namespace tool
