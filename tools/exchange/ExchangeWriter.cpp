// Writes analyses in one of the forms of the exchange.
#include "tools/exchange/ExchangeWriter.h"

#include <ostream>
#include <set>
#include <utility>

#include "VEXTADataIO.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/ListWriter.h"
#include "tools/exchange/Losses.h"
#include "tools/exchange/StreamText.h"
#include "tools/exchange/StreamWriter.h"

namespace tool {

ExchangeWriter::ExchangeWriter(const CommandLine& line, const Catalogue& catalogue, const Surroundings& surroundings,
                               VEXSTMTimeAnalysisDlgServices& services, ExchangeVocabulary& vocabulary,
                               Answers& answers)
    : _Line(line),
      _Services(services),
      _Vocabulary(vocabulary),
      _Answers(answers),
      _FileForm(catalogue, services, vocabulary, answers) {
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
    FormedFile file = _FileForm.Form(analysis, reused);
    for (const Failure& loss : file.Losses) TellLoss(loss);
    for (const Failure& note : file.Notes) _Answers.Tell(note);
    document.Text = std::move(file.Text);
    document.Reused = std::move(file.Reused);
  }
  _Documents.push_back(std::move(document));
}

std::string ExchangeWriter::StreamTextOf(const ExchangedAnalysis& analysis) {
  std::string stream = StreamOf(*analysis.Analysis, _Vocabulary);
  const KORUnicodeString text(WithoutStreamEnd(stream));
  KORListValKORUnicodeString items = VEXTADataIO::ExplodeString("|", text);
  const auto reread = AnalysisHandle::Adopt(new VEXTimeAnalysisRepReference(KORUnicodeString()));
  FillAnalysis(*reread, items, _Services);
  const std::vector<Loss> losses = LossesOfStream(*analysis.Analysis, *reread, _Vocabulary);
  for (const Failure& loss : ValuesLost(analysis, losses, "a stream")) TellLoss(loss);
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

void ExchangeWriter::TellLoss(const Failure& loss) {
  _Answers.Tell(_Line.Lossy ? AsNote(loss) : loss);
}

void ExchangeWriter::TellShadowedReuse() {
  std::set<std::string> identifiers;
  for (const Document& document : _Documents) identifiers.insert(document.Identifier);
  for (const Document& document : _Documents) {
    const ExchangedAnalysis analysis{document.Identifier, document.Source, {}, {}, true, true};
    for (const Failure& shadowed : ShadowedReuse(analysis, document.Reused, identifiers)) TellLoss(shadowed);
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
