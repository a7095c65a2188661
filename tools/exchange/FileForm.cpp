// Analyses as files of calc, and what such a file does not hold of them.
#include "tools/exchange/FileForm.h"

#include "tools/exchange/AnalysisFileWriter.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/FileLosses.h"

namespace tool {

namespace {

// The identifiers of the analyses that the lines reuse.
std::vector<std::string> ReusedIdentifiers(const ReusedAnalyses& reused) {
  std::set<std::string> identifiers;
  for (const BuiltAnalysis* analysis : reused) {
    if (analysis == nullptr) continue;
    KORUnicodeString identifier;
    (void)analysis->Analysis->GetValue("PLM_ExternalID", identifier);
    identifiers.emplace(identifier.Bytes());
  }
  return {identifiers.begin(), identifiers.end()};
}

// The first identifier that a file for calc finds under a name: it looks in its own folder, then in those above.
std::string FoundFirst(const std::string& identifier, const std::string& name, const std::set<std::string>& there) {
  std::string folder = identifier.substr(0, identifier.rfind('/') + 1);
  while (!folder.empty()) {
    if (there.count(folder + name) != 0) return folder + name;
    folder.pop_back();
    folder.resize(folder.rfind('/') + 1);
  }
  return name;
}

}  // namespace

FileForm::FileForm(const Catalogue& catalogue, VEXSTMTimeAnalysisDlgServices& services, ExchangeVocabulary& vocabulary,
                   Answers& answers)
    : _Vocabulary(vocabulary), _Codes(catalogue, answers), _Builder(_Codes, services, "") {
}

FormedFile FileForm::Form(const ExchangedAnalysis& analysis, const ReusedAnalyses& reused) {
  AnalysisFileText written = AnalysisFileOf(analysis, reused);
  const AnalysisFile file(analysis.Source + " as csv", written.Text);
  ReusedAnalyses reused_in_file;
  for (const int row : written.Rows) reused_in_file.push_back(reused[static_cast<std::size_t>(row) - 1]);
  reused_in_file.resize(file.GetRows().size(), nullptr);
  const std::string& identifier = file.GetIdentifier().empty() ? analysis.Identifier : file.GetIdentifier();
  const BuiltAnalysis reread = _Builder.Build(file, identifier, reused_in_file);
  const FileComparison found = CompareWithFile(*analysis.Analysis, *reread.Analysis, written.Rows, _Vocabulary);
  (void)reread.Analysis->RemoveAllLines();  // the model keeps the analysis
  FormedFile formed{
      std::move(written.Text), ValuesLost(analysis, found.Losses, "a file of calc"), {}, ReusedIdentifiers(reused)};
  if (analysis.IsComplete) formed.Losses.insert(formed.Losses.end(), reread.Problems.begin(), reread.Problems.end());
  if (!found.Attributes.empty() || !found.Keys.empty()) {
    formed.Notes.push_back(LeftOutOfForm(analysis, found.Attributes, found.Keys, "a file of calc"));
  }
  if (!found.Computed.empty() || !found.ComputedRows.empty()) {
    formed.Notes.push_back(ComputedByCalc(analysis, found.Computed, found.ComputedRows));
  }
  return formed;
}

std::vector<Failure> ShadowedReuse(const ExchangedAnalysis& analysis, const std::vector<std::string>& reused,
                                   const std::set<std::string>& identifiers) {
  std::vector<Failure> shadowed;
  for (const std::string& name : reused) {
    const std::string found = FoundFirst(analysis.Identifier, name, identifiers);
    if (found != name) shadowed.push_back(ReuseShadowed(analysis, name, found));
  }
  return shadowed;
}

}  // namespace tool
