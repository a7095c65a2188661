// Analyses as lists: the form that GetAnalysisData writes, one item a line.
#pragma once

#include <set>
#include <string>

#include "tools/exchange/ExchangeVocabulary.h"
#include "tools/exchange/ExchangedAnalysis.h"

namespace tool {

/// The items of an analysis, each with a line feed behind it. Values stand as they are, line feeds included.
std::string ListOf(VEXTimeAnalysisRepReference& analysis, ExchangeVocabulary& vocabulary);

/// What has no name in the exchange, and does not follow from what has.
struct UnnamedValues {
  std::set<std::string> Attributes;
  std::set<std::string> Keys;
  std::set<int> FormulaRows;
  std::set<int> ReuseRows;  // which have one, for forms that have no place for references
};
UnnamedValues FindUnnamed(VEXTimeAnalysisRepReference& analysis, ExchangeVocabulary& vocabulary);

}  // namespace tool
