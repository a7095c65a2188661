// timeanalysis export: analyses in text files, in the forms of the exchange.
#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/analysis/AnalysisRun.h"
#include "tools/exchange/ExchangeVocabulary.h"
#include "tools/exchange/ExchangeWriter.h"

namespace tool {

namespace {

ExchangedAnalysis Exchanged(const AnalysisFolder::Member& member, const BuiltAnalysis& built) {
  ExchangedAnalysis analysis{member.Identifier, member.File.GetPath(), built.Analysis, {}, true, built.IsComplete};
  for (const AnalysisRow& row : member.File.GetRows()) analysis.FileLines.push_back(row.Line);
  return analysis;
}

}  // namespace

void RunExport(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  const Catalogue catalogue(line, surroundings);
  catalogue.TellOfSettings(answers);
  VEXSTMTimeAnalysisDlgServices services;
  ExchangeVocabulary vocabulary;
  AnalysisRun run(line, catalogue, services, answers);
  ExchangeWriter writer(line, catalogue, surroundings, services, vocabulary, answers);
  // Files of calc are written without recorded times, the other forms have the times that count.
  const bool loses_recorded = line.Format == "csv";
  run.Build([&writer](const AnalysisFolder::Member& member, const BuiltAnalysis& built,
                      const ReusedAnalyses& reused) { writer.Take(Exchanged(member, built), reused); },
            loses_recorded ? AnalysisRun::OutOfDate::Told : AnalysisRun::OutOfDate::PassedOver);
  writer.Finish();
}

}  // namespace tool
