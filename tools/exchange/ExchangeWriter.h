// Writes analyses in one of the forms of the exchange: all of them, or none.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tools/Answers.h"
#include "tools/Catalogue.h"
#include "tools/CommandLine.h"
#include "tools/analysis/AnalysisBuilder.h"
#include "tools/exchange/ExchangeVocabulary.h"
#include "tools/exchange/ExchangedAnalysis.h"
#include "tools/exchange/FileForm.h"
#include "tools/exchange/JsonWriter.h"
#include "tools/exchange/OutputFolder.h"

namespace tool {

class ExchangeWriter {
 public:
  /// All have to outlive the writer. Raises what is wrong with the JSON templates, where they are needed.
  ExchangeWriter(const CommandLine& line, const Catalogue& catalogue, const Surroundings& surroundings,
                 VEXSTMTimeAnalysisDlgServices& services, ExchangeVocabulary& vocabulary, Answers& answers);

  /// Turns an analysis into text, and tells of what the form cannot hold of it.
  ///
  /// reused  by row, what it reuses
  void Take(const ExchangedAnalysis& analysis, const ReusedAnalyses& reused);

  /// Writes all that was taken to the folder of the command line, or to the answers. Nothing is written if anything was
  /// told of until now that has a status, unless the rest is wanted all the same, nor if a name is not fit for a file.
  void Finish();

 private:
  struct Document {
    std::string Identifier;
    std::string Source;
    std::string Text;
    std::vector<std::string> Reused;  // identifiers, of a file for calc
  };

  std::string StreamTextOf(const ExchangedAnalysis& analysis);
  std::string ListTextOf(const ExchangedAnalysis& analysis);
  std::string JsonTextOf(const ExchangedAnalysis& analysis);
  void TellLoss(const Failure& loss);
  void TellShadowedReuse();
  bool MayBeWritten();
  bool AreNamesFit(const OutputFolder& folder);
  void WriteToAnswers();
  void WriteToFolder();

  const CommandLine& _Line;
  VEXSTMTimeAnalysisDlgServices& _Services;
  ExchangeVocabulary& _Vocabulary;
  Answers& _Answers;
  std::unique_ptr<JsonWriter> _Json;  // if it is the form
  FileForm _FileForm;
  std::vector<Document> _Documents;
};

}  // namespace tool
