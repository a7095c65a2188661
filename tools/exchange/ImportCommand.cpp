// timeanalysis import: streams of the exchange become analyses.
#include <deque>
#include <utility>

#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/ExchangeVocabulary.h"
#include "tools/exchange/ExchangeWriter.h"
#include "tools/exchange/StreamAnalyses.h"
#include "tools/exchange/StreamInputs.h"
#include "tools/exchange/StreamReader.h"
#include "tools/exchange/StreamText.h"

namespace tool {

namespace {

// Makes all analyses first and fills them then, so that each finds those that it refers to.
class StreamImport {
 public:
  StreamImport(const CommandLine& line, const Surroundings& surroundings, Answers& answers)
      : _Line(line), _Surroundings(surroundings), _Answers(answers) {
    const auto tell = [&answers](const std::string& /*path*/, const Failure& cause) { answers.Tell(cause); };
    for (StreamInput& input : FindStreams(line, tell)) {
      AnalysisHandle made = _Made.Make(input.Identifier);
      _Analyses.push_back({input, {input.Identifier, input.Path, std::move(made), {}, input.IsNamed, true}});
    }
  }

  void Fill(ExchangeVocabulary& vocabulary, VEXSTMTimeAnalysisDlgServices& services) {
    for (const Entry& entry : _Analyses) {
      try {
        StreamReader reader(entry.Input.Path, vocabulary);
        StreamContent content = reader.Read(ReadStreamBytes(entry.Input, _Surroundings));
        for (const Failure& problem : content.AllProblems(entry.Input.Path)) {
          _Answers.Tell(_Line.Lossy ? AsNote(problem) : problem);
        }
        _Made.Resolve(entry.Input, content);
        FillAnalysis(*entry.Analysis.Analysis, content.Items, services);
        if (_Line.Calculate) services.CalculateAnalyzedTimeBG(KORBaseUnknown_var(entry.Analysis.Analysis));
        _Filled.push_back(&entry);
      } catch (const Failure& failure) {
        _Answers.Tell(failure);
      }
    }
  }

  void Write(ExchangeWriter& writer) {
    for (const Entry* entry : _Filled) writer.Take(entry->Analysis, _Made.ReusedBy(entry->Analysis.Analysis));
    writer.Finish();
    // An identifier that leads nowhere is kept, and does not keep anything from being written.
    for (const Failure& failure : _Made.Unresolved()) _Answers.Tell(failure);
  }

 private:
  struct Entry {
    StreamInput Input;
    ExchangedAnalysis Analysis;
  };

  const CommandLine& _Line;
  const Surroundings& _Surroundings;
  Answers& _Answers;
  StreamAnalyses _Made;
  std::deque<Entry> _Analyses;
  std::vector<const Entry*> _Filled;
};

}  // namespace

void RunImport(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  const Catalogue catalogue(line, surroundings);
  catalogue.TellOfSettings(answers);
  VEXSTMTimeAnalysisDlgServices services;
  ExchangeVocabulary vocabulary;
  StreamImport import(line, surroundings, answers);
  ExchangeWriter writer(line, catalogue, surroundings, services, vocabulary, answers);
  import.Fill(vocabulary, services);
  import.Write(writer);
}

}  // namespace tool
