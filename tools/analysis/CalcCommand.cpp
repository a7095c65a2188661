// timeanalysis calc: analyses from text files, with their times and totals.
#include <utility>
#include <vector>

#include "tools/Catalogue.h"
#include "tools/Commands.h"
#include "tools/analysis/AnalysisResult.h"
#include "tools/analysis/AnalysisRun.h"
#include "tools/analysis/CalcReport.h"

namespace tool {

namespace {

// Writes analyses as they are built.
class CalcWriter {
 public:
  CalcWriter(const CommandLine& line, const VEXSTMTimeAnalysisDlgServices& services, Answers& answers)
      : _Line(line), _Answers(answers), _Services(services), _Unit(services, line.Unit) {
    if (line.Csv) WriteCsvHeader(answers.Out());
  }

  void Write(const AnalysisFolder::Member& member, const BuiltAnalysis& built) {
    const bool has_nothing = built.Rows.empty() && !member.File.IsWhole();
    if (has_nothing) return;
    AnalysisResult result = ReadResult(member, built, _Services);
    if (_Line.Json) {
      WriteResultJson(_Answers.Out(), result, _Services);
    } else if (_Line.Csv) {
      WriteResultCsv(_Answers.Out(), result, _Unit);
    } else {
      WriteResultTable(_Answers.Out(), result, _Unit, _Written.empty());
      result.Lines.clear();
      _Written.push_back(std::move(result));
    }
  }

  /// Closes a run of several tables with their totals.
  void Finish() {
    if (_Written.size() > 1) WriteOverview(_Answers.Out(), _Written, _Unit);
  }

 private:
  const CommandLine& _Line;
  Answers& _Answers;
  const VEXSTMTimeAnalysisDlgServices& _Services;
  ResultUnit _Unit;
  std::vector<AnalysisResult> _Written;  // as tables, without their lines
};

}  // namespace

void RunCalc(const CommandLine& line, const Surroundings& surroundings, Answers& answers) {
  const Catalogue catalogue(line, surroundings);
  catalogue.TellOfSettings(answers);
  VEXSTMTimeAnalysisDlgServices services;
  AnalysisRun run(line, catalogue, services, answers);
  CalcWriter writer(line, services, answers);
  run.Build([&writer](const AnalysisFolder::Member& member, const BuiltAnalysis& built,
                      const ReusedAnalyses& /*reused*/) { writer.Write(member, built); });
  writer.Finish();
}

}  // namespace tool
