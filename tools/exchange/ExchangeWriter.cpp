// Writes analyses in one of the forms of the exchange.
#include "tools/exchange/ExchangeWriter.h"

#include <map>
#include <ostream>
#include <set>

#include "VEXTADataIO.h"
#include "tools/exchange/AnalysisFileWriter.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/FileLosses.h"
#include "tools/exchange/ListWriter.h"
#include "tools/exchange/StreamText.h"
#include "tools/exchange/StreamWriter.h"

namespace tool {

namespace {

constexpr std::size_t MostLossesTold = 10'000;  // of one analysis

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

ExchangeWriter::ExchangeWriter(const CommandLine& line, const Catalogue& catalogue, const Surroundings& surroundings,
                               VEXSTMTimeAnalysisDlgServices& services, ExchangeVocabulary& vocabulary,
                               Answers& answers)
    : _Line(line),
      _Services(services),
      _Vocabulary(vocabulary),
      _Answers(answers),
      _Codes(catalogue, answers),
      _Builder(_Codes, services, "") {
  if (line.Format == "json") _Json = std::make_unique<JsonWriter>(catalogue, surroundings);
}

void ExchangeWriter::Take(const ExchangedAnalysis& analysis, const ReusedAnalyses& reused) {
  Document document{analysis.Identifier, analysis.Source, "", {}};
  if (_Line.Format == "stream") {
    document.Text = StreamTextOf(analysis);
  } else if (_Line.Format == "list") {
    document.Text = ListTextOf(analysis);
  } else if (_Line.Format == "json") {
    document.Text = JsonTextOf(analysis);
  } else {
    document.Text = FileTextOf(analysis, reused);
    document.Reused = ReusedIdentifiers(reused);
  }
  _Documents.push_back(std::move(document));
}

std::string ExchangeWriter::StreamTextOf(const ExchangedAnalysis& analysis) {
  std::string stream = StreamOf(*analysis.Analysis, _Vocabulary);
  const KORUnicodeString text(WithoutStreamEnd(stream));
  KORListValKORUnicodeString items = VEXTADataIO::ExplodeString("|", text);
  const auto reread = AnalysisHandle::Adopt(new VEXTimeAnalysisRepReference(KORUnicodeString()));
  FillAnalysis(*reread, items, _Services);
  TellLosses(analysis, LossesOfStream(*analysis.Analysis, *reread, _Vocabulary));
  return stream + "\n";
}

std::string ExchangeWriter::ListTextOf(const ExchangedAnalysis& analysis) {
  const UnnamedValues unnamed = FindUnnamed(*analysis.Analysis, _Vocabulary);
  if (!unnamed.Attributes.empty() || !unnamed.Keys.empty()) {
    _Answers.Tell(LeftOutOfForm(analysis, unnamed.Attributes, unnamed.Keys, "a list"));
  }
  if (!unnamed.FormulaRows.empty()) {
    _Answers.Tell(RowsLeftOutOfForm(analysis, "formulas", unnamed.FormulaRows, "a list"));
  }
  return ListOf(*analysis.Analysis, _Vocabulary);
}

std::string ExchangeWriter::JsonTextOf(const ExchangedAnalysis& analysis) {
  const UnnamedValues unnamed = FindUnnamed(*analysis.Analysis, _Vocabulary);
  if (!unnamed.FormulaRows.empty()) {
    _Answers.Tell(RowsLeftOutOfForm(analysis, "formulas", unnamed.FormulaRows, "JSON"));
  }
  if (!unnamed.ReuseRows.empty()) {
    _Answers.Tell(RowsLeftOutOfForm(analysis, "references to reused analyses", unnamed.ReuseRows, "JSON"));
  }
  return _Json->DocumentOf(analysis) + "\n";
}

std::string ExchangeWriter::FileTextOf(const ExchangedAnalysis& analysis, const ReusedAnalyses& reused) {
  const AnalysisFileText written = AnalysisFileOf(analysis, reused);
  const AnalysisFile file(analysis.Source + " as csv", written.Text);
  ReusedAnalyses reused_in_file;
  for (const int row : written.Rows) reused_in_file.push_back(reused[static_cast<std::size_t>(row) - 1]);
  reused_in_file.resize(file.GetRows().size(), nullptr);
  const std::string& identifier = file.GetIdentifier().empty() ? analysis.Identifier : file.GetIdentifier();
  const BuiltAnalysis reread = _Builder.Build(file, identifier, reused_in_file);
  const FileComparison found = CompareWithFile(*analysis.Analysis, *reread.Analysis, written.Rows, _Vocabulary);
  (void)reread.Analysis->RemoveAllLines();  // the model keeps the analysis
  TellLosses(analysis, found.Losses);
  if (analysis.IsComplete) {
    for (const PlacedFailure& problem : reread.Problems) TellLoss(problem);
  }
  if (!found.Attributes.empty() || !found.Keys.empty()) {
    _Answers.Tell(LeftOutOfForm(analysis, found.Attributes, found.Keys, "a file of calc"));
  }
  if (!found.Computed.empty() || !found.ComputedRows.empty()) {
    _Answers.Tell(ComputedByCalc(analysis, found.Computed, found.ComputedRows));
  }
  return written.Text;
}

void ExchangeWriter::TellLosses(const ExchangedAnalysis& analysis, const std::vector<Loss>& losses) {
  const std::string form = _Line.Format == "stream" ? "a stream" : "a file of calc";
  for (std::size_t index = 0; index < std::min(losses.size(), MostLossesTold); ++index) {
    TellLoss(ValueLost(analysis, losses[index], form));
  }
  if (losses.size() > MostLossesTold) TellLoss(MoreValuesLost(analysis, losses.size() - MostLossesTold));
}

void ExchangeWriter::TellLoss(const Failure& loss) {
  _Answers.Tell(_Line.Lossy ? AsNote(loss) : loss);
}

// A file for calc finds what it reuses by its path, from its own folder upward.
void ExchangeWriter::TellShadowedReuse() {
  std::set<std::string> identifiers;
  for (const Document& document : _Documents) identifiers.insert(document.Identifier);
  for (const Document& document : _Documents) {
    for (const std::string& reused : document.Reused) {
      const std::string found = FoundFirst(document.Identifier, reused, identifiers);
      if (found != reused)
        TellLoss(ReuseShadowed({document.Identifier, document.Source, {}, {}, true, true}, reused, found));
    }
  }
}

bool ExchangeWriter::MayBeWritten() {
  if (_Documents.empty()) return false;
  if (_Line.Lossy || _Answers.Gravest() == ExitStatus::Done) return true;
  _Answers.Tell(NothingWritten());
  return false;
}

// Looks at all names ahead of the first file, so that all are written or none.
bool ExchangeWriter::AreNamesFit(const OutputFolder& folder) {
  std::set<std::string> identifiers;
  bool fit = true;
  const auto refuse = [&](const Failure& failure) {
    _Answers.Tell(failure);
    fit = false;
  };
  for (const Document& document : _Documents) {
    if (!identifiers.insert(document.Identifier).second) refuse(FileNameTwice(document.Identifier));
    if (const auto fault = folder.Check(document.Identifier)) refuse(*fault);
  }
  return fit;
}

void ExchangeWriter::WriteToAnswers() {
  const bool is_file_form = _Line.Format == "stream" || _Line.Format == "csv";
  if (is_file_form && _Documents.size() > 1) throw SeveralWithoutFolder(_Line.Format, _Documents.size());
  for (const Document& document : _Documents) {
    if (_Line.Format == "list" && _Documents.size() > 1) {
      _Answers.Out() << "Analysis:" << Printable(document.Identifier) << '\n';
    }
    _Answers.Out() << document.Text;
  }
}

void ExchangeWriter::WriteToFolder() {
  const auto present = _Line.Force ? OutputFolder::Present::Replaced : OutputFolder::Present::Kept;
  const OutputFolder folder(_Line.Into, "." + _Line.Format, present);
  if (!AreNamesFit(folder)) return;
  for (const Document& document : _Documents) folder.Write(document.Identifier, document.Text);
}

void ExchangeWriter::Finish() {
  TellShadowedReuse();
  if (!MayBeWritten()) return;
  _Line.Into.empty() ? WriteToAnswers() : WriteToFolder();
}

}  // namespace tool
