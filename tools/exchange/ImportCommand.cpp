// timeanalysis import: streams of the exchange become analyses.
#include <deque>
#include <map>
#include <set>
#include <utility>

#include "platform/model/KORModel.h"
#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/ExchangeVocabulary.h"
#include "tools/exchange/ExchangeWriter.h"
#include "tools/exchange/StreamInputs.h"
#include "tools/exchange/StreamReader.h"
#include "tools/exchange/StreamText.h"

namespace tool {

namespace {

KORUnicodeString TextOf(std::string_view text) {
  return KORUnicodeString(text);
}

// Makes all analyses first and fills them then, so that each finds those that it refers to.
class StreamImport {
 public:
  StreamImport(const CommandLine& line, const Surroundings& surroundings, Answers& answers)
      : _Line(line), _Surroundings(surroundings), _Answers(answers) {
    for (StreamInput& input : FindStreams(line, answers)) {
      AnalysisHandle made = Make(input.Identifier);
      _Analyses.push_back({input, {input.Identifier, input.Path, std::move(made), {}, input.IsNamed, true}});
    }
  }

  void Fill(ExchangeVocabulary& vocabulary, VEXSTMTimeAnalysisDlgServices& services) {
    for (const Entry& entry : _Analyses) {
      try {
        StreamReader reader(entry.Input.Path, vocabulary);
        StreamContent content = reader.Read(ReadStreamBytes(entry.Input, _Surroundings));
        TellProblems(entry.Input, content);
        ResolveReferences(entry.Input, content);
        FillAnalysis(*entry.Analysis.Analysis, content.Items, services);
        if (_Line.Calculate) services.CalculateAnalyzedTimeBG(KORBaseUnknown_var(entry.Analysis.Analysis));
        _Filled.push_back(&entry);
      } catch (const Failure& failure) {
        _Answers.Tell(failure);
      }
    }
  }

  void Write(ExchangeWriter& writer) {
    for (const Entry* entry : _Filled) writer.Take(entry->Analysis, ReusedBy(entry->Analysis.Analysis));
    writer.Finish();
    // An identifier that leads nowhere is kept, and does not keep anything from being written.
    for (const Failure& failure : _Unresolved) _Answers.Tell(failure);
  }

 private:
  struct Entry {
    StreamInput Input;
    ExchangedAnalysis Analysis;
  };

  AnalysisHandle Make(const std::string& identifier) {
    const AnalysisHandle made = KORModel::Current().CreateTimeAnalysis(TextOf(identifier));
    _ByIdentifier[identifier].Analysis = made;
    return made;
  }

  void TellProblems(const StreamInput& input, const StreamContent& content) {
    const auto tell = [this](const Failure& problem) { _Answers.Tell(_Line.Lossy ? AsNote(problem) : problem); };
    for (const Failure& problem : content.Problems) tell(problem);
    if (content.FurtherProblems > 0) tell(MoreFaultyItems(input.Path, content.FurtherProblems));
  }

  // An analysis that no stream is there for stands as an empty one, so that references to it keep its identifier.
  void ResolveReferences(const StreamInput& input, const StreamContent& content) {
    std::set<std::string_view> told;
    for (const StreamReference& reference : content.Reused) {
      if (_ByIdentifier.count(reference.Identifier) == 0) {
        Make(reference.Identifier);
        _StandIns.insert(reference.Identifier);
      }
      const bool is_resolved = _StandIns.count(reference.Identifier) == 0;
      if (is_resolved || !told.insert(reference.Identifier).second) continue;
      _Unresolved.push_back(ReferenceUnresolved(input.Path, reference.Row, reference.Identifier));
    }
  }

  ReusedAnalyses ReusedBy(const AnalysisHandle& analysis) const {
    ReusedAnalyses reused;
    for (int row = 1, count = CountLines(*analysis); row <= count; ++row) {
      const KORBaseUnknown_var of_row = VEXSTMTimeAnalysisDlgServices::GetReusedTAOfRow(row, analysis);
      const KORUnicodeString identifier = VEXSTMTimeAnalysisDlgServices::GetTAPLMExternalID(of_row.Get());
      const auto found = _ByIdentifier.find(std::string(identifier.Bytes()));
      reused.push_back(found == _ByIdentifier.end() ? nullptr : &found->second);
    }
    return reused;
  }

  const CommandLine& _Line;
  const Surroundings& _Surroundings;
  Answers& _Answers;
  std::deque<Entry> _Analyses;
  std::vector<const Entry*> _Filled;
  std::map<std::string, BuiltAnalysis> _ByIdentifier;
  std::set<std::string> _StandIns;
  std::vector<Failure> _Unresolved;
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
