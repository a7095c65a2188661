// Analyses as files of calc, and what such a file does not hold of them.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tools/Answers.h"
#include "tools/Catalogue.h"
#include "tools/analysis/AnalysisBuilder.h"
#include "tools/analysis/CodeBook.h"
#include "tools/exchange/ExchangeVocabulary.h"
#include "tools/exchange/ExchangedAnalysis.h"

namespace tool {

/// A file of calc, as it is to be written.
struct FormedFile {
  std::string Text;
  std::vector<Failure> Losses;      // values that do not come back, and faults that calc would find
  std::vector<Failure> Notes;       // what the file has no place for, and what calc computes
  std::vector<std::string> Reused;  // identifiers of the analyses that it reuses
};

/// Builds each file again as calc does, and compares.
class FileForm {
 public:
  /// All have to outlive the form. What is wrong with the catalogue goes to `answers`.
  FileForm(const Catalogue& catalogue, VEXSTMTimeAnalysisDlgServices& services, ExchangeVocabulary& vocabulary,
           Answers& answers);

  /// reused  by row, what the analysis reuses
  FormedFile Form(const ExchangedAnalysis& analysis, const ReusedAnalyses& reused);

 private:
  ExchangeVocabulary& _Vocabulary;
  CodeBook _Codes;
  AnalysisBuilder _Builder;
};

/// A file of calc finds what it reuses by its path, from its own folder upward. What is told of the analyses that a
/// file reuses and would find another one for.
///
/// identifiers  of all files that are written together
std::vector<Failure> ShadowedReuse(const ExchangedAnalysis& analysis, const std::vector<std::string>& reused,
                                   const std::set<std::string>& identifiers);

}  // namespace tool
