// timeanalysis impact: what the change of a template touches, and the files above it brought up to date.
#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <system_error>
#include <utility>

#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/analysis/AnalysisRun.h"
#include "tools/impact/FileUpdate.h"
#include "tools/impact/ImpactMessages.h"
#include "tools/impact/ImpactPlan.h"
#include "tools/impact/ImpactReport.h"
#include "tools/impact/NearestNames.h"
#include "tools/impact/ProgressBar.h"
#include "tools/impact/Propagation.h"
#include "tools/impact/StopSignals.h"

namespace tool {

namespace {

void RequireFolder(const std::string& path) {
  std::error_code error;
  const auto type = std::filesystem::status(path, error).type();
  if (type != std::filesystem::file_type::directory && type != std::filesystem::file_type::not_found) {
    throw NoFolderOfAnalyses(path);
  }
}

class Impact {
 public:
  Impact(const CommandLine& line, const Surroundings& surroundings, Answers& answers)
      : _Line(line),
        _Surroundings(surroundings),
        _Answers(answers),
        _Catalogue(line, surroundings),
        _Progress(surroundings, !line.Json && !line.Csv) {
    if (line.Apply) _Signals.emplace();
    _Answers.PrepareToTell([this] { _Progress.Hide(); });
  }
  ~Impact() { _Answers.PrepareToTell(nullptr); }
  Impact(const Impact&) = delete;
  Impact& operator=(const Impact&) = delete;

  void Run() {
    _Catalogue.TellOfSettings(_Answers);
    RequireFolder(_Line.Texts.front());
    AnalysisRun run(_Line, _Catalogue, _Services, _Answers);
    Build(run);
    if (_Analyses.empty()) return;  // which was told
    _Template = FindTemplate();
    Climb();
    PropagateChange(_Analyses, _Template, _Steps, _Services);
    PlanChanges(_Analyses, _Impacted, run.MakeBuilder(), _Services, _Answers,
                [this](std::size_t done) { Tick("checking files", done, _Impacted.size()); });
    std::optional<Failure> stopped;
    if (_Line.Apply) stopped = Apply();
    _Progress.Hide();
    Report();
    if (stopped) throw Failure(*stopped);
  }

 private:
  bool IsStopWanted() const {
    return _Line.Apply && (_Signals->AreRaised() || (_Surroundings.IsStopWanted && _Surroundings.IsStopWanted()));
  }

  // Up to the first file that is written a run that is to stop changes nothing.
  void Tick(std::string_view work, std::size_t done, std::size_t count) {
    if (IsStopWanted()) throw InterruptedEarly();
    _Progress.Show(work, done, count);
  }

  void Build(AnalysisRun& run) {
    const std::size_t count = run.CountAnalyses();
    std::map<const BuiltAnalysis*, std::size_t> positions;
    run.Build(
        [&](const AnalysisFolder::Member& member, const BuiltAnalysis& built, const ReusedAnalyses& reused) {
          Tick("computing analyses", _Analyses.size(), count);
          FolderAnalysis analysis{&member, built, {}};
          for (const BuiltAnalysis* const of_row : reused) {
            analysis.Reused.push_back(of_row == nullptr ? AnalysisFolder::NoAnalysis : positions.at(of_row));
          }
          positions.emplace(&built, _Analyses.size());
          _Analyses.push_back(std::move(analysis));
        },
        AnalysisRun::OutOfDate::PassedOver);
  }

  std::size_t FindTemplate() const {
    std::vector<std::string> identifiers;
    std::vector<std::string> paths;
    std::size_t found = 0;
    for (std::size_t position = 0; position < _Analyses.size(); ++position) {
      const AnalysisFolder::Member& member = *_Analyses[position].Member;
      identifiers.push_back(member.Identifier);
      if (member.Identifier != _Line.Template) continue;
      paths.push_back(member.File.GetPath());
      found = position;
    }
    if (paths.empty()) throw TemplateNotFound(_Line.Texts.front(), _Line.Template, NearestTo(identifiers));
    if (paths.size() > 1) throw TemplateShared(_Line.Template, paths);
    return found;
  }

  // A file that is called as typed is the nearest, whatever its identifier is.
  std::vector<std::string> NearestTo(const std::vector<std::string>& identifiers) const {
    for (const FolderAnalysis& analysis : _Analyses) {
      if (analysis.Member->Name == _Line.Template) return {analysis.Member->Identifier};
    }
    return NearestNames(_Line.Template, identifiers);
  }

  void Climb() {
    std::vector<std::vector<std::size_t>> reused;
    for (const FolderAnalysis& analysis : _Analyses) reused.push_back(analysis.Reused);
    _Steps = ClimbFrom(_Template, reused, AnalysisFolder::NoAnalysis);
    std::vector<bool> is_touched(_Analyses.size());
    is_touched[_Template] = true;
    for (const ClimbStep& step : _Steps) is_touched[step.Analysis] = true;
    for (const ClimbStep& step : _Steps) {
      ImpactedAnalysis impacted;
      impacted.Step = step;
      impacted.OldTmu = ReadTotals(_Analyses[step.Analysis].Built);
      NoteUses(is_touched, impacted);
      _Impacted.push_back(std::move(impacted));
    }
  }

  void NoteUses(const std::vector<bool>& is_touched, ImpactedAnalysis& impacted) const {
    std::map<std::size_t, std::size_t> places;  // of the uses, by what is reused
    const std::vector<std::size_t>& reused = _Analyses[impacted.Step.Analysis].Reused;
    for (std::size_t row = 0; row < reused.size(); ++row) {
      if (reused[row] == AnalysisFolder::NoAnalysis || !is_touched[reused[row]]) continue;
      const auto [place, is_new] = places.emplace(reused[row], impacted.Uses.size());
      if (is_new) impacted.Uses.push_back({reused[row], {}});
      impacted.Uses[place->second].Rows.push_back(row);
    }
  }

  // What ended the writing ahead of time.
  std::optional<Failure> Apply() {
    try {
      const auto count = static_cast<std::size_t>(
          std::count_if(_Impacted.begin(), _Impacted.end(),
                        [](const ImpactedAnalysis& impacted) { return impacted.State == FileState::Changes; }));
      UpdateFiles(
          _Line.Texts.front(), _Analyses, _Impacted, _Answers, [this] { return IsStopWanted(); },
          [this, count](std::size_t done) { _Progress.Show("writing files", done, count); });
    } catch (const Failure& failure) {
      return failure;
    }
    return std::nullopt;
  }

  void Report() {
    const ImpactReport report{_Analyses, _Template, _Impacted};
    if (_Line.Json) return WriteImpactJson(_Answers.Out(), report, _Services);
    const ResultUnit unit(_Services, _Line.Unit);
    if (_Line.Csv) return WriteImpactCsv(_Answers.Out(), report, unit);
    WriteImpactTables(_Answers.Out(), report, unit);
  }

  const CommandLine& _Line;
  const Surroundings& _Surroundings;
  Answers& _Answers;
  Catalogue _Catalogue;
  VEXSTMTimeAnalysisDlgServices _Services;
  ProgressBar _Progress;
  std::optional<StopSignals> _Signals;
  FolderAnalyses _Analyses;
  std::size_t _Template = 0;
  std::vector<ClimbStep> _Steps;
  std::vector<ImpactedAnalysis> _Impacted;
};

}  // namespace

void RunImpact(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  Impact(line, surroundings, answers).Run();
}

}  // namespace tool
