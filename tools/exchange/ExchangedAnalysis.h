// An analysis on its way in or out.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/model/VEXTimeAnalysisRepReference.h"

namespace tool {

using AnalysisHandle = KORHandle<VEXTimeAnalysisRepReference>;

struct ExchangedAnalysis {
  std::string Identifier;
  std::string Source;  // the file that it came from, as messages call it
  AnalysisHandle Analysis;
  std::vector<std::size_t> FileLines;  // of its rows in the source; empty: messages tell rows
  bool IsNamed = true;                 // false: nobody has given it the identifier, so that a file need not tell it
  bool IsComplete = true;              // false: it has faults that were told
};

/// Number of lines of an analysis.
inline int CountLines(VEXTimeAnalysisRepReference& analysis) {
  int count = 0;
  (void)analysis.GetLineCount(count);
  return count;
}

/// The values of a line, which share their content with the analysis.
inline KORKeyedValues ValuesOfLine(VEXTimeAnalysisRepReference& analysis, int row) {
  VEXTimeAnalysisLineData line;
  (void)analysis.GetLine(row, line);
  return line.GetContent().Values;
}

}  // namespace tool
