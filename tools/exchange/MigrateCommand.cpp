// timeanalysis migrate: streams of old systems become analyses by the migration of the library, each by itself.
#include <deque>
#include <optional>
#include <set>
#include <utility>

#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/FileForm.h"
#include "tools/exchange/LegacyOperation.h"
#include "tools/exchange/MigrationReport.h"
#include "tools/exchange/OutputFolder.h"
#include "tools/exchange/StreamAnalyses.h"
#include "tools/exchange/StreamInputs.h"
#include "tools/exchange/StreamReader.h"
#include "tools/exchange/StreamText.h"
#include "tools/exchange/UnmappedNames.h"

namespace tool {

namespace {

// Makes all legacy analyses first and brings them over then, so that each finds those that it refers to; the files are
// written last, when it is known what they reuse. What goes wrong with one stream does not touch the others.
class StreamMigration {
 public:
  StreamMigration(const CommandLine& line, const Surroundings& surroundings, Answers& answers)
      : _Line(line), _Surroundings(surroundings), _Answers(answers), _Report(answers.Out(), line.Json) {
    const auto skip = [this](const std::string& path, const Failure& cause) { Skip(path, cause); };
    for (const StreamInput& input : FindStreams(line, skip)) {
      _Streams.push_back({input, {_Made.Make(input.Identifier), input.Path}, {}, {}, {}});
    }
  }

  void Migrate(ExchangeVocabulary& vocabulary, VEXSTMTimeAnalysisDlgServices& services) {
    for (Stream& stream : _Streams) {
      try {
        Check(stream.Input, vocabulary);
        Migrate(stream, services);
      } catch (const Failure& failure) {
        stream.Fault = failure;
      }
    }
  }

  void Write(FileForm& form) {
    const auto present = _Line.Force ? OutputFolder::Present::Replaced : OutputFolder::Present::Kept;
    const OutputFolder folder(_Line.Into, ".csv", present);
    for (Stream& stream : _Streams) {
      try {
        if (stream.Fault) throw Failure(*stream.Fault);
        const FormedFile file = Form(stream, form);
        Write(stream, folder, file.Text);
      } catch (const Failure& failure) {
        Skip(stream.Input.Path, failure);
      }
    }
    _Report.Finish();
    // An identifier that leads nowhere is kept, and does not keep anything from being written.
    for (const Failure& failure : _Made.Unresolved()) _Answers.Tell(failure);
  }

 private:
  struct Stream {
    StreamInput Input;
    LegacyOperation Operation;
    AnalysisHandle Analysis;  // that took the place of the legacy one
    UnmappedNames Unmapped;
    std::optional<Failure> Fault;  // for which the stream is skipped
  };

  void Skip(const std::string& path, const Failure& cause) {
    _Report.Add({path, MigrationResult::Skipped, {}, 0, {}, cause.what()});
    _Answers.Note(cause.GetStatus());
  }

  // Tells of values that do not come over whole; they skip the stream unless the rest is wanted.
  void TellLosses(const std::string& path, const std::vector<Failure>& losses) {
    for (const Failure& loss : losses) _Answers.Tell(_Line.Lossy ? AsNote(loss) : loss);
    if (!losses.empty() && !_Line.Lossy) throw StreamWithLosses(path, losses.size());
  }

  // The library reads the stream by itself; what it does not read is found here.
  void Check(const StreamInput& input, ExchangeVocabulary& vocabulary) {
    const std::string bytes = ReadStreamBytes(input, _Surroundings);
    StreamReader reader(input.Path, vocabulary, StreamReader::UnknownKeys::PassedOver);
    StreamContent content = reader.Read(bytes);
    if (const auto fault = FaultOfEnds(input.Path, bytes)) content.Problems.push_back(*fault);
    TellLosses(input.Path, content.AllProblems(input.Path));
    _Made.Resolve(input, content);
  }

  void Migrate(Stream& stream, VEXSTMTimeAnalysisDlgServices& services) {
    (void)_Listener.Take();  // what the check has left
    long status = E_FAIL;
    stream.Analysis = stream.Operation.Migrate(status);
    stream.Unmapped = _Listener.Take();
    if (stream.Analysis.IsNull()) throw StreamNotMigrated(stream.Input.Path, status);
    SetTotalsInSeconds(*stream.Analysis, services);
    _Made.Replace(stream.Input.Identifier, stream.Analysis);
    _Identifiers.insert(stream.Input.Identifier);
  }

  FormedFile Form(const Stream& stream, FileForm& form) {
    const StreamInput& input = stream.Input;
    const ExchangedAnalysis analysis{input.Identifier, input.Path, stream.Analysis, {}, input.IsNamed, true};
    FormedFile file = form.Form(analysis, _Made.ReusedBy(stream.Analysis));
    const std::vector<Failure> shadowed = ShadowedReuse(analysis, file.Reused, _Identifiers);
    file.Losses.insert(file.Losses.end(), shadowed.begin(), shadowed.end());
    TellLosses(input.Path, file.Losses);
    for (const Failure& note : file.Notes) _Answers.Tell(note);
    return file;
  }

  void Write(const Stream& stream, const OutputFolder& folder, const std::string& text) {
    const std::string& identifier = stream.Input.Identifier;
    const bool is_there = folder.Holds(identifier, text);
    if (!is_there) {
      if (const auto fault = folder.Check(identifier)) throw Failure(*fault);
      folder.Write(identifier, text);
    }
    const auto result = is_there ? MigrationResult::Unchanged : MigrationResult::Migrated;
    _Report.Add(
        {stream.Input.Path, result, folder.PathOf(identifier), CountLines(*stream.Analysis), stream.Unmapped, {}});
  }

  const CommandLine& _Line;
  const Surroundings& _Surroundings;
  Answers& _Answers;
  UnmappedListener _Listener;
  MigrationReport _Report;
  StreamAnalyses _Made;
  std::deque<Stream> _Streams;
  std::set<std::string> _Identifiers;  // of all that the library has brought over
};

}  // namespace

void RunMigrate(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  const Catalogue catalogue(line, surroundings);
  catalogue.TellOfSettings(answers);
  VEXSTMTimeAnalysisDlgServices services;
  ExchangeVocabulary vocabulary;
  StreamMigration migration(line, surroundings, answers);
  FileForm form(catalogue, services, vocabulary, answers);
  migration.Migrate(vocabulary, services);
  migration.Write(form);
}

}  // namespace tool
